// Lists and the grid on a real X server: xdotool sends several keys and clicks at a time, so that
// they are typed ahead.

#include "platform/forms/controls/ListScreen.h"

#include <QGuiApplication>
#include <QProcess>

#include <gtest/gtest.h>

namespace Quillane {
namespace {

class BagsAndParties : public ListScreen {
public:
    TDBCombo CboSeller{*this, "CboSeller"};
    TDBCombo CboCommodity{*this, "CboCommodity"};
    TDBGrid Grid{*this, "Grid"};
    TextBox TxtVehicleNo{*this, "TxtVehicleNo"};
    TDBCombo CboBagClass{*this, "CboBagClass"};
    RowArray BagRows;

    BagsAndParties() {
        int place = 0;
        for (VisualControl* control : std::initializer_list<VisualControl*>{
                 &CboSeller, &CboCommodity, &Grid, &TxtVehicleNo}) {
            control->SetTabIndex(place);
            control->Widget().setGeometry(20, 10 + 40 * place++, 300, 28);
        }
        Grid.Widget().setGeometry(20, 90, 400, 200);
        TxtVehicleNo.Widget().setGeometry(20, 300, 300, 28);
        Fill(CboSeller, {"Ali Traders", "Bashir", "Chaudhry"});
        Fill(CboCommodity, {"Wheat", "Maize", "Gram"});
        Fill(CboBagClass, {"Jute", "Plastic", "Plain"});
        Grid.AddColumn("Class", 200);
        Grid.AddColumn("Qty", 100, TDBGrid::CellKind::Number);
        Grid.SetDropDown(0, CboBagClass);
        BagRows.ReDim(0, 1);
        BagRows.Set(0, 0, "Jute");
        BagRows.Set(0, 1, "30");
        Grid.SetArray(BagRows);
        CboSeller.NotInList = [this] { CboSeller.SetFocus(); };
        OnSave = [this] {
            saved.clear();
            for (int row = 0; row < BagRows.RowCount(); ++row)
                saved.push_back(BagRows.Get(row, 0) + " " + BagRows.Get(row, 1));
        };
    }

    std::vector<std::string> saved;

private:
    static void Fill(TDBCombo& list, std::initializer_list<const char*> names) {
        list.Layout.AutoCompletion = list.Layout.AutoDropDown = list.Layout.LimitToList = true;
        list.Layout.ColumnHeaders = list.Layout.AllowRowSizing = list.Layout.EmptyRows = false;
        list.Columns[1].Visible = false;
        list.SetArray(NamesWithIds(names));
        list.ReBind();
    }
};

class ListsOnDisplay : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Testing::HasDisplay());
        screen.Show();
        ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
        ASSERT_EQ(screen.ActiveControlName(), "CboSeller");
    }
    void TearDown() override { screen.Unload(); }

    /// Runs xdotool to its end while events are processed.
    void Hands(const QStringList& arguments) {
        QProcess hands;
        hands.start("xdotool", arguments);
        ASSERT_TRUE(Testing::WaitFor([&] { return hands.state() == QProcess::NotRunning; }));
        ASSERT_EQ(hands.exitCode(), 0) << hands.readAllStandardError().toStdString();
    }
    void Keys(const QStringList& keys) { Hands(QStringList{"key", "--delay", "0"} + keys); }
    void Click(QWidget& widget, QPoint place) {
        const QPoint point = widget.mapToGlobal(place);
        Hands({"mousemove", QString::number(point.x()), QString::number(point.y()), "click", "1"});
    }
    bool Becomes(const std::function<bool()>& condition) { return Testing::WaitFor(condition); }
    bool ActiveBecomes(const char* name) {
        return Becomes([=, this] { return screen.ActiveControlName() == name; });
    }
    QPoint Cell(int row, int column) {
        auto& view = static_cast<QTableView&>(screen.Grid.Widget());
        return view.visualRect(view.model()->index(row, column)).center();
    }
    QWidget& Cells() { return *static_cast<QTableView&>(screen.Grid.Widget()).viewport(); }

    BagsAndParties screen;
};

TEST_F(ListsOnDisplay, LettersAndEntersTypedAheadFillOneListAfterTheOther) {
    Keys({"c", "Return", "m", "a", "Return", "p", "Return", "k", "7"});
    ASSERT_TRUE(Becomes([this] { return screen.TxtVehicleNo.Text() == "k7"; }));
    EXPECT_EQ(screen.CboSeller.Text(), "Chaudhry");
    EXPECT_EQ(screen.CboSeller.ColumnText(1), "102");
    EXPECT_EQ(screen.CboCommodity.Text(), "Maize");
    EXPECT_EQ(screen.BagRows.Get(0, 0), "Plastic");
}

