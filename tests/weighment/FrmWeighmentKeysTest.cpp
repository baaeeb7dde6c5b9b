// The keyboard table of the screen, with real keys: Enter and the shortcuts.

#include "weighment/WeighmentKeys.h"

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::ClearQuestion;
using Testing::Critical;
using Testing::SaveQuestion;
using Testing::VisitModal;

using FrmWeighmentKeys = Testing::WeighmentKeys;

const Box RemoveQuestion = Testing::Question("Are you sure to remove this arrival?");
const Box NoParty{.text = "Please select a valid Party and try again",
                  .title = "Alert",
                  .icon = BoxIcon::Exclamation};

TEST_F(FrmWeighmentKeys, EnterMovesOnLikeTabExceptOnScreenButtons) {
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
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "") << "no weight button is pressed";
    EXPECT_EQ(screen->TxtTareWeight.Text(), "");
    EXPECT_EQ(screen->ChkFinalized.Value(), 0);
    EXPECT_EQ(screen->ChkManualWeight.Value(), 0);
}

TEST_F(FrmWeighmentKeys, EnterWithAModifierMovesOnToo) {
    screen->TxtWeight.SetText("500");
    for (const Qt::KeyboardModifier held :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        for (VisualControl* control : WhereEnterMovesOn()) {
            Begin(*control);
            screen->BtnSave.SetEnabled(true);
            const VisualControl* next = screen->NextInTabOrder(control);
            Driver().Press(QKeyCombination(held, Qt::Key_Return));
            EXPECT_EQ(screen->ActiveControlName(), next->Name())
                << "from " << control->Name() << std::hex << " with " << held;
        }
    }
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "");
}

TEST_F(FrmWeighmentKeys, ScreenReceivesTheTabThatEnterSends) {
    Begin(screen->TxtVehicleNo);
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(State(), "ChangeMode, can be saved") << "Tab is an ordinary key";
}

TEST_F(FrmWeighmentKeys, EnterOnTheTareButtonMovesOnWithoutACapture) {
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
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller") << "moved by the refusal";
}

TEST_F(FrmWeighmentKeys, EnterOnClearPressesItAndStartsNoChange) {
    screen->BtnClear.SetFocus();
    screen->TxtVehicleNo.SetText("LEB-4217");
    Driver().Press(Qt::Key_Enter);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "");
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    EXPECT_EQ(State(), "NewMode");
}

TEST_F(FrmWeighmentKeys, CtrlLClearsWithoutAQuestionIfNothingIsUnsaved) {
    for (const int mode : {1, 3}) {
        Begin(screen->TxtVehicleNo, mode);
        screen->TxtVehicleNo.SetText("LEB-4217");
        Driver().Press(Qt::CTRL | Qt::Key_L);
        EXPECT_EQ(screen->TxtVehicleNo.Text(), "") << mode;
        EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate") << mode;
        EXPECT_EQ(State(), "NewMode") << mode;
    }
}

TEST_F(FrmWeighmentKeys, CtrlLAsksIfSomethingIsUnsaved) {
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

TEST_F(FrmWeighmentKeys, CtrlLClearsAlsoIfTheButtonIsDisabled) {
    Begin(screen->TxtVehicleNo);
    screen->TxtVehicleNo.SetText("LEB-4217");
    screen->BtnClear.SetEnabled(false);
    Driver().Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "");
    EXPECT_TRUE(screen->BtnClear.Enabled());
}

TEST_F(FrmWeighmentKeys, CtrlLMovesToTheIdIfTheDateIsDisabled) {
    Begin(screen->TxtVehicleNo);
    screen->DtpArrivalDate.SetEnabled(false);
    database.Rename("PortSettings", "Elsewhere");
    BoxAnswers answers;
    answers.Expect(Critical(EngineWords("no such table: PortSettings"), "Database"));
    Driver().Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->ActiveControlName(), "TxtArrivalId");
}

TEST_F(FrmWeighmentKeys, CtrlLReportsAFailure) {
    Begin(screen->TxtVehicleNo);
    screen->DtpArrivalDate.SetEnabled(false);
    screen->TxtArrivalId.SetEnabled(false);
    database.Rename("PortSettings", "Elsewhere");
    BoxAnswers answers;
    answers.Expect(Critical(EngineWords("no such table: PortSettings"), "Database"));
    answers.Expect(Critical("Invalid procedure call or argument", "Quillane"));
    Driver().Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
}

