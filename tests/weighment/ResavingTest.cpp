// An opened arrival is saved again: its body is replaced, and values that opening has lost are lost
// in the tables too.

#include "slip/SlipStatement.h"
#include "weighment/OpeningFixture.h"

namespace Quillane {
namespace {

using namespace Testing;
using Rows = std::vector<Lines>;

class Resaving : public OpeningTest {
protected:
    /// Opens an arrival and presses a key, so that it can be saved.
    void OpenToChange(std::int16_t id) {
        Open(id);
        ScreenDriver(*screen).Press(Qt::Key_Tab);
        ASSERT_TRUE(screen->BtnSave.Enabled());
    }
    Lines SaveTraced() {
        Trace trace(*screen, line);
        screen->BtnSave_Click();
        return trace.Take();
    }
};

const Lines Dependents1040{"EXEC sp_fkeys @pktable_name = N'Arrivals'",
                           "Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=1040",
                           "Select TOP 1 * From PurchaseBody Where ArrivalId=1040"};

// The focus is on the commodity, which follows the date.
TEST_F(Resaving, RunsEachStatementInItsOrder) {
    OpenToChange(1040);
    EXPECT_EQ(SaveTraced(),
              Joined({{PostedRule("1040"), PostedRule("1040"), "BeginTrans",
                       "Select * from Arrivals Where ArrivalId=1040", HeaderUpdate,
                       "Select * From arrivalsbody where arrivalid=1040"},
                      Dependents1040,
                      {"Update Arrivals Set IsPosted=0 where arrivalid=1040", BodyDelete,
                       BodyDelete, "Select * From ArrivalsBody where arrivalid=1040", BodyInsert,
                       BodyInsert, "CommitTrans", PrintQuestion, PortRows},
                      BlankingAScreenOf("7330", "183-10"),
                      {Opens200, NextId, "TxtArrivalId = '1043'", Opens300},
                      Moved("CboCommodity", "DtpArrivalDate")}));
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
}

TEST_F(Resaving, KeepsAnUnchangedArrivalsRows) {
    const std::string columns = "ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, "
                                "VehicleNo, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, "
                                "OtherDeduction, NetWeight, DriverName, BiltyNo, VehicleNoText";
    const Rows before = Body(columns, 1031);
    OpenToChange(1031);
    Save();
    EXPECT_EQ(Body(columns, 1031), before);
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals"), "12");
}

TEST_F(Resaving, StoresTheScaleDeductionAsZeroOnEveryRow) {
    Store(2000,
          {{.bags = "60",
            .bagWeight = "81.17",
            .tare = "4320",
            .otherDeduction = "10.2",
            .vehicle = "'KHW-2'",
            .scaleDeduction = "103"},
           {.bags = "40", .bagWeight = "81.17", .otherDeduction = "6.8", .scaleDeduction = "103"}});
    OpenToChange(2000);
    ASSERT_EQ(screen->TxtNetWeight.Text(), "8100");
    Save();
    EXPECT_EQ(
        Body("NoOfBags, TareWeight, ScaleDeduction, BagWeight, OtherDeduction, NetWeight", 2000),
        (Rows{{"60", "4320", "0", "81.17", "10.200000000000001", "4860"},
              {"40", "0", "0", "81.17", "6.800000000000001", "3240"}}));
}

TEST_F(Resaving, StoresTheFoldedShortageAsDeduction) {
    FillIn();
    screen->TxtDeduction.SetText("40");
    screen->TxtShortage.SetText("20");
    Save();
    OpenToChange(1043);
    screen->TxtDeduction.SetText("50");
    Save();
    EXPECT_EQ(Body("OtherDeduction, NetWeight", 1043), (Rows{{"30", "4902"}, {"20", "3268"}}));
}

TEST_F(Resaving, StoresTheWeightsAsTheyWereRoundedRowByRow) {
    Store(2000, {{.bags = "1", .bagWeight = "100.5", .otherDeduction = "1.5", .vehicle = "'KHW-2'"},
                 {.bags = "1", .bagWeight = "100.5", .otherDeduction = "1.5"},
                 {.bags = "1", .bagWeight = "100.5", .otherDeduction = "1.5"}});
    OpenToChange(2000);
    Save();
    EXPECT_EQ(Body("BagWeight, OtherDeduction, NetWeight", 2000),
              (Rows{{"100", "2", "98"}, {"100", "2", "98"}, {"100", "2", "98"}}));
}

TEST_F(Resaving, MovesTheVehicleAndTheTareToTheFirstRow) {
    Store(2000,
          {{.bags = "30", .tare = "100"}, {.bags = "10", .tare = "200.5", .vehicle = "'KHW-2'"}});
    OpenToChange(2000);
    Save();
    EXPECT_EQ(Body("VehicleNo, TareWeight, VehicleNoText, DriverName, BiltyNo", 2000),
              (Rows{{"'KHW-2'", "300.5", "'KHW-2'", "'Aslam'", "'7'"},
                    {"''", "0", "'KHW-2'", "'Aslam'", "'7'"}}));
}

TEST_F(Resaving, StoresANullTextAsEmpty) {
    Store(2000, {{.vehicle = "'KHW-2'", .driver = "Null", .bilty = "Null"}});
    OpenToChange(2000);
    Save();
    EXPECT_EQ(Body("DriverName, BiltyNo", 2000), (Rows{{"''", "''"}}));
}

TEST_F(Resaving, LosesARowWhoseClassIsUnknown) {
    Store(2000, {{.bags = "30", .vehicle = "'KHW-2'"}, {.bags = "10", .bagClass = "0"}});
    OpenToChange(2000);
    Save();
    EXPECT_EQ(Body("NoOfBags, BagsClassId, BagWeight", 2000), (Rows{{"30", "1", "100"}}));
}

TEST_F(Resaving, BlanksTheValuesOfTheBooksInTheHeader) {
    OpenToChange(1036);
    Save();
    EXPECT_EQ(Stored("SELECT PermitNo, CenterId, ContractId, IsPosted, NoOfBags, BagWeight, "
                     "TareWeight FROM Arrivals WHERE ArrivalID = 1036"),
              (Rows{{"Null", "Null", "Null", "0", "200", "100.7", "9875"}}));
}

TEST_F(Resaving, OfAPostedRecordIsRefusedToARestrictedUser) {
    SignInAsGate();
    OpenToChange(1036);
    const auto headers = StoredTable("Arrivals");
    BoxAnswers boxes;
    boxes.Expect(
        {"You are not authorised to modify this posted record.", "Alert!", BoxIcon::Exclamation});
    screen->BtnSave_Click();
    EXPECT_FALSE(screen->BtnSave.Enabled());
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_TRUE(screen->IsOpened);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1036");
}

TEST_F(Resaving, OfAnArrivalThatAPurchaseUsesIsRefused) {
    OpenToChange(1035);
    const auto bodies = StoredTable("ArrivalsBody");
    BoxAnswers boxes;
    boxes.Expect(Alert("Cannot updated this invoice because it is used in (PurchaseBody) table",
                       BoxIcon::Exclamation));
    screen->BtnSave_Click();
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
    EXPECT_TRUE(screen->IsOpened);
    EXPECT_TRUE(screen->BtnSave.Enabled());
}

TEST_F(Resaving, WithMoreAndFewerLinesReplacesThemAll) {
    OpenToChange(1034);
    SetBagLines({{"Jute New", "100 Kg", "5"}});
    Save();
    EXPECT_EQ(Body("NoOfBags, TareWeight", 1034), (Rows{{"5", "7840"}}));
    OpenToChange(1034);
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "15980");
    SetBagLines({{"Jute New", "100 Kg", "1"},
                 {"Jute Old", "50 Kg", "2"},
                 {"Loose", "40 Kg", "3"},
                 {"Loose", "50 Kg", "4"}});
    Save();
    EXPECT_EQ(Body("NoOfBags", 1034), (Rows{{"1"}, {"2"}, {"3"}, {"4"}}));
}

TEST_F(Resaving, OfAFirstWeighingCompletesIt) {
    FillIn();
    screen->TxtTareWeight.SetText("");
    screen->ComputeGrossWeight();
    ASSERT_EQ(screen->TxtGrossWeight.Text(), "12540");
    Save();
    Open(1043);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "12540");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "");
    screen->TxtWeight.SetText("4320");
    ScreenDriver driver(*screen);
    driver.Click(screen->CmdTareWeight);
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "8220");
    EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
    driver.Press(Qt::Key_Tab);
    Save();
    EXPECT_EQ(Body("TareWeight, BagWeight, NetWeight", 1043),
              (Rows{{"4320", "82.2", "4921.8"}, {"0", "82.2", "3281.2"}}));
}

