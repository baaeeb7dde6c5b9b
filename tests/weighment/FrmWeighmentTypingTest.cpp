// The keys that are not in the keyboard table, and the characters that boxes accept.

#include "platform/runtime/Date.h"
#include "weighment/WeighmentKeys.h"

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::ClearQuestion;
using Testing::SaveQuestion;

using FrmWeighmentTyping = Testing::WeighmentKeys;

TEST_F(FrmWeighmentTyping, AnyOtherKeyStartsAChange) {
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

TEST_F(FrmWeighmentTyping, SomeKeysStartNoChange) {
    std::vector<Qt::Key> quiet{Qt::Key_Alt,  Qt::Key_Shift, Qt::Key_Control, Qt::Key_End,
                               Qt::Key_Left, Qt::Key_Up,    Qt::Key_Right,   Qt::Key_Down};
    for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key)
        quiet.push_back(static_cast<Qt::Key>(key));
    std::erase(quiet, Qt::Key_F9); // Print's, which has a test of its slip
    for (const Qt::Key key : quiet) {
        for (const int mode : {1, 3}) {
            Begin(screen->TxtVehicleNo, mode);
            Driver().Press(key);
            EXPECT_EQ(State(), "NewMode") << std::hex << key << " in mode " << mode;
        }
    }
}

TEST_F(FrmWeighmentTyping, KeyDoesNotSetTheModeOfAChangedScreen) {
    Begin(screen->TxtVehicleNo, 2);
    Driver().Type("x");
    EXPECT_EQ(State(), "NewMode, can be saved");
}

TEST_F(FrmWeighmentTyping, KeyOnAButtonStartsAChange) {
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Home}) {
        Begin(screen->BtnClear, 3);
        Driver().Press(key);
        EXPECT_EQ(State(), "ChangeMode, can be saved");
    }
}

TEST_F(FrmWeighmentTyping, CommittedCharacterStartsAChangeExceptOnAButton) {
    Begin(screen->TxtVehicleNo);
    Driver().Commit("x");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "x");
    Begin(screen->CmdGrossWeight);
    Driver().Commit("x");
    EXPECT_EQ(State(), "ChangeMode, can be saved") << "its name is not that of a button";
    Begin(screen->BtnClear);
    Driver().Commit("x");
    EXPECT_EQ(State(), "NewMode");
}

TEST_F(FrmWeighmentTyping, SwallowedLetterInTheDeductionStartsAChange) {
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

TEST_F(FrmWeighmentTyping, NumberBoxesAcceptOnlyDigitsAndBackspace) {
    for (TextBox* box :
         {&screen->TxtDeduction, &screen->TxtShortage, &screen->TxtHeapNo,
          &screen->TxtInitialGrossWeight, &screen->TxtTareWeight, &screen->TxtGrossWeight}) {
        Begin(screen->TxtVehicleNo);
        box->SetVisible(true);
        box->SetEnabled(true);
        box->SetLocked(false);
        box->SetFocus();
        Driver().Type("a1.-2 e3").Press(Qt::Key_Backspace).Commit("4").Commit("x5.");
        EXPECT_EQ(screen->ActiveControlName(), box->Name());
        EXPECT_EQ(box->Text(), "124") << box->Name();
    }
}

// The focus is then on the date, which gets these digits; the question of a save is the usual one.
TEST_F(FrmWeighmentTyping, DigitsTypedAfterASaveChangeTheDateAndTheScreen) {
    FillIn();
    const Box print{.text = "Do you want to print?",
                    .title = "Confirmation",
                    .icon = BoxIcon::Question,
                    .buttons = BoxButtons::YesNo,
                    .defaultButton = BoxAnswer::No};
    BoxAnswers answers;
    answers.Expect(SaveQuestion, BoxAnswer::Yes).Expect(print, BoxAnswer::No);
    Driver().Press(Qt::CTRL | Qt::Key_S);
    ASSERT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    ASSERT_EQ(State(), "NewMode");
    Driver().Type("1047");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    answers.Expect(SaveQuestion, BoxAnswer::No);
    Driver().Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(ShownDate(screen->DtpArrivalDate.Value()), "10/04/2026");
    EXPECT_EQ(std::ranges::count(screen->CurrentHints().notes, "The date is not today."), 1);
}

TEST_F(FrmWeighmentTyping, OtherBoxesAcceptAnyCharacter) {
    for (TextBox* box : {&screen->TxtVehicleNo, &screen->TxtBuiltyNo, &screen->TxtDriverName,
                         &screen->TxtKandaDeduction, &screen->TxtHeapName}) {
        Begin(screen->TxtArrivalId);
        box->SetVisible(true);
        box->SetFocus();
        Driver().Type("a1.5'");
        EXPECT_EQ(box->Text(), "a1.5'") << box->Name();
    }
}

TEST_F(FrmWeighmentTyping, BoxesAcceptNoMoreThanTheirLimit) {
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

TEST_F(FrmWeighmentTyping, ScreenReceivesEachKeyOfAListOnce) {
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

TEST_F(FrmWeighmentTyping, ScreenReceivesEachKeyOfACellsListOnce) {
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

TEST_F(FrmWeighmentTyping, ScreenReceivesALetterTypedInAListOnce) {
    Begin(screen->CboCommodity);
    Driver().Type("w");
    EXPECT_EQ(State(), "ChangeMode, can be saved");
    EXPECT_EQ(screen->CboCommodity.Text(), "Wheat");
}

TEST_F(FrmWeighmentTyping, ClearByTheMouseAsksToo) {
    Begin(screen->TxtVehicleNo, 2);
    BoxAnswers answers;
    answers.Expect(ClearQuestion, BoxAnswer::Yes);
    Driver().Click(screen->BtnClear);
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    EXPECT_EQ(State(), "NewMode");
}

} // namespace
} // namespace Quillane
