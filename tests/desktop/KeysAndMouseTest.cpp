// Keys typed ahead, moving through the screen by Enter and back, lists, and the mouse.

#include "Station.h"
#include "shell/Desktop.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTableView>

#include <algorithm>

namespace Quillane::Testing {
namespace {

using Names = std::vector<std::string>;

/// The rows of an open list.
QTableView* DroppedRows(VisualControl& list) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->parentWidget() == &list.Widget())
            return window->findChild<QTableView*>();
    return nullptr;
}

class KeysTypedAhead : public Station {};

TEST_F(KeysTypedAhead, OfAWholeWeighmentReachTheirControls) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.WithoutLooking({"key",    "--delay", "0",      "Return", "Return", "w",     "h",
                           "Return", "Return",  "c",      "h",      "a",      "u",     "Return",
                           "Return", "Return",  "l",      "Right",  "g",      "Right", "7",
                           "Return", "1",       "7",      "Return", "k",      "5",     "Return",
                           "b",      "1",       "Return", "z",      "a",      "Return"});
        by.UntilActive("ChkFinalized");
        by.See([&] {
            EXPECT_EQ(screen.CboCommodity.Text(), "Wheat");
            EXPECT_EQ(screen.CboSeller.Text(), "Chaudhry Grain Traders-Okara");
            ASSERT_EQ(screen.BagRows.RowCount(), 1);
            EXPECT_EQ(screen.BagRows.Get(0, 0), "Loose");
            EXPECT_EQ(screen.BagRows.Get(0, 1), "Government");
            EXPECT_EQ(screen.BagRows.Get(0, 2), "7");
            EXPECT_EQ(screen.TxtDeduction.Text(), "17");
            EXPECT_EQ(screen.TxtVehicleNo.Text(), "k5");
            EXPECT_EQ(screen.TxtBuiltyNo.Text(), "b1");
            EXPECT_EQ(screen.TxtDriverName.Text(), "za");
        });
    });
}

// The indicator sends without a pause, so that ticks decode and process events between the letters.
TEST_F(KeysTypedAhead, DuringTicksAreNeitherLostNorDoubled) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        Indicate(by, "baud 115200");
        by.ClickInto(screen.TxtDriverName);
        by.UntilReading(12540);
        const std::string name = "Abdul Rehman Khan of Chak 39";
        for (int times = 0; times < 10; ++times) {
            by.WithoutLooking({"type", "--delay", "12", QString::fromStdString(name)});
            by.Until("the whole name", [&] { return screen.TxtDriverName.Text() == name; });
            by.WithoutLooking({"key", "--delay", "0", "ctrl+a", "Delete"});
            by.Until("an empty box", [&] { return screen.TxtDriverName.Text().empty(); });
        }
    });
}

TEST_F(KeysTypedAhead, WhileABoxIsShownReachOnlyTheBox) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.Click(screen.TxtVehicleNo);
        by.Type("k5");
        by.Press({"ctrl+l"});
        by.ExpectBox("Alert", "Are you sure to clear the entries?");
        by.Press({"x", "7", "Down", "ctrl+s"});
        by.Answer("Alert", "Are you sure to clear the entries?", {"Escape"});
        by.UntilInFront("Weighment for Veltrane");
        by.Press({"9"});
        by.Until("the key after the box", [&] { return screen.TxtVehicleNo.Text() == "k59"; });
    });
}

class WeighmentOpenedTwice : public Station {
protected:
    static auto CountShown() {
        return std::ranges::count_if(QApplication::topLevelWidgets(), [](const QWidget* window) {
            return dynamic_cast<const FrmWeighment*>(window) && window->isVisible();
        });
    }
};

