// The server refuses a statement of a save. A box shows the server's text, nothing is stored, and
// the entries stay for the next attempt.

#include "data/Con.h"
#include "faults/FaultsFixture.h"
#include "platform/runtime/Text.h"

#include <thread>

namespace Quillane::Testing {
namespace {

class RefusedByServer : public FaultsTest {
protected:
    void SetUp() override {
        FaultsTest::SetUp();
        other.Open(database->ConnectionString());
    }

    /// The box texts of a refused save. Checks that the save changes neither tables nor entries.
    std::vector<std::string> RefusalsOfSave() {
        const auto tables = Tables();
        const auto entries = station->Entries();
        station->TakeBoxes();
        Screen().BtnSave_Click();
        std::vector<std::string> texts;
        for (const Box& box : station->TakeBoxes())
            texts.push_back(TextOfDatabaseBox(box));
        EXPECT_EQ(station->Entries(), entries);
        EXPECT_TRUE(Screen().BtnSave.Enabled());
        EXPECT_EQ(Tables(), tables);
        return texts;
    }
    void ExpectRefusal(std::string_view part) {
        const auto texts = RefusalsOfSave();
        ASSERT_EQ(texts.size(), 1U);
        EXPECT_TRUE(texts[0].starts_with("[")) << texts[0];
        EXPECT_TRUE(Holds(texts[0], part)) << texts[0];
        EXPECT_FALSE(Holds(texts[0], LostText)) << texts[0];
    }
    /// The next save stores the same entries.
    void ExpectSecondSaveWorks(const std::string& driver) {
        station->TakeBoxes();
        Screen().BtnSave_Click();
        const auto boxes = station->TakeBoxes();
        ASSERT_EQ(boxes.size(), 1U) << boxes[0].text;
        EXPECT_EQ(boxes[0].text, "Do you want to print?");
        EXPECT_EQ(Stored(driver), 1);
    }
    /// Saves an arrival, opens it and changes its entries.
    void OpenOneToChange(const std::string& driver) {
        station->FillIn("as it was");
        Screen().BtnSave_Click();
        std::int16_t id = NextId;
        Screen().LoadArrival(id);
        ASSERT_TRUE(Screen().IsOpened);
        station->FillIn(driver);
    }

    Connection other; ///< another program's
};

TEST_F(RefusedByServer, TextLongerThanItsColumn) {
    Run("Update ArrivalsBody Set DriverName = Left(DriverName, 10)");
    Run("Alter Table ArrivalsBody Alter Column DriverName nvarchar(10)");
    station->FillIn("Muhammad Ghulam Rasool");
    const auto texts = RefusalsOfSave();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_TRUE(Holds(texts[0], "truncated") || Holds(texts[0], "too long")) << texts[0];
    Screen().TxtDriverName.SetText("Rasool");
    ExpectSecondSaveWorks("Rasool");
}

TEST_F(RefusedByServer, ReferenceToADeletedRow) {
    Run("Insert Into Commodities (CommodityId, CommodityName, IsPurchaseable, IsSaleable, "
        "IsWheatCommodity) Values (77, 'Barley', 1, 1, 1)");
    station->ShowScreen();
    station->FillIn("Rasool");
    Screen().CboCommodity.SetText("Barley");
    Run("Delete From Commodities Where CommodityId = 77");
    ExpectRefusal("oreign key");
    Screen().CboCommodity.SetText("Wheat");
    ExpectSecondSaveWorks("Rasool");
}

TEST_F(RefusedByServer, IdInsertedBetweenCheckAndWrite) {
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
    EXPECT_TRUE(Holds(TextOfDatabaseBox(boxes[0]), "uplicate key") ||
                Holds(boxes[0].text, "PRIMARY KEY"))
        << boxes[0].text;
    EXPECT_EQ(Ask("Select Count(*) From ArrivalsBody Where ArrivalId = 1043"), "0");
    // The next save finds that the id exists and generates another; the third save stores.
    Screen().BtnSave_Click();
    const auto moved = station->TakeBoxes();
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_TRUE(moved[0].text.starts_with("The Arrival ID already exists.")) << moved[0].text;
    EXPECT_EQ(Screen().TxtArrivalId.Text(), "1044");
    ExpectSecondSaveWorks("Rasool");
}

TEST_F(RefusedByServer, LockTimeoutOfTheServer) {
    OpenOneToChange("Rasool");
    Con->Execute("Set Lock_Timeout 300");
    other.BeginTrans();
    other.Execute("Update Arrivals Set CenterId = Null Where ArrivalID = 1043");
    station->TakeBoxes();
    const auto entries = station->Entries();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(TextOfDatabaseBox(boxes[0]), "ock")) << boxes[0].text;
    EXPECT_FALSE(Holds(boxes[0].text, LostText)) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    other.RollbackTrans();
    EXPECT_EQ(Stored("as it was"), 1);
    ExpectSecondSaveWorks("Rasool");
    EXPECT_EQ(Stored("as it was"), 0);
}

// If the server lets the driver cancel a waiting statement, the connection is kept. Otherwise it is
// lost, and the box says so.
TEST_F(RefusedByServer, LockHeldLongerThanTheCommandTimeout) {
    Restart(3);
    OpenOneToChange("Rasool");
    other.BeginTrans();
    other.Execute("Update Arrivals Set CenterId = Null Where ArrivalID = 1043");
    station->TakeBoxes();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(TextOfDatabaseBox(boxes[0]), "imeout")) << boxes[0].text;
    EXPECT_EQ(Screen().TxtDriverName.Text(), "Rasool");
    other.RollbackTrans();
    EXPECT_EQ(Stored("as it was"), 1);
    if (!Holds(boxes[0].text, LostText))
        return ExpectSecondSaveWorks("Rasool");
    Restart();
    ExpectNextSaveWorks();
}

