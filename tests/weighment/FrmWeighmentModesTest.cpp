// The states of the screen, the tab order, the tint of visited boxes.

#include "weighment/StateWatch.h"

#include <QCoreApplication>
#include <QDateEdit>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>
#include <set>

namespace Quillane {
namespace {

using Testing::Joined;
using Testing::Lines;
using Testing::ScreenDriver;
using Testing::StateWatch;
using Testing::Trace;

constexpr Colour Tint = 0xC0FFFF;

class FrmWeighmentModes : public Testing::WeighmentScreenTest {
protected:
    std::vector<JeweledButton*> ModeButtons() {
        return {&screen->BtnOpen, &screen->BtnPrint, &screen->BtnRemove, &screen->BtnSave,
                &screen->BtnClear};
    }

    /// The enabled buttons, without BtnClose.
    std::string On() {
        std::string names;
        for (const JeweledButton* button : ModeButtons())
            if (button->Enabled())
                names += button->Name().substr(3) + " ";
        return names;
    }

    /// The buttons after a mode was set, whatever their state was before.
    std::string OnIn(int mode) {
        std::string on[2];
        for (const bool before : {true, false}) {
            for (JeweledButton* button : ModeButtons())
                button->SetEnabled(before);
            screen->SetButtonState(mode);
            on[before] = On();
        }
        EXPECT_EQ(on[0], on[1]) << "mode " << mode << " sets each button";
        return on[0];
    }

    Lines Setting(int mode) {
        Trace trace(*screen, line);
        StateWatch watch(*screen, trace);
        screen->SetButtonState(mode);
        return trace.Take();
    }

    std::string State() {
        return screen->ScreenMode + (screen->BtnSave.Enabled() ? ", can be saved" : "");
    }

    /// A press on the box itself: next to its caption, a wide box does not react.
    void ClickOn(CheckBox& box) {
        ScreenDriver(*screen).Click(box.Widget(), QPoint(8, box.Widget().height() / 2));
    }

