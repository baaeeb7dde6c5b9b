// What a server refuses in the midst of a save: each refusal in a box in the server's own words,
// with nothing half-saved, and with the entries still there for the next try.

#include "data/Con.h"
#include "faults/FaultsFixture.h"
#include "platform/runtime/Text.h"

#include <chrono>
#include <functional>
#include <thread>

namespace Quillane::Testing {
namespace {

class RefusedByServer : public FaultsTest {
protected:
    void SetUp() override {
        FaultsTest::SetUp();
        if (!IsSkipped())
            other.Open(database->ConnectionString());
    }

    /// What the boxes of a save say that is refused; it leaves everything as it was.
    std::vector<std::string> RefusalsOfASave() {
        const auto tables = Tables();
        const auto entries = station->Entries();
        station->TakeBoxes();
        Screen().BtnSave_Click();
        std::vector<std::string> told;
        for (const Box& box : station->TakeBoxes())
            told.push_back(WordsOf(box));
        EXPECT_EQ(station->Entries(), entries);
        EXPECT_TRUE(Screen().BtnSave.Enabled());
        EXPECT_EQ(Tables(), tables);
        return told;
    }
    void ExpectRefusal(std::string_view part) {
        const auto told = RefusalsOfASave();
        ASSERT_EQ(told.size(), 1U);
        EXPECT_TRUE(told[0].starts_with("[")) << told[0];
        EXPECT_TRUE(Holds(told[0], part)) << told[0];
        EXPECT_FALSE(Holds(told[0], LostWords)) << told[0];
    }
    /// The same entries are saved by the next press.
    void ExpectSecondPressWorks(const std::string& driver) {
        station->TakeBoxes();
        Screen().BtnSave_Click();
        const auto boxes = station->TakeBoxes();
        ASSERT_EQ(boxes.size(), 1U) << boxes[0].text;
        EXPECT_EQ(boxes[0].text, "Do you want to print?");
        EXPECT_EQ(Stored(driver), 1);
    }
    /// An arrival of the station's own, opened and about to be changed.
    void OpenOneToChange(const std::string& driver) {
        station->FillIn("as it was");
        Screen().BtnSave_Click();
        std::int16_t id = NextId;
        Screen().LoadArrival(id);
        ASSERT_TRUE(Screen().IsOpened);
        station->FillIn(driver);
    }

    Connection other; ///< of another program
};

TEST_F(RefusedByServer, ATextLongerThanItsColumn) {
    Run("Update ArrivalsBody Set DriverName = Left(DriverName, 10)");
    Run("Alter Table ArrivalsBody Alter Column DriverName nvarchar(10)");
    station->FillIn("Muhammad Ghulam Rasool");
    const auto told = RefusalsOfASave();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(Holds(told[0], "truncated") || Holds(told[0], "too long")) << told[0];
    Screen().TxtDriverName.SetText("Rasool");
    ExpectSecondPressWorks("Rasool");
}

TEST_F(RefusedByServer, ARowThatRefersToOneWhichHasGone) {
    Run("Insert Into Commodities (CommodityId, CommodityName, IsPurchaseable, IsSaleable, "
        "IsWheatCommodity) Values (77, 'Barley', 1, 1, 1)");
    station->ShowScreen();
    station->FillIn("Rasool");
    Screen().CboCommodity.SetText("Barley");
    Run("Delete From Commodities Where CommodityId = 77");
    ExpectRefusal("oreign key");
    Screen().CboCommodity.SetText("Wheat");
    ExpectSecondPressWorks("Rasool");
}

TEST_F(RefusedByServer, AnIdThatHasBeenTakenBetweenTheLookAndTheWrite) {
    station->FillIn("Rasool");
    bool isTaken = false;
    station->OnStatement = [&](std::string_view statement) {
        if (!isTaken && statement.starts_with("INSERT INTO Arrivals ")) {
            isTaken = true;
            Run("Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) Select 1043, "
                "ArrivalDate, CommodityId, SellerId From Arrivals Where ArrivalID = 1040");
        }
    };
    station->TakeBoxes();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(WordsOf(boxes[0]), "uplicate key") || Holds(boxes[0].text, "PRIMARY KEY"))
        << boxes[0].text;
    EXPECT_EQ(Ask("Select Count(*) From ArrivalsBody Where ArrivalId = 1043"), "0");
    // The next press finds the id taken and moves on to another, the third one stores.
    Screen().BtnSave_Click();
    const auto moved = station->TakeBoxes();
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_TRUE(moved[0].text.starts_with("The Arrival ID already exists.")) << moved[0].text;
    EXPECT_EQ(Screen().TxtArrivalId.Text(), "1044");
    ExpectSecondPressWorks("Rasool");
}

TEST_F(RefusedByServer, ALockThatIsHeldForLongerThanTheServersLimit) {
    OpenOneToChange("Rasool");
    Con->Execute("Set Lock_Timeout 300");
    other.BeginTrans();
    other.Execute("Update Arrivals Set CenterId = Null Where ArrivalID = 1043");
    station->TakeBoxes();
    const auto entries = station->Entries();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(WordsOf(boxes[0]), "ock")) << boxes[0].text;
    EXPECT_FALSE(Holds(boxes[0].text, LostWords)) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    other.RollbackTrans();
    EXPECT_EQ(Stored("as it was"), 1);
    ExpectSecondPressWorks("Rasool");
    EXPECT_EQ(Stored("as it was"), 0);
}

