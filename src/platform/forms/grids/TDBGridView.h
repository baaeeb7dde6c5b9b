#pragma once

#include "platform/forms/controls/DropDownEdit.h"
#include "platform/forms/controls/DropDownList.h"
#include "platform/forms/grids/TDBGridModel.h"

#include <QTableView>

#include <memory>
#include <optional>

namespace Quillane {

/// The visible part of a grid, with its current cell and the edit in it. The editor is a line
/// inside the view. Losing Qt's focus does not end an edit.
class TDBGrid::View : public QTableView {
public:
    View(TDBGrid& grid, QWidget& parent);
    ~View() override;

    /// How an edit began. It decides what the arrow keys do.
    enum class Begun { ByTyping, WithCaret };

    TDBGridModel& Model() { return model_; }
    void ReBind();

    int Row() const;
    int Column() const;
    /// Moves to a cell, or to the nearest one that exists. Commits nothing. A stale model is reset
    /// first.
    void GoTo(int row, int column);
    /// Moves on arrows, Home, End, Page Up and Page Down; returns false for other keys.
    bool MoveBy(int key);

    bool IsEditing() const { return editing_; }
    bool ArrowsAreTheCarets() const { return begun_ == Begun::WithCaret; }
    void SetBegun(Begun begun) { begun_ = begun; }
    void BeginEdit(Begun begun, const QString& text);
    void Commit();
    void GiveUp();
    const QString& RefusedText() const { return refused_; }

    DropDownList& List() { return list_; }
    void ToggleList();

    int SelectedLine() const { return selectedLine_; } ///< -1: none
    void DeleteLine(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;

private:
    class Painter;

    void FitColumns();
    void FitRows();
    void PlaceEditor();
    QRect CellRect() const;
    QRect ArrowRect() const;
    GridColumn& CurrentColumn() { return model_.Column(Column()); }
    void PassToEditor(QKeyEvent* event);
    const RowArray* Names();
    bool MayType(const QString& text);
    void TextTyped(bool added);
    void DropDown(std::optional<int> highlighted);
    std::optional<QString> TextToStore();
    void EndEdit();
    void SelectLine(int row);
    void Press(QPoint position);

    TDBGrid& grid_;
    TDBGridModel model_;
    std::unique_ptr<Painter> painter_;
    DropDownEdit editor_;
    DropDownList list_;
    bool editing_ = false;
    Begun begun_ = Begun::ByTyping;
    QString refused_; ///< the text that the last edit lost because its list does not contain it
    int selectedLine_ = -1;
};

} // namespace Quillane