    /// The controls that Tab (or Backtab) visits until it returns to the first one.
    std::vector<std::string> Walk(Qt::Key key) {
        ScreenDriver driver(*screen);
        const std::string first = screen->ActiveControlName();
        std::vector<std::string> walk;
        do {
            walk.push_back(screen->ActiveControlName());
            driver.Press(key);
        } while (screen->ActiveControlName() != first && walk.size() < 50);
        return walk;
    }
};

TEST_F(FrmWeighmentModes, EachModeSetsTheButtons) {
    EXPECT_EQ(OnIn(1), "Open Clear ");
    EXPECT_EQ(OnIn(2), "Save Clear ");
    EXPECT_EQ(OnIn(3), "Open Print Remove Clear ");
    EXPECT_EQ(OnIn(5), "Open Print Clear ");
}

TEST_F(FrmWeighmentModes, UnknownModesDoNothing) {
    screen->SetButtonState(2);
    for (const int mode : {0, 4, 6, -1, 100})
        EXPECT_EQ(Setting(mode), Lines{}) << mode;
}

TEST_F(FrmWeighmentModes, NoModeChangesTheCloseButton) {
    for (const bool enabled : {false, true}) {
        screen->BtnClose.SetEnabled(enabled);
        for (const int mode : {1, 2, 3, 5}) {
            screen->SetButtonState(mode);
            EXPECT_EQ(screen->BtnClose.Enabled(), enabled) << mode;
        }
    }
}

TEST_F(FrmWeighmentModes, ChangeModeSetsOnlyTheButtons) {
    EXPECT_EQ(Setting(2), (Lines{"BtnOpen off", "BtnSave on"}));
    EXPECT_EQ(Setting(5), (Lines{"BtnOpen on", "BtnPrint on", "BtnSave off"}));
}

TEST_F(FrmWeighmentModes, StoredModeAppliesTheWeighRuleAndMovesToTheDate) {
    FillIn();
    screen->TxtVehicleNo.SetFocus();
    EXPECT_EQ(Setting(3), (Lines{"CmdGrossWeight off", "CmdTareWeight off", "BtnOpen on",
                                 "BtnPrint on", "BtnRemove on", "BtnSave off", "TxtArrivalId off",
                                 "TxtArrivalId 0xE0E0E0", "Validate TxtVehicleNo",
                                 "LostFocus TxtVehicleNo", "GotFocus DtpArrivalDate"}));
    EXPECT_FALSE(screen->IsOpened) << "only the loading sets it";
    EXPECT_EQ(screen->ScreenMode, "NewMode") << "the word does not change";
}

TEST_F(FrmWeighmentModes, StoredModeLeavesTheIdWithoutValidation) {
    ASSERT_EQ(screen->ActiveControlName(), "TxtArrivalId");
    EXPECT_EQ(Setting(3),
              (Lines{"BtnPrint on", "BtnRemove on", "LostFocus TxtArrivalId",
                     "GotFocus DtpArrivalDate", "TxtArrivalId off", "TxtArrivalId 0xE0E0E0"}));
}

TEST_F(FrmWeighmentModes, NewModeEnablesTheDisabledControls) {
    for (VisualControl* closed : std::initializer_list<VisualControl*>{
             &screen->ChkManualWeight, &screen->TxtInitialGrossWeight, &screen->TxtTareWeight,
             &screen->CboSeller, &screen->TxtArrivalId, &screen->CmdGrossWeight,
             &screen->CmdTareWeight, &screen->DtpArrivalDate})
        closed->SetEnabled(false);
    screen->BagRows.ReDim(0, 2);
    screen->IsOpened = true;
    screen->ScreenMode = "ChangeMode";
    Lines states;
    for (const std::string& each : Setting(1))
        if (each.ends_with(" on") || each.ends_with(" off") || each.starts_with("Line"))
            states.push_back(each);
    EXPECT_EQ(states, (Lines{"ChkManualWeight on", "TxtInitialGrossWeight on", "TxtTareWeight on",
                             "TxtArrivalId on", "DtpArrivalDate on", "Line opens, timer 200 ms",
                             "CboSeller on", "CmdGrossWeight on", "CmdTareWeight on"}));
    EXPECT_EQ(screen->BagRows.RowCount(), 0);
    EXPECT_EQ(screen->BagRows.ColumnCount(), 3);
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->ScreenMode, "ChangeMode") << "the word does not change";
    EXPECT_EQ(screen->TxtInitialGrossWeight.BackColor(), White);
    EXPECT_EQ(screen->TxtTareWeight.BackColor(), White);
}

TEST_F(FrmWeighmentModes, LoadWithATareIsWeighedAgainOnlyByManualWeight) {
    const std::pair<const char*, bool> tares[] = {{"", true},     {"0", true},     {"-5", true},
                                                  {"none", true}, {"4320", false}, {"0.5", false}};
    for (const auto& [tare, weighable] : tares) {
        screen->TxtTareWeight.SetText(tare);
        for (const bool before : {true, false}) {
            screen->CmdGrossWeight.SetEnabled(before);
            screen->CmdTareWeight.SetEnabled(before);
            screen->SetButtonState(3);
            EXPECT_EQ(screen->CmdGrossWeight.Enabled(), weighable) << tare;
            EXPECT_EQ(screen->CmdTareWeight.Enabled(), weighable) << tare;
            screen->ChkManualWeight.SetValue(1);
            screen->CmdGrossWeight.SetEnabled(before);
            screen->CmdTareWeight.SetEnabled(before);
            screen->SetButtonState(3);
            EXPECT_EQ(screen->CmdGrossWeight.Enabled(), before) << tare << " by hand";
            EXPECT_EQ(screen->CmdTareWeight.Enabled(), before) << tare << " by hand";
            screen->ChkManualWeight.SetValue(0);
        }
    }
}

TEST_F(FrmWeighmentModes, DateChangedByTheOperatorStartsAChange) {
    screen->DtpArrivalDate.SetFocus();
    auto& edit = dynamic_cast<QDateEdit&>(screen->DtpArrivalDate.Widget());
    ASSERT_TRUE(Testing::WaitFor([&] { return edit.hasFocus(); }));
    const auto turnWheel = [&] {
        QWheelEvent turn(QPointF(5, 5), edit.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&edit, &turn);
    };
    screen->DtpArrivalDate.SetValue(AddDays(Today(), -5));
    EXPECT_EQ(State(), "NewMode") << "a date from code is not a change";
    turnWheel();
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    screen->SetButtonState(3);
    turnWheel();
    EXPECT_EQ(State(), "ChangeMode") << "the only handler that uses the word";
    screen->ScreenMode = "NewMode";
    turnWheel();
    EXPECT_EQ(State(), "ChangeMode, can be saved");
}

TEST_F(FrmWeighmentModes, ClickOnFinalizedStartsAChange) {
    ClickOn(screen->ChkFinalized);
    EXPECT_EQ(screen->ChkFinalized.Value(), 1);
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    screen->SetButtonState(3);
    ClickOn(screen->ChkFinalized);
    EXPECT_EQ(screen->ChkFinalized.Value(), 0);
    EXPECT_EQ(State(), "ChangeMode, can be saved");
}

TEST_F(FrmWeighmentModes, FinalizedSetFromCodeStartsNoChange) {
    screen->ChkFinalized.SetValue(1);
    EXPECT_EQ(State(), "NewMode");
    screen->ChkFinalized.SetFocus();
    screen->ChkFinalized.SetValue(0);
    EXPECT_EQ(State(), "ChangeMode, can be saved");
}

TEST_F(FrmWeighmentModes, FinalizedDoesNotSetTheModeOfAChangedScreen) {
    screen->SetButtonState(2);
    ClickOn(screen->ChkFinalized);
    EXPECT_EQ(screen->ChkFinalized.Value(), 1);
    EXPECT_EQ(State(), "NewMode, can be saved") << "the word does not change either";
}

TEST_F(FrmWeighmentModes, CaptureByTheMouseKeepsTheMode) {
    screen->TxtWeight.SetText("12540");
    ScreenDriver(*screen).Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "12540");
    EXPECT_EQ(State(), "NewMode");
}

