#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/TDBCombo.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/grids/TDBGrid.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace Quillane {

inline std::shared_ptr<RowArray> NamesWithIds(std::initializer_list<const char*> names) {
    auto rows = std::make_shared<RowArray>();
    rows->ReDim(static_cast<int>(names.size()) - 1, 1);
    int row = 0;
    for (const char* name : names) {
        rows->Set(row, 0, name);
        rows->Set(row, 1, std::to_string(100 + row));
        ++row;
    }
    return rows;
}

/// The contents of the drop-down of a control, if it is open.
inline QTableView* DroppedRows(VisualControl& control) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->parentWidget() == &control.Widget())
            return window->findChild<QTableView*>();
    return nullptr;
}

inline int HighlightedRow(VisualControl& control) {
    const QTableView* rows = DroppedRows(control);
    return rows == nullptr ? -1 : rows->currentIndex().row();
}

inline QPoint PlaceOfRow(VisualControl& control, int row) {
    QTableView& rows = *DroppedRows(control);
    const QModelIndex index = rows.model()->index(row, 0);
    rows.scrollTo(index);
    return rows.visualRect(index).center();
}

/// A screen with a box before the tested control, and a box and a button after it. Enter moves on,
/// as on the working screen; every key and every focus event is logged.
class ListScreen : public Screen {
public:
    ListScreen() : Screen("FrmLists", "Lists") {
        resize(640, 480);
        FocusObserver = [this](const std::string& event) { log.push_back(event); };
    }

    void Press(QKeyCombination key) { Testing::ScreenDriver(*this).Press(key); }
    void Press(Qt::Key key) { Testing::ScreenDriver(*this).Press(key); }
    void Type(std::string_view text) { Testing::ScreenDriver(*this).Type(text); }
    void Click(QWidget& widget, QPoint place) { Testing::ScreenDriver(*this).Click(widget, place); }
    void Click(VisualControl& control) { Testing::ScreenDriver(*this).Click(control); }
    /// Clicks a row of the drop-down that a control shows.
    void ClickRow(VisualControl& control, int row) {
        const QPoint place = PlaceOfRow(control, row);
        Click(*DroppedRows(control)->viewport(), place);
    }

    std::vector<std::string> log;
    std::vector<int> keys;
    std::function<void()> OnSave;

protected:
    void Form_KeyDown(int& key, int shift) override {
        keys.push_back(key);
        if (key == 'S' && shift == ShiftState::Ctrl && OnSave) {
            OnSave();
        } else if (key == Key::Return) {
            SendTab();
            key = 0;
        }
    }
};

} // namespace Quillane
