// The keyboard table of the screen, with real keys.

#include "weighment/WeighmentFixture.h"

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::Question;
using Testing::ScreenDriver;

const Box NoOpening{.text = "Opening a weighment is not there yet in this version.",
                    .title = "Quillane",
                    .icon = BoxIcon::Information};
const Box NoRemoving{.text = "Removing a weighment is not there yet in this version.",
                     .title = "Quillane",
                     .icon = BoxIcon::Information};
const Box NoPartySearch{.text = "The party search is not there yet in this version.",
                        .title = "Quillane",
                        .icon = BoxIcon::Information};
const Box SaveQuestion = Question("Are you sure to save this Weighment?");
const Box ClearQuestion = Question("Are you sure to clear the entries?");
const Box NoParty{.text = "Please select a valid Party and try again",
                  .title = "Alert",
                  .icon = BoxIcon::Exclamation};

class FrmWeighmentKeys : public Testing::WeighmentScreenTest {
protected:
    std::string State() {
        return screen->ScreenMode + (screen->BtnSave.Enabled() ? ", can be saved" : "");
    }

    ScreenDriver Driver() { return ScreenDriver(*screen); }

    /// The screen as just loaded, or as a stored weighment, with the focus where it is wanted.
    void Begin(VisualControl& control, int mode = 1) {
        screen->NewWeighment();
        if (mode != 1)
            screen->SetButtonState(mode);
        control.SetFocus();
    }

    std::vector<VisualControl*> WhereEnterMovesOn() {
        return {&screen->TxtArrivalId,  &screen->DtpArrivalDate,
                &screen->CboCommodity,  &screen->CboSellerType,
                &screen->CboSeller,     &screen->CmdGrossWeight,
                &screen->CmdTareWeight, &screen->Grid,
                &screen->TxtDeduction,  &screen->TxtVehicleNo,
                &screen->TxtBuiltyNo,   &screen->TxtDriverName,
                &screen->ChkFinalized,  &screen->ChkManualWeight,
                &screen->TxtWeight,     &screen->TxtTareWeight};
    }

    std::vector<TDBCombo*> Lists() {
        return {&screen->CboCommodity, &screen->CboSeller, &screen->CboSellerType};
    }
};

TEST_F(FrmWeighmentKeys, EnterMovesOnLikeTabOnAllThatIsNoScreenButton) {
    screen->TxtWeight.SetText("500");
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        for (VisualControl* control : WhereEnterMovesOn()) {
            Begin(*control);
            screen->BtnSave.SetEnabled(true);
            const VisualControl* next = screen->NextInTabOrder(control);
            Driver().Press(enter);
            EXPECT_EQ(screen->ActiveControlName(), next->Name()) << "from " << control->Name();
        }
    }
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "") << "and presses no weight button";
    EXPECT_EQ(screen->TxtTareWeight.Text(), "");
    EXPECT_EQ(screen->ChkFinalized.Value(), 0);
    EXPECT_EQ(screen->ChkManualWeight.Value(), 0);
}

TEST_F(FrmWeighmentKeys, EnterIsSeenAgainAsTheTabThatItSends) {
    Begin(screen->TxtVehicleNo);
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(State(), "ChangeMode, can be saved") << "Tab is an ordinary key";
}

TEST_F(FrmWeighmentKeys, EnterOnATareButtonWithAReadingMovesOn) {
    Begin(screen->CmdTareWeight);
    screen->TxtWeight.SetText("4320");
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(screen->ActiveControlName(), "Grid");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "");
}

TEST_F(FrmWeighmentKeys, EnterInAnOpenListTakesTheNameAndMovesOnOnce) {
    Begin(screen->CboCommodity);
    Driver().Type("whe");
    ASSERT_TRUE(screen->CboCommodity.IsDroppedDown());
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(screen->CboCommodity.Text(), "Wheat");
    EXPECT_TRUE(screen->CboCommodity.Bookmark());
    EXPECT_EQ(screen->ActiveControlName(), "CboSellerType");
}

TEST_F(FrmWeighmentKeys, EnterInACellCommitsItAndMovesOn) {
    Begin(screen->Grid);
    Driver().Press(Qt::Key_Right).Press(Qt::Key_Right).Type("60").Press(Qt::Key_Return);
    EXPECT_EQ(screen->ActiveControlName(), "TxtDeduction");
    ASSERT_EQ(screen->BagRows.RowCount(), 1);
    EXPECT_EQ(screen->BagRows.Get(0, 2), "60");
}

TEST_F(FrmWeighmentKeys, EnterOnSavePressesItWithoutAQuestion) {
    Begin(screen->TxtVehicleNo, 2);
    screen->BtnSave.SetFocus();
    BoxAnswers answers;
    answers.Expect(NoParty);
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller") << "where the refusal leads";
}