const std::vector<std::string> WholeWalk{"TxtArrivalId",
                                         "DtpArrivalDate",
                                         "CboCommodity",
                                         "CboSellerType",
                                         "CboSeller",
                                         "CmdGrossWeight",
                                         "CmdTareWeight",
                                         "Grid",
                                         "TxtDeduction",
                                         "TxtVehicleNo",
                                         "TxtBuiltyNo",
                                         "TxtDriverName",
                                         "ChkFinalized",
                                         "BtnSave",
                                         "BtnClear",
                                         "BtnClose",
                                         "ChkManualWeight",
                                         "TxtWeight",
                                         "TxtInitialGrossWeight",
                                         "TxtTareWeight",
                                         "TxtGrossWeight",
                                         "TxtMoundKgs",
                                         "TxtNetWeight"};

TEST_F(FrmWeighmentModes, TabFollowsTheTabOrder) {
    EXPECT_EQ(Walk(Qt::Key_Tab), WholeWalk) << "the first Tab has begun a change";
}

TEST_F(FrmWeighmentModes, BacktabFollowsTheTabOrderBackwards) {
    std::vector<std::string> back(WholeWalk.rbegin(), WholeWalk.rend() - 1);
    back.insert(back.begin(), "TxtArrivalId");
    EXPECT_EQ(Walk(Qt::Key_Backtab), back);
}

TEST_F(FrmWeighmentModes, TabSkipsTheIdOfAStoredScreen) {
    screen->SetButtonState(3);
    screen->BtnSave.SetEnabled(true); // or the first Tab would turn the screen to changed
    std::vector<std::string> walk(WholeWalk.begin() + 1, WholeWalk.end());
    const auto close = std::ranges::find(walk, "BtnClose");
    walk.insert(std::next(close), "BtnPrint");
    walk.insert(std::ranges::find(walk, "BtnClose"), {"BtnOpen", "BtnRemove"});
    EXPECT_EQ(Walk(Qt::Key_Tab), walk);
}