// A server that lets a waiting statement be broken off keeps the connection; of another one the
// station does not hear again, and says so.
TEST_F(RefusedByServer, ALockThatIsHeldForLongerThanTheStationWaits) {
    StartAnew(3);
    OpenOneToChange("Rasool");
    other.BeginTrans();
    other.Execute("Update Arrivals Set CenterId = Null Where ArrivalID = 1043");
    station->TakeBoxes();
    const auto begin = std::chrono::steady_clock::now();
    Screen().BtnSave_Click();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(WordsOf(boxes[0]), "imeout")) << boxes[0].text;
    EXPECT_EQ(Screen().TxtDriverName.Text(), "Rasool");
    other.RollbackTrans();
    EXPECT_EQ(Stored("as it was"), 1);
    if (!Holds(boxes[0].text, LostWords))
        return ExpectSecondPressWorks("Rasool");
    StartAnew();
    ExpectNextSaveWorks();
}

// The other program holds the arrival's lines and asks for its header, the station the other way
// round. Some servers end whoever began to wait last, so the other one has waited for long by then.
TEST_F(RefusedByServer, ASaveThatIsTheVictimOfADeadlock) {
    OpenOneToChange("Rasool");
    other.Execute("Set Deadlock_Priority High");
    other.BeginTrans();
    other.Execute("Update ArrivalsBody Set BagsDeduction = 0 Where ArrivalId = 1043");
    std::thread program;
    std::string otherFailed;
    station->At("Update Arrivals Set IsPosted=0 where arrivalid=1043", [&] {
        program = std::thread([&] {
            try {
                other.Execute("Update Arrivals Set CenterId = Null Where ArrivalID = 1043");
                other.RollbackTrans();
            } catch (const std::exception& failure) {
                otherFailed = failure.what();
            }
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    });
    station->TakeBoxes();
    station->TakeStatements();
    const auto entries = station->Entries();
    Screen().BtnSave_Click();
    program.join();
    // Behind the failed statement nothing runs but the end of the transaction.
    const auto statements = station->TakeStatements();
    ASSERT_GE(statements.size(), 3U);
    EXPECT_EQ(statements.back(), "RollbackTrans");
    EXPECT_EQ(*(statements.end() - 3), "Update Arrivals Set IsPosted=0 where arrivalid=1043");
    EXPECT_TRUE(statements[statements.size() - 2].starts_with("DELETE"));
    EXPECT_EQ(otherFailed, "");
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(WordsOf(boxes[0]), "eadlock")) << boxes[0].text;
    EXPECT_FALSE(Holds(boxes[0].text, LostWords)) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    EXPECT_EQ(Stored("as it was"), 1);
    ExpectSecondPressWorks("Rasool");
    EXPECT_EQ(Stored("as it was"), 0);
}

// The test of dependents fails open: it reports and lets the save go on. Where its failure has
// ended the transaction, the save comes to a closed door and tells so.
TEST_F(RefusedByServer, ADependentTableThatCannotBeRead) {
    OpenOneToChange("Rasool");
    Run("Create Schema Gate");
    Run("Create Table Gate.GatePasses (PassId int Primary Key, ArrivalNo int References "
        "dbo.Arrivals (ArrivalID))");
    station->TakeBoxes();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_TRUE(Holds(UpperCase(WordsOf(boxes[0])), "GATEPASSES")) << boxes[0].text;
    const bool isSaved = boxes[1].buttons == BoxButtons::YesNo;
    EXPECT_EQ(Stored("Rasool"), isSaved ? 1 : 0);
    EXPECT_EQ(Stored("as it was"), isSaved ? 0 : 1);
    if (isSaved)
        return;
    EXPECT_TRUE(Holds(WordsOf(boxes[1]), "ended the open transaction by itself")) << boxes[1].text;
    EXPECT_EQ(Screen().TxtDriverName.Text(), "Rasool");
}

TEST_F(RefusedByServer, ATableThatIsMissing) {
    station->FillIn("Rasool");
    Run("Exec sp_rename 'ArrivalsBody', 'Away', 'OBJECT'");
    const auto entries = station->Entries();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(UpperCase(WordsOf(boxes[0])), "ARRIVALSBODY")) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID = 1043"), "0");
    Run("Exec sp_rename 'Away', 'ArrivalsBody', 'OBJECT'");
    ExpectSecondPressWorks("Rasool");
}

TEST_F(RefusedByServer, AFunctionThatIsMissing) {
    station->FillIn("Rasool");
    const auto entries = station->Entries();
    Run("Drop Function dbo.FunGetCommodity");
    std::int16_t id = 1040;
    Screen().LoadArrival(id);
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(UpperCase(WordsOf(boxes[0])), "FUNGETCOMMODITY")) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    Screen().ArrivalNo = NextId;
    ExpectSecondPressWorks("Rasool");
}

TEST_F(RefusedByServer, ASessionThatTheServerEnds) {
    station->FillIn("Rasool");
    const std::string session = Con->Execute("Select @@SPID").Fields(0).Text();
    station->At("Update Arrivals Set IsPosted=0 where arrivalid=1043",
                [&] { Run("Kill " + session); });
    const auto told = RefusalsOfASave();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(Holds(told[0], LostWords)) << told[0];
    StartAnew();
    ExpectNextSaveWorks();
}

} // namespace
} // namespace Quillane::Testing