TEST_F(FrmWeighmentKeys, CtrlSDoesNothingIfSaveIsDisabled) {
    for (const int mode : {1, 3}) {
        Begin(screen->TxtVehicleNo, mode);
        Driver().Press(Qt::CTRL | Qt::Key_S);
        EXPECT_EQ(State(), "NewMode") << "and no box is shown";
    }
}

TEST_F(FrmWeighmentKeys, CtrlSAsksAndSavesOnlyOnYes) {
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
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller") << "moved by the refusal";
}

TEST_F(FrmWeighmentKeys, CtrlSStoresTheCellBeingEdited) {
    FillIn();
    screen->Grid.SetFocus();
    Driver().Press(Qt::Key_Right).Press(Qt::Key_Right).Type("75");
    ASSERT_TRUE(screen->Grid.IsEditing());
    BoxAnswers answers;
    answers.Expect(SaveQuestion, BoxAnswer::No);
    Driver().Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(screen->BagRows.Get(0, 2), "75");
}

TEST_F(FrmWeighmentKeys, CtrlQClosesIfCloseIsEnabled) {
    screen->BtnClose.SetEnabled(false);
    Driver().Press(Qt::CTRL | Qt::Key_Q);
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(State(), "NewMode");
    screen->BtnClose.SetEnabled(true);
    Driver().Press(Qt::CTRL | Qt::Key_Q);
    EXPECT_FALSE(screen->IsLoaded());
}

TEST_F(FrmWeighmentKeys, CtrlOOpensTheSearchIfOpenIsEnabled) {
    for (const int mode : {1, 3}) {
        Begin(screen->TxtVehicleNo, mode);
        VisitModal search([](Screen& modal) {
            EXPECT_EQ(modal.Name(), "SchArrivals");
            Testing::ScreenDriver(modal).Press(Qt::Key_Escape);
        });
        Driver().Press(Qt::CTRL | Qt::Key_O);
        EXPECT_EQ(State(), "NewMode");
        EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
    }
    Begin(screen->TxtVehicleNo, 2);
    Driver().Press(Qt::CTRL | Qt::Key_O);
    EXPECT_TRUE(screen->isActiveWindow());
}

TEST_F(FrmWeighmentKeys, CtrlShiftDeleteAsksToRemoveIfRemoveIsEnabled) {
    Begin(screen->TxtVehicleNo, 3);
    {
        BoxAnswers answers;
        answers.Expect(RemoveQuestion, BoxAnswer::No);
        Driver().Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
    }
    EXPECT_EQ(State(), "NewMode");
    for (const int mode : {1, 2}) {
        Begin(screen->TxtVehicleNo, mode);
        Driver().Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
        EXPECT_EQ(screen->BtnSave.Enabled(), mode == 2);
    }
}

TEST_F(FrmWeighmentKeys, F1SearchesPartiesOnlyInTheSellerList) {
    for (VisualControl* control : WhereEnterMovesOn()) {
        if (control == &screen->CboSeller)
            continue;
        Begin(*control);
        Driver().Press(Qt::Key_F1);
        EXPECT_EQ(State(), "NewMode") << control->Name();
    }
    Begin(screen->CboSeller);
    VisitModal search([](Screen& modal) {
        EXPECT_EQ(modal.Name(), "SchParty");
        modal.Unload();
    });
    Driver().Press(Qt::Key_F1);
    EXPECT_EQ(screen->CboSeller.Text(), "");
    EXPECT_EQ(State(), "NewMode");
}

TEST_F(FrmWeighmentKeys, F1WithAModifierSearchesPartiesToo) {
    for (const Qt::KeyboardModifier held : {Qt::ShiftModifier, Qt::ControlModifier}) {
        Begin(screen->CboSeller);
        VisitModal search([](Screen& modal) {
            EXPECT_EQ(modal.Name(), "SchParty");
            modal.Unload();
        });
        Driver().Press(QKeyCombination(held, Qt::Key_F1));
        EXPECT_EQ(State(), "NewMode");
    }
}

} // namespace
} // namespace Quillane