// The other program locks the arrival's lines and requests its header; the station does the
// reverse. Some servers end the session that began to wait last, so the other one waits first.
TEST_F(RefusedByServer, DeadlockVictim) {
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
    // After the failed statement only the rollback runs.
    const auto statements = station->TakeStatements();
    ASSERT_GE(statements.size(), 3U);
    EXPECT_EQ(statements.back(), "RollbackTrans");
    EXPECT_EQ(*(statements.end() - 3), "Update Arrivals Set IsPosted=0 where arrivalid=1043");
    EXPECT_TRUE(statements[statements.size() - 2].starts_with("DELETE"));
    EXPECT_EQ(otherFailed, "");
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(TextOfDatabaseBox(boxes[0]), "eadlock")) << boxes[0].text;
    EXPECT_FALSE(Holds(boxes[0].text, LostText)) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    EXPECT_EQ(Stored("as it was"), 1);
    ExpectSecondSaveWorks("Rasool");
    EXPECT_EQ(Stored("as it was"), 0);
}

// A failure of the dependent-record test is reported and does not end the save. If the failure has
// rolled back the transaction, the next statement of the save fails and reports this.
TEST_F(RefusedByServer, UnreadableDependentTable) {
    OpenOneToChange("Rasool");
    Run("Create Schema Gate");
    Run("Create Table Gate.GatePasses (PassId int Primary Key, ArrivalNo int References "
        "dbo.Arrivals (ArrivalID))");
    station->TakeBoxes();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_TRUE(Holds(UpperCase(TextOfDatabaseBox(boxes[0])), "GATEPASSES")) << boxes[0].text;
    const bool isSaved = boxes[1].buttons == BoxButtons::YesNo;
    EXPECT_EQ(Stored("Rasool"), isSaved ? 1 : 0);
    EXPECT_EQ(Stored("as it was"), isSaved ? 0 : 1);
    if (isSaved)
        return;
    EXPECT_TRUE(Holds(TextOfDatabaseBox(boxes[1]), RolledBackText)) << boxes[1].text;
    EXPECT_EQ(Screen().TxtDriverName.Text(), "Rasool");
}

TEST_F(RefusedByServer, MissingTable) {
    station->FillIn("Rasool");
    Run("Exec sp_rename 'ArrivalsBody', 'Away', 'OBJECT'");
    const auto entries = station->Entries();
    Screen().BtnSave_Click();
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(UpperCase(TextOfDatabaseBox(boxes[0])), "ARRIVALSBODY")) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID = 1043"), "0");
    Run("Exec sp_rename 'Away', 'ArrivalsBody', 'OBJECT'");
    ExpectSecondSaveWorks("Rasool");
}

TEST_F(RefusedByServer, MissingFunction) {
    station->FillIn("Rasool");
    const auto entries = station->Entries();
    Run("Drop Function dbo.FunGetCommodity");
    std::int16_t id = 1040;
    Screen().LoadArrival(id);
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(Holds(UpperCase(TextOfDatabaseBox(boxes[0])), "FUNGETCOMMODITY")) << boxes[0].text;
    EXPECT_EQ(station->Entries(), entries);
    Screen().ArrivalNo = NextId;
    ExpectSecondSaveWorks("Rasool");
}

TEST_F(RefusedByServer, SessionEndedByTheServer) {
    station->FillIn("Rasool");
    const std::string session = Con->Execute("Select @@SPID").Fields(0).Text();
    station->At("Update Arrivals Set IsPosted=0 where arrivalid=1043",
                [&] { Run("Kill " + session); });
    const auto texts = RefusalsOfSave();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_TRUE(Holds(texts[0], LostText)) << texts[0];
    Restart();
    ExpectNextSaveWorks();
}

} // namespace
} // namespace Quillane::Testing
