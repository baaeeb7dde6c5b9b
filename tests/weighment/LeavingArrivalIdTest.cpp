// The focus leaves the box of the id, by key, by mouse and by code, while it contains the id of a
// stored weighment. The load that this starts disables the box and moves the focus, and this move
// has priority.

#include "slip/SlipStatement.h"
#include "weighment/OpeningFixture.h"

namespace Quillane {
namespace {

using namespace Testing;

class LeavingArrivalId : public OpeningTest {
protected:
    /// Writes a text into the box of the id, which has the focus, and moves the focus away.
    Lines Leaving(std::string_view text, const std::function<void()>& leave) {
        screen->TxtArrivalId.SetFocus();
        screen->TxtArrivalId.SetText(text);
        Trace trace(*screen, line);
        leave();
        return trace.Take();
    }
    Lines LeavingByTab(std::string_view text) {
        return Leaving(text, [this] { ScreenDriver(*screen).Press(Qt::Key_Tab); });
    }

    void ExpectLoaded(int id) {
        EXPECT_EQ(screen->TxtArrivalId.Text(), std::to_string(id));
        EXPECT_EQ(screen->ArrivalNo, id);
        EXPECT_TRUE(screen->IsOpened) << id;
        EXPECT_FALSE(screen->TxtArrivalId.Enabled());
        EXPECT_EQ(On(), "Open Print Remove Clear ");
        EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    }
};

// ---- ways to leave ----

TEST_F(LeavingArrivalId, ByKeyOpensTheArrivalAndEndsOnTheDate) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter}) {
        const Lines done = Leaving("1040", [&] { ScreenDriver(*screen).Press(key); });
        ASSERT_GE(done.size(), 5U);
        EXPECT_EQ(Lines(done.begin(), done.begin() + 3),
                  (Lines{"Validate TxtArrivalId", LeavingCount("1040"), SlipStatement(1040)}));
        EXPECT_EQ(Lines(done.end() - 2, done.end()),
                  (Lines{"LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"}));
        ExpectLoaded(1040);
        screen->NewWeighment();
    }
}

TEST_F(LeavingArrivalId, ByAClickElsewhereOpensTheArrivalAndEndsOnTheDate) {
    for (VisualControl* control : std::initializer_list<VisualControl*>{
             &screen->TxtVehicleNo, &screen->TxtGrossWeight, &screen->TxtTareWeight,
             &screen->TxtInitialGrossWeight, &screen->CboSeller, &screen->Grid,
             &screen->DtpArrivalDate, &screen->TxtWeight}) {
        const Lines done = Leaving("1040", [&] { ScreenDriver(*screen).Click(*control); });
        EXPECT_EQ(done.back(), "GotFocus DtpArrivalDate") << control->Name();
        EXPECT_EQ(std::count(done.begin(), done.end(), LeavingCount("1040")), 1);
        ExpectLoaded(1040);
        EXPECT_EQ(screen->TxtTareWeight.Text(), "3995") << control->Name();
        EXPECT_EQ(screen->TxtGrossWeight.Text(), "7330") << control->Name();
        screen->NewWeighment();
    }
}

TEST_F(LeavingArrivalId, ByAClickOnAButtonUsesThePressUp) {
    for (JeweledButton* button : {&screen->CmdGrossWeight, &screen->CmdTareWeight, &screen->BtnSave,
                                  &screen->BtnClear, &screen->BtnClose}) {
        FillIn();
        screen->TxtWeight.SetText("500");
        const Lines done = Leaving("1040", [&] { ScreenDriver(*screen).Click(*button); });
        EXPECT_EQ(done.back(), "GotFocus DtpArrivalDate") << button->Name();
        EXPECT_EQ(StatementsOf(done), (Lines{LeavingCount("1040"), SlipStatement(1040)}))
            << button->Name() << " does nothing";
        ExpectLoaded(1040);
        EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "11325") << "no reading is taken";
        EXPECT_EQ(screen->TxtTareWeight.Text(), "3995");
        screen->NewWeighment();
    }
}

TEST_F(LeavingArrivalId, ByAClickOnOpenOpensNoSearch) {
    ASSERT_TRUE(screen->BtnOpen.Enabled());
    Leaving("1040", [&] { ScreenDriver(*screen).Click(screen->BtnOpen); });
    ExpectLoaded(1040);
}

TEST_F(LeavingArrivalId, ByAClickOnACheckBoxChecksNothing) {
    for (CheckBox* box : {&screen->ChkFinalized, &screen->ChkManualWeight}) {
        Leaving("1040", [&] {
            ScreenDriver(*screen).Click(box->Widget(), QPoint(8, box->Widget().height() / 2));
        });
        ExpectLoaded(1040);
        EXPECT_EQ(box->Value(), 0) << box->Name();
        screen->NewWeighment();
    }
}

TEST_F(LeavingArrivalId, ByCodeOpensTheArrivalAndEndsOnTheDate) {
    for (VisualControl* control : std::initializer_list<VisualControl*>{
             &screen->CboSeller, &screen->TxtVehicleNo, &screen->DtpArrivalDate, &screen->Grid}) {
        Leaving("1040", [&] { control->SetFocus(); });
        ExpectLoaded(1040);
        screen->NewWeighment();
    }
}