TEST_F(ListsOnDisplay, ARowIsHighlightedByArrowsAndTakenByEnter) {
    Keys({"F4", "Down", "Down", "Return"});
    ASSERT_TRUE(ActiveBecomes("CboCommodity"));
    EXPECT_EQ(screen.CboSeller.Text(), "Bashir");
}

TEST_F(ListsOnDisplay, AltDownOpensTheListAndAClickOnARowSelectsIt) {
    Keys({"alt+Down"});
    ASSERT_TRUE(Becomes([this] { return screen.CboSeller.IsDroppedDown(); }));
    const QPoint place = PlaceOfRow(screen.CboSeller, 2);
    Click(*DroppedRows(screen.CboSeller)->viewport(), place);
    ASSERT_TRUE(Becomes([this] { return screen.CboSeller.Text() == "Chaudhry"; }));
    EXPECT_FALSE(screen.CboSeller.IsDroppedDown());
    EXPECT_TRUE(screen.isActiveWindow());
    Keys({"Tab"});
    EXPECT_TRUE(ActiveBecomes("CboCommodity"));
}

TEST_F(ListsOnDisplay, AClickOnTheArrowOpensTheListAndAClickNextToItClosesIt) {
    QWidget& box = screen.CboCommodity.Widget();
    Click(box, {box.width() - 8, box.height() / 2});
    ASSERT_TRUE(Becomes([this] { return screen.CboCommodity.IsDroppedDown(); }));
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
    Click(screen, {600, 440});
    EXPECT_TRUE(Becomes([this] { return !screen.CboCommodity.IsDroppedDown(); }));
}

TEST_F(ListsOnDisplay, ARefusedNameKeepsTheKeysTypedAfterIt) {
    Keys({"z", "Return", "x"});
    ASSERT_TRUE(Becomes([this] { return screen.CboSeller.Text() == "zx"; }));
    EXPECT_EQ(screen.ActiveControlName(), "CboSeller");
    EXPECT_EQ(screen.CboCommodity.Text(), "");
}

TEST_F(ListsOnDisplay, CtrlSStoresThePendingCellOfAnOldLineFirst) {
    screen.Grid.SetFocus();
    Keys({"Right", "4", "5", "ctrl+s"});
    ASSERT_TRUE(Becomes([this] { return !screen.saved.empty(); }));
    EXPECT_EQ(screen.saved, std::vector<std::string>{"Jute 45"});
}

TEST_F(ListsOnDisplay, CtrlSStoresThePendingCellOfANewLineFirst) {
    screen.Grid.SetFocus();
    Keys({"Down", "p", "l", "Right", "1", "2", "ctrl+s"});
    ASSERT_TRUE(Becomes([this] { return !screen.saved.empty(); }));
    EXPECT_EQ(screen.saved, (std::vector<std::string>{"Jute 30", "Plastic 12"}));
}

TEST_F(ListsOnDisplay, EnterStoresThePendingCellOfANewLine) {
    screen.Grid.SetFocus();
    Keys({"Down", "j", "Right", "9", "Return"});
    ASSERT_TRUE(ActiveBecomes("TxtVehicleNo"));
    ASSERT_EQ(screen.BagRows.RowCount(), 2);
    EXPECT_EQ(screen.BagRows.Get(1, 1), "9");
}

TEST_F(ListsOnDisplay, AClickElsewhereStoresThePendingCellOfOldAndNewLines) {
    for (const int line : {0, 1}) {
        Click(Cells(), Cell(line, 1));
        ASSERT_TRUE(ActiveBecomes("Grid"));
        ASSERT_TRUE(Becomes([=, this] { return screen.Grid.Row() == line; }));
        Keys({"5", "6"});
        Click(screen.TxtVehicleNo.Widget(), {40, 10});
        ASSERT_TRUE(ActiveBecomes("TxtVehicleNo"));
        ASSERT_GT(screen.BagRows.RowCount(), line);
        EXPECT_EQ(screen.BagRows.Get(line, 1), "56");
    }
}

TEST_F(ListsOnDisplay, EscapeCancelsAnEditAndF2EditsWithTheCaret) {
    screen.Grid.SetFocus();
    Keys({"Right", "9", "Escape", "F2", "Left", "5", "Return"});
    ASSERT_TRUE(ActiveBecomes("TxtVehicleNo"));
    EXPECT_EQ(screen.BagRows.Get(0, 1), "350");
}

} // namespace
} // namespace Quillane
