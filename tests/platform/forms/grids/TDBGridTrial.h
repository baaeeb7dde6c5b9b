#pragma once

#include "platform/forms/controls/ListScreen.h"

#include <gtest/gtest.h>

namespace Quillane {

inline constexpr int ClassColumn = 0;
inline constexpr int TypeColumn = 1;
inline constexpr int QuantityColumn = 2;

/// A grid of bags between two boxes, with the lists of its first two columns.
class BagScreen : public ListScreen {
public:
    TextBox TxtBefore{*this, "TxtBefore"};
    TDBGrid Grid{*this, "Grid"};
    TextBox TxtAfter{*this, "TxtAfter"};
    TDBCombo CboBagClass{*this, "CboBagClass"};
    TDBCombo CboBagType{*this, "CboBagType"};
    RowArray BagRows;

    BagScreen() {
        TxtBefore.SetTabIndex(0);
        Grid.SetTabIndex(1);
        TxtAfter.SetTabIndex(2);
        TxtBefore.Widget().setGeometry(10, 10, 300, 28);
        Grid.Widget().setGeometry(10, 50, 480, 260);
        TxtAfter.Widget().setGeometry(10, 320, 300, 28);
        FillList(CboBagClass, {"Jute", "Plastic", "Plain"});
        FillList(CboBagType, {"50 Kg", "100 Kg"});
        Grid.AddColumn("Class", 200);
        Grid.AddColumn("Type", 160);
        Grid.AddColumn("Qty", 80, TDBGrid::CellKind::Number);
        Grid.SetDropDown(ClassColumn, CboBagClass);
        Grid.SetDropDown(TypeColumn, CboBagType);
        BagRows.ReDim(-1, 2);
        Grid.SetArray(BagRows);
    }

private:
    static void FillList(TDBCombo& list, std::initializer_list<const char*> names) {
        list.SetArray(NamesWithIds(names));
        list.ReBind();
    }
};

/// The grid has the focus; calls of its handlers are recorded.
class TDBGridTest : public testing::Test {
protected:
    void SetUp() override {
        screen.Show();
        ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
        grid.AfterColUpdate = [this] { events.push_back("AfterColUpdate"); };
        grid.Change = [this] { events.push_back("Change"); };
        grid.SetFocus();
        screen.log.clear();
        screen.keys.clear();
    }
    void TearDown() override { screen.Unload(); }

    void Press(QKeyCombination key) { screen.Press(key); }
    void Press(Qt::Key key) { screen.Press(key); }
    void Type(std::string_view text) { screen.Type(text); }

    void Fill(std::vector<std::vector<std::string>> rows) {
        screen.BagRows.ReDim(static_cast<int>(rows.size()) - 1, 2);
        for (std::size_t row = 0; row < rows.size(); ++row)
            for (std::size_t column = 0; column < 3; ++column)
                screen.BagRows.Set(static_cast<int>(row), static_cast<int>(column),
                                   rows[row][column]);
        grid.ReBind();
    }
    /// Two lines as they are read from the database.
    void FillTwo() { Fill({{"Jute", "50 Kg", "30"}, {"Plastic", "100 Kg", "10"}}); }

    QTableView& View() { return static_cast<QTableView&>(grid.Widget()); }
    QPoint CellCentre(int row, int column) {
        return View().visualRect(View().model()->index(row, column)).center();
    }
    void ClickCell(int row, int column) {
        screen.Click(*View().viewport(), CellCentre(row, column));
    }
    void GoTo(int row, int column) { View().setCurrentIndex(View().model()->index(row, column)); }
    QLineEdit* Editor() {
        auto* editor = View().viewport()->findChild<QLineEdit*>();
        return editor->isVisible() ? editor : nullptr;
    }
    std::string Cell(int row, int column) { return screen.BagRows.Get(row, column); }
    int Column() { return View().currentIndex().column(); }
    std::string Shown(int row, int column) {
        return FromQt(View().model()->index(row, column).data().toString());
    }

    BagScreen screen;
    TDBGrid& grid = screen.Grid;
    std::vector<std::string> events;
};

} // namespace Quillane