TEST_F(FrmWeighmentKeys, EnterOnClearPressesItAndIsNoOrdinaryKey) {
    screen->BtnClear.SetFocus();
    screen->TxtVehicleNo.SetText("LEB-4217");
    Driver().Press(Qt::Key_Enter);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "");
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    EXPECT_EQ(State(), "NewMode");
}

TEST_F(FrmWeighmentKeys, CtrlLClearsWithoutAQuestionWhereNothingIsUnsaved) {
    for (const int mode : {1, 3}) {
        Begin(screen->TxtVehicleNo, mode);
        screen->TxtVehicleNo.SetText("LEB-4217");
        Driver().Press(Qt::CTRL | Qt::Key_L);
        EXPECT_EQ(screen->TxtVehicleNo.Text(), "") << mode;
        EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate") << mode;
        EXPECT_EQ(State(), "NewMode") << mode;
    }
}

TEST_F(FrmWeighmentKeys, CtrlLAsksWhereSomethingIsUnsaved) {
    Begin(screen->TxtVehicleNo, 2);
    screen->TxtVehicleNo.SetText("LEB-4217");
    {
        BoxAnswers answers;
        answers.Expect(ClearQuestion, BoxAnswer::No);
        Driver().Press(Qt::CTRL | Qt::Key_L);
    }
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
    EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
    EXPECT_TRUE(screen->BtnSave.Enabled());
    BoxAnswers answers;
    answers.Expect(ClearQuestion, BoxAnswer::Yes);
    Driver().Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "");
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    EXPECT_EQ(State(), "NewMode");
}

TEST_F(FrmWeighmentKeys, CtrlLClearsAlsoWhereTheButtonIsOff) {
    Begin(screen->TxtVehicleNo);
    screen->TxtVehicleNo.SetText("LEB-4217");
    screen->BtnClear.SetEnabled(false);
    Driver().Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "");
    EXPECT_TRUE(screen->BtnClear.Enabled());
}

TEST_F(FrmWeighmentKeys, CtrlLGoesToTheIdWhereTheDateIsClosed) {
    Begin(screen->TxtVehicleNo);
    screen->DtpArrivalDate.SetEnabled(false);
    RunInFile("ALTER TABLE PortSettings RENAME TO Elsewhere");
    BoxAnswers answers;
    answers.Expect(Critical("no such table: PortSettings", "Database"));
    Driver().Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->ActiveControlName(), "TxtArrivalId");
}

TEST_F(FrmWeighmentKeys, CtrlLReportsAFailureAndLeaves) {
    Begin(screen->TxtVehicleNo);
    screen->DtpArrivalDate.SetEnabled(false);
    screen->TxtArrivalId.SetEnabled(false);
    RunInFile("ALTER TABLE PortSettings RENAME TO Elsewhere");
    BoxAnswers answers;
    answers.Expect(Critical("no such table: PortSettings", "Database"));
    answers.Expect(Critical("Invalid procedure call or argument", "Quillane"));
    Driver().Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
}

TEST_F(FrmWeighmentKeys, CtrlSDoesNothingWhereNothingCanBeSaved) {
    for (const int mode : {1, 3}) {
        Begin(screen->TxtVehicleNo, mode);
        Driver().Press(Qt::CTRL | Qt::Key_S);
        EXPECT_EQ(State(), "NewMode") << "and no box";
    }
}

TEST_F(FrmWeighmentKeys, CtrlSAsksAndSavesOnYesAlone) {
    Begin(screen->TxtVehicleNo, 2);
    {
        BoxAnswers answers;
        answers.Expect(SaveQuestion, BoxAnswer::No);
        Driver().Press(Qt::CTRL | Qt::Key_S);
    }
    EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
    BoxAnswers answers;
    answers.Expect(SaveQuestion, BoxAnswer::Yes).Expect(NoParty);
    Driver().Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller") << "where the refusal leads";
}

TEST_F(FrmWeighmentKeys, CtrlSSeesTheCellThatIsStillBeingEdited) {
    FillIn();
    screen->Grid.SetFocus();
    Driver().Press(Qt::Key_Right).Press(Qt::Key_Right).Type("75");
    ASSERT_TRUE(screen->Grid.IsEditing());
    BoxAnswers answers;
    answers.Expect(SaveQuestion, BoxAnswer::No);
    Driver().Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(screen->BagRows.Get(0, 2), "75");
}

TEST_F(FrmWeighmentKeys, CtrlQClosesWhereCloseIsOn) {
    screen->BtnClose.SetEnabled(false);
    Driver().Press(Qt::CTRL | Qt::Key_Q);
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(State(), "NewMode");
    screen->BtnClose.SetEnabled(true);
    Driver().Press(Qt::CTRL | Qt::Key_Q);
    EXPECT_FALSE(screen->IsLoaded());
}