TEST_F(LeavingArrivalId, ReplacesTheContentsOfTheScreenWithoutAQuestion) {
    FillIn();
    LeavingByTab("1033");
    ExpectLoaded(1033);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "MNC-1207");
    EXPECT_EQ(BagLines(), Lines{"Polypropylene | 50 Kg | 250"});
}

// The typed keys have put the screen into the changed state; the load ends that state.
TEST_F(LeavingArrivalId, TypedAndLeftByTabEndsInTheStoredState) {
    ScreenDriver(*screen).Type("1031").Press(Qt::Key_Tab);
    ExpectLoaded(1031);
    EXPECT_EQ(screen->ScreenMode, "ChangeMode");
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    EXPECT_TRUE(screen->BtnSave.Enabled()) << "the next key changes it";
    EXPECT_EQ(screen->ActiveControlName(), "CboCommodity");
}

// ---- texts that count as an id ----

TEST_F(LeavingArrivalId, ReadsTheTextLeniently) {
    for (const std::string text :
         {"1040", " 1040 ", "10 40", "1040kg", "1040.0", "1.04e3", "+1040", "01040"}) {
        LeavingByTab(text);
        ExpectLoaded(1040);
        screen->NewWeighment();
    }
}

TEST_F(LeavingArrivalId, OfNoStoredWeighmentCountsAndStays) {
    for (const auto& [text, number] : {std::pair{"1043", "1043"},
                                       {"", "0"},
                                       {"   ", "0"},
                                       {"abc", "0"},
                                       {"-5", "-5"},
                                       {"1040.5", "1040.5"},
                                       {"1e3", "1000"},
                                       {"1.5", "1.5"},
                                       {"40000", "40000"},
                                       {"-40000", "-40000"},
                                       {"32768", "32768"},
                                       {"9' OR 1=1", "9"},
                                       {"1;DROP", "1"},
                                       {"2000000000", "2000000000"}}) {
        EXPECT_EQ(LeavingByTab(text), (Lines{"Validate TxtArrivalId", LeavingCount(number),
                                             "LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"}))
            << text;
        EXPECT_EQ(screen->TxtArrivalId.Text(), text);
        EXPECT_FALSE(screen->IsOpened);
    }
}

TEST_F(LeavingArrivalId, OfAStoredThousandInExponentFormOpensIt) {
    Store(1000, {{.bags = "10"}});
    LeavingByTab("1e3");
    ExpectLoaded(1000);
}

TEST_F(LeavingArrivalId, OfTheSmallestAndTheLargestNumberOfSixteenBitsOpensThem) {
    for (const int id : {32767, -32768, -1}) {
        Store(id, {{.bags = "10"}});
        LeavingByTab(std::to_string(id));
        ExpectLoaded(id);
        screen->NewWeighment();
    }
}

// The id exists, but does not fit the 16 bits of opening: reported, and nothing is lost.
TEST_F(LeavingArrivalId, BeyondSixteenBitsIsAnOverflowAndStaysANewWeighment) {
    for (const long long id : {40000LL, 32768LL, -32769LL, 2147483647LL}) {
        Store(id, {{.bags = "10"}});
        FillIn();
        screen->TxtArrivalId.SetFocus();
        screen->TxtArrivalId.SetText(std::to_string(id));
        const Lines before = Screenful();
        EXPECT_EQ(LeavingByTab(std::to_string(id)),
                  (Lines{"Validate TxtArrivalId", LeavingCount(std::to_string(id)), OverflowLine,
                         "LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"}));
        EXPECT_EQ(Screenful(), before) << id;
        EXPECT_EQ(screen->ArrivalNo, id);
        EXPECT_TRUE(screen->BtnSave.Enabled());
    }
}

TEST_F(LeavingArrivalId, BeyondSixteenBitsIsRefusedByTheSaveAsExisting) {
    Store(40000, {{.bags = "10"}});
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    FillIn();
    LeavingByTab("40000");
    BoxAnswers boxes;
    boxes.Expect(Alert("The Arrival ID already exists. A new Arrival ID has been generated. "
                       "Please save your record again",
                       BoxIcon::Exclamation));
    screen->BtnSave_Click();
    EXPECT_EQ(screen->TxtArrivalId.Text(), "40001");
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
}

// While it is typed, the change handler of the box reports each text that exceeds 32 bits.
TEST_F(LeavingArrivalId, BeyondThirtyTwoBitsIsReportedAsItIsTypedAndNotAgain) {
    FillIn();
    screen->TxtArrivalId.SetFocus();
    Trace trace(*screen, line);
    ScreenDriver(*screen).Type("9999999999").Press(Qt::Key_Tab);
    Lines done = trace.Take();
    EXPECT_EQ(std::count(done.begin(), done.end(), OverflowLine), 1);
    EXPECT_EQ(Lines(done.end() - 4, done.end()),
              (Lines{"Validate TxtArrivalId", LeavingCount("9999999999"), "LostFocus TxtArrivalId",
                     "GotFocus DtpArrivalDate"}));
    EXPECT_EQ(screen->TxtArrivalId.Text(), "9999999999");
    EXPECT_EQ(screen->ArrivalNo, 999999999);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
    EXPECT_FALSE(screen->IsOpened);
}

