// The hints on the screen itself, with real keys: what is pressed gets its answer, and the panel
// changes nothing.

#include "weighment/WeighmentKeys.h"

#include "platform/forms/controls/HintPanel.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <stdexcept>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Lines;
using Testing::Trace;

class HintPanelOfWeighment : public Testing::WeighmentKeys {
protected:
    std::string Answer() { return screen->CurrentHints().answer; }
    std::string Missing() { return screen->CurrentHints().missing; }
    std::vector<std::string> Notes() { return screen->CurrentHints().notes; }
    HintPanel& Panel() {
        for (QWidget* widget : screen->findChildren<QWidget*>())
            if (auto* panel = dynamic_cast<HintPanel*>(widget))
                return *panel;
        throw std::runtime_error("no panel");
    }
};

TEST_F(HintPanelOfWeighment, NamesWhatIsMissingAndShrinksAsItIsEntered) {
    EXPECT_EQ(Missing(), "Still needed: Seller, Commodity, Vehicle No, Gross Weight, a bag line.");
    screen->TxtVehicleNo.SetText("LEA-4521");
    EXPECT_EQ(Missing(), "Still needed: Seller, Commodity, Gross Weight, a bag line.");
    FillIn();
    EXPECT_EQ(Missing(), "Ready to save.");
}

TEST_F(HintPanelOfWeighment, ExplainsAShortcutThatDidNothing) {
    Driver().Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(Answer(), "Nothing has been changed yet, so there is nothing to save.");
    Begin(screen->TxtVehicleNo);
    Driver().Type("L");
    EXPECT_EQ(Answer(), "");
    Driver().Press(Qt::CTRL | Qt::Key_O);
    EXPECT_EQ(Answer(), "Save or clear first.");
    Driver().Press(Qt::Key_Shift);
    EXPECT_EQ(Answer(), "Save or clear first.") << "a modifier by itself is no key";
    Driver().Press(Qt::Key_F9);
    EXPECT_EQ(Answer(), "Save or clear first.");
    Driver().Type("E");
    EXPECT_EQ(Answer(), "");
}

TEST_F(HintPanelOfWeighment, ExplainsACharacterThatWasNotTaken) {
    Begin(screen->TxtDeduction);
    Driver().Type("x");
    EXPECT_EQ(Answer(), "Whole kilograms only.");
    Driver().Type("1");
    EXPECT_EQ(Answer(), "");
    Driver().Press(Qt::Key_Backspace);
    EXPECT_EQ(Answer(), "");
    Driver().Type("12345");
    EXPECT_EQ(Answer(), "No more than 4 characters.");
    Begin(screen->TxtNetWeight);
    Driver().Type("5");
    EXPECT_EQ(Answer(), "This figure is computed, it cannot be typed.");
}

TEST_F(HintPanelOfWeighment, ExplainsWhyTheFocusStaysInTheSellersList) {
    Begin(screen->CboSeller);
    Driver().Type("Qqq").Press(Qt::Key_Return);
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller");
    EXPECT_EQ(Answer(), "Not in the list: F4 opens it, F1 searches.");
}

TEST_F(HintPanelOfWeighment, ExplainsACellThatWasNotTaken) {
    Begin(screen->Grid);
    Driver().Type("Qqq").Press(Qt::Key_Tab);
    EXPECT_EQ(Answer(), "\"Qqq\" is not in the list of the cell: F4 opens it.");
    Begin(screen->Grid);
    Driver().Press(Qt::Key_End).Type("x");
    EXPECT_EQ(Answer(), "Only a number can be typed here.");
}

TEST_F(HintPanelOfWeighment, ReportsTheLoadThatWasSaved) {
    FillIn();
    const std::string id = screen->TxtArrivalId.Text();
    BoxAnswers answers;
    answers.Expect({.text = "Do you want to print?",
                    .title = "Confirmation",
                    .icon = BoxIcon::Question,
                    .buttons = BoxButtons::YesNo,
                    .defaultButton = BoxAnswer::No},
                   BoxAnswer::No);
    screen->BtnSave_Click();
    EXPECT_EQ(Notes(), std::vector<std::string>{"Load " + id + " is saved."});
}

TEST_F(HintPanelOfWeighment, NotesANumberThatJumps) {
    Begin(screen->TxtArrivalId);
    const std::string proposed = screen->TxtArrivalId.Text();
    Driver().Press(Qt::CTRL | Qt::Key_A).Type("30000").Press(Qt::Key_Tab);
    EXPECT_EQ(Notes(),
              std::vector<std::string>{"The number jumps from " + proposed + " to 30000."});
}

TEST_F(HintPanelOfWeighment, RunsNoStatementAndWritesNothing) {
    FillIn();
    Trace trace(*screen, line);
    for (int look = 0; look < 3; ++look)
        Panel().Refresh();
    EXPECT_FALSE(Panel().Lines().empty());
    EXPECT_EQ(trace.Take(), Lines{});
}

TEST_F(HintPanelOfWeighment, IsNoControlOfTheScreen) {
    EXPECT_EQ(Panel().focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(screen->ControlOf(&Panel()), nullptr);
    EXPECT_EQ(Panel().minimumSizeHint(), QSize(-1, -1));
    EXPECT_EQ(Panel().sizeHint(), QSize(0, 0));
}

TEST_F(HintPanelOfWeighment, FollowsTheScreenWithoutBeingAsked) {
    screen->TxtVehicleNo.SetText("LEA-4521");
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    const auto& lines = Panel().Lines();
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const HintPanel::Line& shown) {
        return shown.text == "Still needed: Seller, Commodity, Gross Weight, a bag line.";
    }));
}

} // namespace
} // namespace Quillane
