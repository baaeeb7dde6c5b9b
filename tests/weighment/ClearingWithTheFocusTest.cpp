// The screen cleared while a weight box or Finalized has the focus: the result is the same as with
// the focus on any other control.

#include "platform/runtime/Failure.h"
#include "weighment/OpeningFixture.h"
#include "weighment/StateWatch.h"

namespace Quillane {
namespace {

using namespace Testing;

class Clearing : public OpeningTest {
protected:
    /// An opened arrival, finalized, with the focus on the control of this name.
    void OpenWithFocusOn(const char* name) {
        Open(1040);
        screen->ChkFinalized.SetValue(1);
        ScreenDriver(*screen).Named(name).SetFocus();
        ASSERT_EQ(screen->ActiveControlName(), name);
    }
    Lines Cleared() {
        Trace trace(*screen, line);
        StateWatch watch(*screen, trace);
        screen->ClearControls();
        return trace.Take();
    }
    std::string Weights() {
        return screen->TxtInitialGrossWeight.Text() + " / " + screen->TxtTareWeight.Text() + " / " +
               screen->TxtGrossWeight.Text() + " / " + screen->TxtDeduction.Text() + " / " +
               screen->TxtNetWeight.Text() + " / " + screen->TxtMoundKgs.Text();
    }
};

class ClearingWithTheFocus : public Clearing, public testing::WithParamInterface<const char*> {};

TEST_P(ClearingWithTheFocus, LeavesAnEmptyNewScreen) {
    OpenWithFocusOn("DtpArrivalDate");
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_L);
    const Lines empty = Screenful();
    OpenWithFocusOn(GetParam());
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(Screenful(), empty);
    EXPECT_EQ(screen->ScreenMode, "NewMode");
    EXPECT_EQ(Weights(), " /  /  /  / 0 / 0-0");
    EXPECT_EQ(On(), "Open Clear ");
    EXPECT_EQ(screen->TxtInitialGrossWeight.BackColor(), White);
    EXPECT_EQ(screen->TxtTareWeight.BackColor(), White);
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
}

TEST_P(ClearingWithTheFocus, RunsEveryHandlerInTheSameOrder) {
    OpenWithFocusOn("DtpArrivalDate");
    const Lines elsewhere = Cleared();
    OpenWithFocusOn(GetParam());
    EXPECT_EQ(Cleared(), elsewhere);
}

TEST_P(ClearingWithTheFocus, NextArrivalHasItsOwnFigures) {
    OpenWithFocusOn(GetParam());
    OpenBySearch(1031);
    EXPECT_EQ(Weights(), "12540 / 4320 / 8220 / 17 / 8203 / 205-3");
    EXPECT_EQ(On(), "Open Print Remove Clear ");
    EXPECT_EQ(screen->ScreenMode, "NewMode");
    EXPECT_TRUE(screen->IsOpened);
}

TEST_P(ClearingWithTheFocus, ClearedScreenCannotBeSavedWithoutAWeighing) {
    OpenWithFocusOn(GetParam());
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_L);
    screen->CboSeller.SetText("Chaudhry Grain Traders-Okara");
    screen->CboCommodity.SetText("Wheat");
    screen->TxtVehicleNo.SetText("LEB-4217");
    SetBagLines({{"Jute New", "100 Kg", "60"}});
    BoxAnswers boxes;
    boxes.Expect(Alert("Gross weight cannot be empty or zero", BoxIcon::Exclamation));
    boxes.Expect(Critical("Invalid procedure call or argument", "Quillane"));
    screen->BtnSave_Click();
    EXPECT_EQ(StoredCell("SELECT max(ArrivalID) FROM Arrivals"), "1042");
}

INSTANTIATE_TEST_SUITE_P(On, ClearingWithTheFocus,
                         testing::Values("TxtInitialGrossWeight", "TxtTareWeight", "TxtGrossWeight",
                                         "ChkFinalized", "TxtDeduction"),
                         [](const auto& name) { return std::string(name.param); });

TEST_F(Clearing, AfterASaveFromTheTareBoxLeavesAnEmptyScreen) {
    FillIn();
    screen->TxtTareWeight.SetFocus();
    BoxAnswers boxes;
    boxes.Expect(Question("Are you sure to save this Weighment?"), BoxAnswer::Yes);
    boxes.Expect({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                  BoxAnswer::No},
                 BoxAnswer::No);
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1044");
    EXPECT_EQ(Weights(), " /  /  /  / 0 / 0-0");
    EXPECT_TRUE(screen->TxtGrossWeight.Enabled());
    EXPECT_EQ(screen->ScreenMode, "NewMode");
}

TEST_F(Clearing, FailedClearingRestoresTheFocusTests) {
    OpenWithFocusOn("TxtTareWeight");
    screen->TxtDeduction.Change = [] { Fail(FailureNumber::InvalidCall); };
    {
        BoxAnswers boxes;
        boxes.Expect(Critical("Invalid procedure call or argument", "Quillane"));
        screen->ClearControls();
    }
    screen->TxtInitialGrossWeight.SetText("12540");
    screen->TxtTareWeight.SetText("4320");
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "8220");
}

} // namespace
} // namespace Quillane