TEST_F(FrmWeighmentKeys, CtrlOOpensWhereOpenIsOn) {
    for (const int mode : {1, 3}) {
        Begin(screen->TxtVehicleNo, mode);
        BoxAnswers answers;
        answers.Expect(NoOpening);
        Driver().Press(Qt::CTRL | Qt::Key_O);
        EXPECT_EQ(State(), "NewMode");
    }
    Begin(screen->TxtVehicleNo, 2);
    Driver().Press(Qt::CTRL | Qt::Key_O);
}

TEST_F(FrmWeighmentKeys, CtrlShiftDeleteRemovesWhereRemoveIsOn) {
    Begin(screen->TxtVehicleNo, 3);
    {
        BoxAnswers answers;
        answers.Expect(NoRemoving);
        Driver().Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
    }
    EXPECT_EQ(State(), "NewMode");
    for (const int mode : {1, 2}) {
        Begin(screen->TxtVehicleNo, mode);
        Driver().Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
        EXPECT_EQ(screen->BtnSave.Enabled(), mode == 2);
    }
}

TEST_F(FrmWeighmentKeys, F1SearchesThePartiesInTheSellerListAlone) {
    for (VisualControl* control : WhereEnterMovesOn()) {
        if (control == &screen->CboSeller)
            continue;
        Begin(*control);
        Driver().Press(Qt::Key_F1);
        EXPECT_EQ(State(), "NewMode") << control->Name();
    }
    Begin(screen->CboSeller);
    BoxAnswers answers;
    answers.Expect(NoPartySearch);
    Driver().Press(Qt::Key_F1);
    EXPECT_EQ(screen->CboSeller.Text(), "");
    EXPECT_EQ(State(), "NewMode");
}

TEST_F(FrmWeighmentKeys, AnyOtherKeyTurnsTheScreenToChanged) {
    const QKeyCombination ordinary[] = {
        Qt::Key_L,
        Qt::Key_S,
        Qt::Key_Q,
        Qt::Key_O,
        Qt::Key_A,
        Qt::Key_5,
        Qt::Key_Space,
        Qt::Key_Home,
        Qt::Key_PageUp,
        Qt::Key_PageDown,
        Qt::Key_Tab,
        Qt::SHIFT | Qt::Key_Tab,
        Qt::Key_Backspace,
        Qt::Key_Escape,
        Qt::Key_Insert,
        Qt::Key_Delete,
        Qt::Key_Minus,
        Qt::CTRL | Qt::Key_A,
        Qt::CTRL | Qt::Key_C,
        Qt::CTRL | Qt::SHIFT | Qt::Key_L,
        Qt::CTRL | Qt::SHIFT | Qt::Key_S,
        Qt::CTRL | Qt::ALT | Qt::Key_Q,
        Qt::SHIFT | Qt::Key_O,
        Qt::CTRL | Qt::Key_Delete,
        Qt::SHIFT | Qt::Key_Delete,
    };
    for (const QKeyCombination key : ordinary) {
        for (const int mode : {1, 3}) {
            Begin(screen->TxtVehicleNo, mode);
            Driver().Press(key);
            EXPECT_EQ(State(), "ChangeMode, can be saved")
                << std::hex << key.toCombined() << " in mode " << mode;
        }
    }
}

TEST_F(FrmWeighmentKeys, SomeKeysLeaveTheScreenAsItIs) {
    std::vector<Qt::Key> quiet{Qt::Key_Alt,  Qt::Key_Shift, Qt::Key_Control, Qt::Key_End,
                               Qt::Key_Left, Qt::Key_Up,    Qt::Key_Right,   Qt::Key_Down};
    for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key)
        quiet.push_back(static_cast<Qt::Key>(key));
    for (const Qt::Key key : quiet) {
        for (const int mode : {1, 3}) {
            Begin(screen->TxtVehicleNo, mode);
            Driver().Press(key);
            EXPECT_EQ(State(), "NewMode") << std::hex << key << " in mode " << mode;
        }
    }
}

TEST_F(FrmWeighmentKeys, AnOrdinaryKeyLeavesTheWordWhereTheScreenCanBeSavedAlready) {
    Begin(screen->TxtVehicleNo, 2);
    Driver().Type("x");
    EXPECT_EQ(State(), "NewMode, can be saved");
}

TEST_F(FrmWeighmentKeys, AKeyOnAButtonTurnsTheScreenToChangedAllTheSame) {
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Home}) {
        Begin(screen->BtnClear, 3);
        Driver().Press(key);
        EXPECT_EQ(State(), "ChangeMode, can be saved");
    }
}