// A second screen would find its port in use and report that in a box.
TEST_F(WeighmentOpenedTwice, ByPressesWhileItLoadsIsOpenedOnce) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        QWidget& button = TheDesktop->BtnWeighment.Widget();
        for (int times = 0; times < 5; ++times) {
            const QPoint place =
                by.OnDisplay(button, by.See([&] { return button.rect().center(); }));
            by.WithoutLooking({"mousemove", QString::number(place.x()), QString::number(place.y()),
                               "click", "--repeat", "4", "--delay", "15", "1"});
            by.UntilInFront("Weighment for Veltrane");
            by.UntilReading(12540);
            EXPECT_EQ(by.See(CountShown), 1);
            by.Press({"ctrl+q"});
            by.UntilInFront("Veltrane: Quillane");
        }
    });
    EXPECT_TRUE(boxes->All().empty());
}

class MovingThroughTheScreen : public Station {
protected:
    /// Presses a key repeatedly and records where the focus goes, until it reaches a control.
    static Names Walk(Operator& by, FrmWeighment& screen, const char* key, const char* last) {
        Names walked;
        const auto here = [&] { return screen.ActiveControlName(); };
        std::string before = by.See(here);
        while (before != last && walked.size() < 40) {
            by.Press({key});
            by.Until("the focus to move on", [&] { return here() != before; });
            walked.push_back(before = by.See(here));
        }
        return walked;
    }
};

TEST_F(MovingThroughTheScreen, FollowsTheTabOrderByEnterAndBackByShiftTab) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilActive("TxtArrivalId");
        by.UntilReading(12540);
        EXPECT_EQ(Walk(by, screen, "Return", "BtnSave"),
                  (Names{"DtpArrivalDate", "CboCommodity", "CboSellerType", "CboSeller",
                         "CmdGrossWeight", "CmdTareWeight", "Grid", "TxtDeduction", "TxtVehicleNo",
                         "TxtBuiltyNo", "TxtDriverName", "ChkFinalized", "BtnSave"}));
        // Enter on the weight buttons has pressed neither.
        EXPECT_EQ(by.See([&] { return screen.TxtInitialGrossWeight.Text(); }), "");
        EXPECT_EQ(by.See([&] { return screen.TxtTareWeight.Text(); }), "");
        EXPECT_EQ(Walk(by, screen, "Tab", "TxtArrivalId"),
                  (Names{"BtnClear", "BtnClose", "ChkManualWeight", "TxtWeight",
                         "TxtInitialGrossWeight", "TxtTareWeight", "TxtGrossWeight", "TxtMoundKgs",
                         "TxtNetWeight", "TxtArrivalId"}));
        EXPECT_EQ(Walk(by, screen, "shift+Tab", "DtpArrivalDate"), (Names{"TxtNetWeight",
                                                                          "TxtMoundKgs",
                                                                          "TxtGrossWeight",
                                                                          "TxtTareWeight",
                                                                          "TxtInitialGrossWeight",
                                                                          "TxtWeight",
                                                                          "ChkManualWeight",
                                                                          "BtnClose",
                                                                          "BtnClear",
                                                                          "BtnSave",
                                                                          "ChkFinalized",
                                                                          "TxtDriverName",
                                                                          "TxtBuiltyNo",
                                                                          "TxtVehicleNo",
                                                                          "TxtDeduction",
                                                                          "Grid",
                                                                          "CmdTareWeight",
                                                                          "CmdGrossWeight",
                                                                          "CboSeller",
                                                                          "CboSellerType",
                                                                          "CboCommodity",
                                                                          "DtpArrivalDate"}));
    });
}

class ListsByKeys : public Station {};

TEST_F(ListsByKeys, OpenByF4AndArrowsAndEnterSelectARow) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.Press({"Return", "Return"});
        by.UntilActive("CboCommodity");
        by.Press({"F4"});
        by.Until("the open list", [&] { return screen.CboCommodity.IsDroppedDown(); });
        by.Press({"Down", "Down", "Return"});
        by.UntilActive("CboSellerType");
        EXPECT_EQ(by.See([&] { return screen.CboCommodity.Text(); }), "Wheat Seed");
        by.Press({"F4", "Escape"});
        by.Until("the closed list", [&] { return !screen.CboSellerType.IsDroppedDown(); });
        EXPECT_EQ(by.See([&] { return screen.CboSellerType.Text(); }), "ALL");
    });
}