// ---- failures ----

TEST_F(Resaving, ThatFailsAtAnyOfItsWritesLosesNothing) {
    OpenToChange(1040);
    screen->TxtDriverName.SetText("Another");
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    // Looking up the ids of class and type moves the current rows of these two lists.
    const auto seen = [this] {
        Lines all = Screenful();
        std::erase_if(all, [](const std::string& each) { return each.starts_with("CboBag"); });
        return all;
    };
    const Lines before = seen();
    const std::string words = "The books are closed";
    for (const StationDatabase::Refusal& refusal :
         {StationDatabase::Refusal{"UPDATE", "Arrivals", words},
          StationDatabase::Refusal{"DELETE", "ArrivalsBody", words},
          StationDatabase::Refusal{"DELETE", "ArrivalsBody", words, "NoOfBags = 71"},
          StationDatabase::Refusal{"INSERT", "ArrivalsBody", words},
          StationDatabase::Refusal{"INSERT", "ArrivalsBody", words, "NoOfBags = 71"}}) {
        const std::string write = refusal.write + " " + refusal.table + " " + refusal.condition;
        database.Refuse(refusal);
        const Lines done = SaveTraced();
        EXPECT_EQ(Lines(done.end() - 2, done.end()),
                  (Lines{"RollbackTrans", DatabaseBox("The books are closed")}))
            << write;
        database.AcceptAgain();
        EXPECT_EQ(StoredTable("Arrivals"), headers) << write;
        EXPECT_EQ(StoredTable("ArrivalsBody"), bodies) << write;
        EXPECT_EQ(seen(), before) << write;
    }
    Save();
    EXPECT_EQ(Body("NoOfBags, DriverName", 1040), (Rows{{"45", "'Another'"}, {"71", "'Another'"}}));
}