TEST_F(FrmWeighmentKeys, ACharacterAloneTurnsTheScreenToChangedUnlessOnAButton) {
    Begin(screen->TxtVehicleNo);
    Driver().Commit("x");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "x");
    Begin(screen->CmdGrossWeight);
    Driver().Commit("x");
    EXPECT_EQ(State(), "ChangeMode, can be saved") << "this is no button by its name";
    Begin(screen->BtnClear);
    Driver().Commit("x");
    EXPECT_EQ(State(), "NewMode");
}

TEST_F(FrmWeighmentKeys, ALetterInTheDeductionIsSwallowedAndChangesTheScreen) {
    Begin(screen->TxtDeduction, 3);
    screen->TxtDeduction.SetText("17");
    Driver().Press(Qt::Key_End).Type("x");
    EXPECT_EQ(screen->TxtDeduction.Text(), "17");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    Begin(screen->TxtDeduction, 3);
    Driver().Commit("x");
    EXPECT_EQ(screen->TxtDeduction.Text(), "");
    EXPECT_EQ(State(), "ChangeMode, can be saved") << "whether or not it was swallowed";
}

TEST_F(FrmWeighmentKeys, NumberBoxesTakeDigitsAndBackspaceAlone) {
    for (TextBox* box :
         {&screen->TxtDeduction, &screen->TxtShortage, &screen->TxtHeapNo,
          &screen->TxtInitialGrossWeight, &screen->TxtTareWeight, &screen->TxtGrossWeight}) {
        Begin(screen->TxtVehicleNo);
        box->SetVisible(true);
        box->SetEnabled(true);
        box->SetLocked(false);
        box->SetFocus();
        Driver().Type("a1.-2 e3").Press(Qt::Key_Backspace).Commit("x4.");
        EXPECT_EQ(screen->ActiveControlName(), box->Name());
        EXPECT_EQ(box->Text(), "124") << box->Name();
    }
}

TEST_F(FrmWeighmentKeys, OtherBoxesTakeAnything) {
    for (TextBox* box : {&screen->TxtVehicleNo, &screen->TxtBuiltyNo, &screen->TxtDriverName,
                         &screen->TxtKandaDeduction, &screen->TxtHeapName}) {
        Begin(screen->TxtArrivalId);
        box->SetVisible(true);
        box->SetFocus();
        Driver().Type("a1.5'");
        EXPECT_EQ(box->Text(), "a1.5'") << box->Name();
    }
}

TEST_F(FrmWeighmentKeys, BoxesTakeNoMoreThanTheirLimit) {
    const std::pair<TextBox*, std::size_t> limits[] = {
        {&screen->TxtDeduction, 4},   {&screen->TxtBuiltyNo, 10},  {&screen->TxtVehicleNo, 10},
        {&screen->TxtDriverName, 30}, {&screen->TxtArrivalId, 10},
    };
    for (const auto& [box, limit] : limits) {
        box->SetText("");
        box->SetFocus();
        Driver().Type(std::string(40, '0'));
        EXPECT_EQ(box->Text(), std::string(limit, '0')) << box->Name();
    }
}

TEST_F(FrmWeighmentKeys, AListPassesEachKeyOnOnce) {
    for (const bool open : {false, true}) {
        for (TDBCombo* list : Lists()) {
            Begin(*list, 2);
            if (open)
                Driver().Press(Qt::Key_F4);
            EXPECT_EQ(list->IsDroppedDown(), open) << list->Name();
            BoxAnswers answers;
            answers.Expect(ClearQuestion, BoxAnswer::No);
            Driver().Press(Qt::CTRL | Qt::Key_L);
            EXPECT_EQ(screen->ActiveControlName(), list->Name());
        }
    }
}

TEST_F(FrmWeighmentKeys, TheListOfACellPassesEachKeyOnOnce) {
    for (int column = 0; column < 2; ++column) {
        Begin(screen->Grid, 2);
        for (int moves = 0; moves < column; ++moves)
            Driver().Press(Qt::Key_Right);
        Driver().Press(Qt::Key_F4);
        BoxAnswers answers;
        answers.Expect(SaveQuestion, BoxAnswer::No);
        Driver().Press(Qt::CTRL | Qt::Key_S);
        EXPECT_EQ(screen->ActiveControlName(), "Grid");
    }
}

TEST_F(FrmWeighmentKeys, ALetterTypedInAListIsSeenOnce) {
    Begin(screen->CboCommodity);
    Driver().Type("w");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    EXPECT_EQ(screen->CboCommodity.Text(), "Wheat");
}

TEST_F(FrmWeighmentKeys, ClearByTheMouseAsksLikewise) {
    Begin(screen->TxtVehicleNo, 2);
    BoxAnswers answers;
    answers.Expect(ClearQuestion, BoxAnswer::Yes);
    Driver().Click(screen->BtnClear);
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    EXPECT_EQ(State(), "NewMode");
}

} // namespace
} // namespace Quillane