class FrmWeighmentForGate : public FrmWeighmentModes {
protected:
    void SetUp() override {
        SignInAsGate();
        ShowScreen();
    }
};

TEST_F(FrmWeighmentForGate, TabSkipsHiddenControls) {
    std::vector<std::string> walk = WholeWalk;
    std::erase(walk, "ChkFinalized");
    std::erase(walk, "ChkManualWeight");
    EXPECT_EQ(Walk(Qt::Key_Tab), walk);
}

TEST_F(FrmWeighmentForGate, ReadingCannotBeTyped) {
    screen->TxtWeight.SetFocus();
    ScreenDriver(*screen).Type("500");
    EXPECT_EQ(screen->TxtWeight.Text(), "");
    EXPECT_TRUE(screen->TxtWeight.Locked());
}

TEST_F(FrmWeighmentForGate, HiddenFinalizedStartsNoChange) {
    screen->ChkFinalized.SetValue(1);
    EXPECT_EQ(State(), "NewMode");
}

class MarkedText : public FrmWeighmentModes {
protected:
    void SetUp() override {
        FrmWeighmentModes::SetUp();
        for (VisualControl* hidden : std::initializer_list<VisualControl*>{
                 &screen->TxtHeapName, &screen->TxtHeapNo, &screen->TxtShortage,
                 &screen->TxtKandaDeduction, &screen->TxtBagsWeight})
            hidden->SetVisible(true);
    }
    static QLineEdit& EditOf(TextBox& box) { return dynamic_cast<QLineEdit&>(box.Widget()); }
};

TEST_F(MarkedText, EightBoxesAreMarkedWhenTheyGetTheFocus) {
    screen->DtpArrivalDate.SetFocus();
    const std::set<std::string> marked{"TxtArrivalId",          "TxtDeduction", "TxtGrossWeight",
                                       "TxtHeapName",           "TxtHeapNo",    "TxtTareWeight",
                                       "TxtInitialGrossWeight", "TxtShortage"};
    for (Control* control : screen->Controls()) {
        auto* box = dynamic_cast<TextBox*>(control);
        if (!box || !box->CanTakeFocus())
            continue;
        const auto change = std::exchange(box->Change, {});
        box->SetText("375");
        EditOf(*box).deselect();
        box->SetFocus();
        EXPECT_EQ(box->BackColor() == Tint, marked.contains(box->Name())) << box->Name();
        EXPECT_EQ(box->SelectedText() == "375", marked.contains(box->Name())) << box->Name();
        box->Change = change;
    }
}

TEST_F(MarkedText, TintStaysAndTextIsSelectedEachTime) {
    TextBox& box = screen->TxtDeduction;
    box.SetText("17");
    box.SetFocus();
    screen->TxtVehicleNo.SetFocus();
    EXPECT_EQ(box.BackColor(), Tint) << "no move of the focus removes it";
    EditOf(box).deselect();
    box.SetBackColor(White);
    ScreenDriver(*screen).Press(Qt::Key_Backtab);
    EXPECT_EQ(box.BackColor(), Tint);
    EXPECT_EQ(box.SelectedText(), "17");
}

TEST_F(MarkedText, OnlyModesRemoveTheTint) {
    screen->TxtTareWeight.SetFocus();
    screen->TxtInitialGrossWeight.SetFocus();
    screen->SetButtonState(2);
    EXPECT_EQ(screen->TxtTareWeight.BackColor(), Tint);
    screen->SetButtonState(3);
    EXPECT_EQ(screen->TxtTareWeight.BackColor(), Tint);
    EXPECT_EQ(screen->TxtArrivalId.BackColor(), ClosedGrey);
    screen->SetButtonState(1);
    EXPECT_EQ(screen->TxtTareWeight.BackColor(), White);
    EXPECT_EQ(screen->TxtInitialGrossWeight.BackColor(), White);
    EXPECT_EQ(screen->TxtArrivalId.BackColor(), White);
}

} // namespace
} // namespace Quillane