TEST_F(LeavingArrivalId, BeyondThirtyTwoBitsThatExistsIsAnOverflowAgain) {
    SKIP_ON_SQL_SERVER("its column holds no such id");
    Store(3000000000, {{.bags = "10"}});
    Store(9999999999, {{.bags = "10"}});
    for (const std::string id : {"3000000000", "9999999999"}) {
        BoxAnswers boxes;
        boxes.Expect(Critical("Overflow", "Quillane")).Expect(Critical("Overflow", "Quillane"));
        screen->TxtArrivalId.SetFocus();
        screen->TxtArrivalId.SetText(id);
        ScreenDriver(*screen).Press(Qt::Key_Tab);
        EXPECT_FALSE(screen->IsOpened);
        EXPECT_EQ(screen->TxtArrivalId.Text(), id);
        EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    }
    BoxAnswers boxes;
    boxes.Allow(Critical("Overflow", "Quillane"));
    screen->TxtArrivalId.SetText("1040");
}

// An arrival with the number zero, stored by another program: the number means "ask".
TEST_F(LeavingArrivalId, WithAnArrivalOfNumberZeroAsksTheOperator) {
    Store(0, {{.bags = "10"}});
    CancelSearch([this] { LeavingByTab("abc"); });
    EXPECT_EQ(screen->ArrivalNo, 0);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "0") << "its text is read like any other";
    EXPECT_TRUE(screen->IsOpened);
}

// ---- at the end of other procedures ----

TEST_F(LeavingArrivalId, AtTheEndOfASaveLooksTheNextIdUp) {
    FillIn();
    screen->TxtArrivalId.SetFocus();
    Trace trace(*screen, line);
    trace.Answer("Are you sure to save this Weighment?", BoxAnswer::Yes);
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_S);
    const Lines done = trace.Take();
    ASSERT_GE(done.size(), 5U);
    EXPECT_EQ(Lines(done.end() - 5, done.end()),
              (Lines{Opens300, "Validate TxtArrivalId", LeavingCount("1044"),
                     "LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"}));
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1044");
    EXPECT_FALSE(screen->IsOpened);
}

// Another station has taken the number between its display and the move to the date.
TEST_F(LeavingArrivalId, AtTheEndOfASaveOpensTheArrivalThatHasTakenTheNextId) {
    FillIn();
    screen->TxtArrivalId.SetFocus();
    Trace trace(*screen, line);
    trace.Answer("Are you sure to save this Weighment?", BoxAnswer::Yes);
    trace.When(Opens300, [this] { Store(1044, {{.bags = "10", .vehicle = "'OTHER'"}}); });
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_S);
    ExpectLoaded(1044);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "OTHER");
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

TEST_F(LeavingArrivalId, AtTheEndOfAClearLooksTheNextIdUp) {
    screen->TxtArrivalId.SetFocus();
    screen->TxtArrivalId.SetText("1040");
    Trace trace(*screen, line);
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_L);
    const Lines done = trace.Take();
    EXPECT_EQ(Lines(done.end() - 4, done.end()),
              (Lines{"Validate TxtArrivalId", LeavingCount("1043"), "LostFocus TxtArrivalId",
                     "GotFocus DtpArrivalDate"}));
    EXPECT_FALSE(screen->IsOpened);
}

TEST_F(LeavingArrivalId, DoesNotHappenIfTheSaveIsByKey) {
    FillIn();
    screen->TxtArrivalId.SetFocus();
    screen->TxtArrivalId.SetText("1040");
    BoxAnswers boxes;
    boxes.Expect(Question("Are you sure to save this Weighment?"), BoxAnswer::Yes)
        .Expect(Alert("The Arrival ID already exists. A new Arrival ID has been generated. "
                      "Please save your record again",
                      BoxIcon::Exclamation));
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
}

// A press of Save by the mouse leaves the box, which opens an arrival that another station has
// stored since.
TEST_F(LeavingArrivalId, ByAPressOfSaveOpensWhatHasTakenTheNumberSince) {
    FillIn();
    screen->TxtArrivalId.SetFocus();
    Store(1043, {{.bags = "10", .vehicle = "'OTHER'"}});
    ScreenDriver(*screen).Click(screen->BtnSave);
    ExpectLoaded(1043);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "OTHER");
    EXPECT_EQ(StoredCell("SELECT VehicleNo FROM ArrivalsBody WHERE ArrivalId = 1043"), "'OTHER'");
}

TEST_F(LeavingArrivalId, WhileItIsDisabledRunsNoLookUp) {
    Open(1040);
    Trace trace(*screen, line);
    ScreenDriver driver(*screen);
    driver.Press(Qt::Key_Backtab).Press(Qt::Key_Tab).Click(screen->TxtArrivalId);
    EXPECT_EQ(StatementsOf(trace.Take()), Lines{});
}

} // namespace
} // namespace Quillane