// ---- names ----

TEST_F(Resaving, OfAPartyWithADuplicateNameWritesTheFirst) {
    RunBeside("UPDATE Parties SET CityId = 1 WHERE PartyId = '6010019';"
              "UPDATE Arrivals SET SellerId = '6010019' WHERE ArrivalID = 1040");
    screen->Unload();
    screen->Show();
    OpenToChange(1040);
    const std::string first = screen->CboSeller.ColumnText(1);
    Save();
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1040"),
              "'" + first + "'");
}

TEST_F(Resaving, OfAPartyThatIsNotInTheListFailsAndLosesNothing) {
    screen->CboSellerType.SetText("Brokers");
    OpenToChange(1031);
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    BoxAnswers boxes;
    boxes.Expect(Critical("Invalid use of Null", "Quillane"));
    screen->BtnSave_Click();
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
    EXPECT_TRUE(screen->BtnSave.Enabled());
}

// ---- other stations ----

// Rows that should exist but are missing are inserted.
TEST_F(Resaving, OfAnArrivalRemovedByAnotherStationWritesItAgain) {
    OpenToChange(1040);
    RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1040;"
              "DELETE FROM Arrivals WHERE ArrivalID = 1040");
    const Lines done = SaveTraced();
    EXPECT_EQ(std::count(done.begin(), done.end(), HeaderInsert), 1);
    EXPECT_EQ(std::count(done.begin(), done.end(), BodyDelete), 0);
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1040"), "'6010004'");
    EXPECT_EQ(Body("NoOfBags, VehicleNo", 1040), (Rows{{"45", "'LES-1090'"}, {"71", "''"}}));
}

TEST_F(Resaving, OfAnArrivalThatAnotherStationHasChangedReplacesItsWholeBody) {
    OpenToChange(1040);
    RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1040;"
              "UPDATE Arrivals SET SellerId = '6010002' WHERE ArrivalID = 1040");
    RunBeside("INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
              "NoOfBags, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, "
              "NetWeight) VALUES (1040, 1, 1, 1, 1, 0, 0, 1, 0, 0, 1), (1040, 1, 1, 1, 2, 0, 0, "
              "1, 0, 0, 2), (1040, 1, 1, 1, 3, 0, 0, 1, 0, 0, 3)");
    Save();
    EXPECT_EQ(Body("NoOfBags", 1040), (Rows{{"45"}, {"71"}}));
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1040"), "'6010004'");
}

} // namespace
} // namespace Quillane