// The list then has only sellers.
TEST_F(ListsByKeys, OfSellersFollowTheSellerType) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.Press({"Return", "Return", "Return"});
        by.UntilActive("CboSellerType");
        const int all = by.See([&] { return screen.CboSeller.Array()->RowCount(); });
        by.Press({"Down"});
        by.Until("fewer sellers", [&] { return screen.CboSeller.Array()->RowCount() < all; });
        EXPECT_GT(by.See([&] { return screen.CboSeller.Array()->RowCount(); }), 0);
    });
}

TEST_F(ListsByKeys, KeepANameThatIsNotInTheListInTheBox) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.Press({"Return", "Return"});
        by.UntilActive("CboCommodity");
        by.Type("zzz");
        by.Press({"Return", "1"});
        by.Until("the key after the refusal", [&] { return screen.CboCommodity.Text() == "zzz1"; });
        EXPECT_EQ(by.See([&] { return screen.ActiveControlName(); }), "CboCommodity");
    });
}

class ListsByMouse : public Station {};

TEST_F(ListsByMouse, ClicksOpenAListAndSelectARow) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        QWidget& box = screen.CboCommodity.Widget();
        by.Click(box, [&] { return QPoint(box.width() - 8, box.height() / 2); });
        by.Until("the open list", [&] { return DroppedRows(screen.CboCommodity) != nullptr; });
        QTableView& rows =
            by.See([&]() -> QTableView& { return *DroppedRows(screen.CboCommodity); });
        by.ClickAt(by.OnDisplay(*rows.viewport(), by.See([&] {
            return rows.visualRect(rows.model()->index(1, 0)).center();
        })));
        by.Until("the chosen name", [&] { return screen.CboCommodity.Text() == "Wheat Seed"; });
        EXPECT_FALSE(by.See([&] { return screen.CboCommodity.IsDroppedDown(); }));
        by.UntilActive("CboCommodity");
    });
}

TEST_F(ListsByMouse, ClickMovesTheFocusToABox) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.ClickInto(screen.TxtVehicleNo);
        by.Type("k5");
        by.ClickInto(screen.TxtDeduction);
        by.Type("1.7x");
        by.Until("only digits", [&] { return screen.TxtDeduction.Text() == "17"; });
        EXPECT_EQ(by.See([&] { return screen.TxtDeduction.BackColor(); }), 0xC0FFFFU);
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "k5");
        by.ClickInto(screen.TxtVehicleNo);
        // A box that has had the focus stays tinted.
        EXPECT_EQ(by.See([&] { return screen.TxtDeduction.BackColor(); }), 0xC0FFFFU);
    });
}

// The text of a box is selected when it gets the focus, also by the mouse.
TEST_F(ListsByMouse, ClickIntoTheDeductionSelectsItsText) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.ClickInto(screen.TxtDeduction);
        by.Type("17");
        by.ClickInto(screen.TxtVehicleNo);
        by.ClickInto(screen.TxtDeduction);
        by.Type("5");
        by.Until("the new deduction", [&] { return screen.TxtDeduction.Text() == "5"; });
    });
}

TEST_F(ListsByMouse, ClickOnACheckBoxStartsAChange) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        EXPECT_FALSE(by.See([&] { return screen.BtnSave.Enabled(); }));
        QWidget& box = screen.ChkFinalized.Widget();
        by.Click(box, [&] { return QPoint(12, box.height() / 2); });
        by.Until("the changed screen",
                 [&] { return screen.ChkFinalized.Value() == 1 && screen.BtnSave.Enabled(); });
        EXPECT_EQ(by.See([&] { return screen.ScreenMode; }), "ChangeMode");
    });
}

} // namespace
} // namespace Quillane::Testing
