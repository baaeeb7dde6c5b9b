// The actions of a save, in order: statements, boxes, writes and moves of the focus.

#include "data/Con.h"
#include "platform/runtime/Failure.h"
#include "weighment/TraceLines.h"

namespace Quillane::Testing {
namespace {

const std::string TakenId =
    "Box \"Alert\" [exclamation, OK] The Arrival ID already exists. A new Arrival ID has been "
    "generated. Please save your record again";

std::string IdCount(const std::string& id) {
    return "Select Count(*) From Arrivals Where ArrivalID = " + id;
}

/// `box` is the text of the id's box, `number` that of `ArrivalNo`.
Lines UpToDependents(const std::string& box, const std::string& number,
                     const std::string& headerWrite) {
    return {"BeginTrans",
            "Select * from Arrivals Where ArrivalId=" + box,
            headerWrite,
            "Select * From arrivalsbody where arrivalid=" + number,
            "EXEC sp_fkeys @pktable_name = N'Arrivals'",
            "Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=" + number};
}

Lines BehindDependents(const std::string& box, const std::string& number, int oldLines) {
    Lines lines{"Select TOP 1 * From PurchaseBody Where ArrivalId=" + number,
                "Update Arrivals Set IsPosted=0 where arrivalid=" + number};
    lines.insert(lines.end(), static_cast<std::size_t>(oldLines), BodyDelete);
    lines.push_back("Select * From ArrivalsBody where arrivalid=" + box);
    return lines;
}

Lines Saved(const std::string& box, const std::string& number, const std::string& headerWrite,
            int oldLines) {
    return Joined({UpToDependents(box, number, headerWrite),
                   BehindDependents(box, number, oldLines),
                   {BodyInsert, BodyInsert, "CommitTrans", PrintQuestion}});
}

/// The writes of clearing a screen after a weighment of 8220 kg less 17 kg, saved from `BtnSave`.
Lines Emptied(const std::string& nextId) {
    return Joined({{PortRows, "LostFocus BtnSave", "GotFocus BtnClear"},
                   BlankingAScreenOf("8220", "205-20"),
                   {Opens200, NextId, "TxtArrivalId = '" + nextId + "'", Opens300},
                   Moved("BtnClear", "DtpArrivalDate")});
}

const Lines TwiceValid{IdCount("1043"), PostedRule("1043"), IdCount("1043"), PostedRule("1043")};

class SavingTrace : public WeighmentScreenTest {
protected:
    Lines SaveTraced() {
        Trace trace(*screen, line);
        screen->BtnSave_Click();
        return trace.Take();
    }
};

TEST_F(SavingTrace, OfTwoBagLinesOnANewArrival) {
    FillIn();
    EXPECT_EQ(SaveTraced(),
              Joined({TwiceValid, Saved("1043", "1043", HeaderInsert, 0), Emptied("1044")}));
    EXPECT_EQ(screen->ArrivalNo, 1044);
    EXPECT_FALSE(screen->BtnSave.Enabled());
    EXPECT_TRUE(screen->BtnOpen.Enabled());
    EXPECT_EQ(screen->BagRows.RowCount(), 0);
}

TEST_F(SavingTrace, OfAnOpenedArrivalLooksForNoFreeIdAndReplacesItsLines) {
    FillInOpened(1040);
    EXPECT_EQ(SaveTraced(), Joined({{PostedRule("1040"), PostedRule("1040")},
                                    Saved("1040", "1040", HeaderUpdate, 2),
                                    Emptied("1043")}));
}

TEST_F(SavingTrace, TakesTheIdOfSomeStatementsFromTheBoxAndOfOthersFromTheMember) {
    FillIn();
    screen->ArrivalNo = 2000;
    EXPECT_EQ(SaveTraced(),
              Joined({TwiceValid, Saved("1043", "2000", HeaderInsert, 0), Emptied("1044")}));
}

TEST_F(SavingTrace, WritesTheBoxAsTheNumberThatItHolds) {
    FillIn();
    screen->TxtArrivalId.SetText("11e2 kg");
    const Lines seen = SaveTraced();
    ASSERT_GE(seen.size(), 6U);
    EXPECT_EQ(seen[0], IdCount("1100"));
    EXPECT_EQ(seen[1], PostedRule("1100"));
    EXPECT_EQ(seen[5], "Select * from Arrivals Where ArrivalId=1100");
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1100"), "2");
}

TEST_F(SavingTrace, MovesToTheIdIfTheDateIsDisabledAfterwards) {
    FillIn();
    Trace trace(*screen, line);
    trace.When("Line opens, timer 300 ms", [this] { screen->DtpArrivalDate.SetEnabled(false); });
    screen->BtnSave_Click();
    const Lines seen = trace.Take();
    EXPECT_EQ(seen.back(), "GotFocus TxtArrivalId");
}

TEST_F(SavingTrace, RefusedByTheValidationRunsItOnceAndWritesNothing) {
    FillIn();
    screen->TxtArrivalId.SetText("1040");
    EXPECT_EQ(SaveTraced(),
              (Lines{IdCount("1040"), TakenId, NextId, "TxtArrivalId = '1043'", "Validate BtnSave",
                     "LostFocus BtnSave", "GotFocus TxtArrivalId"}));
    EXPECT_TRUE(screen->BtnSave.Enabled());
    screen->BtnSave.SetFocus();
    EXPECT_EQ(StatementsOf(SaveTraced()).size(), 18U);
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

TEST_F(SavingTrace, RefusedWithoutANewIdRunsNoStatementAtAll) {
    FillIn();
    screen->CboSeller.SetText("");
    EXPECT_EQ(SaveTraced(),
              (Lines{"Box \"Alert\" [exclamation, OK] Please select a valid Party and try again",
                     "Validate BtnSave", "LostFocus BtnSave", "GotFocus CboSeller"}));
}

TEST_F(SavingTrace, RefusedOnlyByTheSecondValidationWritesNothing) {
    FillIn();
    Trace trace(*screen, line);
    trace.When(PostedRule("1043"), [this] {
        RunBeside("INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) VALUES "
                  "(1043, '2026-11-20T00:00:00', 1, '6010002')");
    });
    screen->BtnSave_Click();
    EXPECT_EQ(trace.Take(), (Lines{IdCount("1043"), PostedRule("1043"), IdCount("1043"), TakenId,
                                   NextId, "TxtArrivalId = '1044'", "Validate BtnSave",
                                   "LostFocus BtnSave", "GotFocus TxtArrivalId"}));
    EXPECT_EQ(screen->ArrivalNo, 1044);
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1043"), "'6010002'");
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "0");
}

TEST_F(SavingTrace, OverwritesARowStoredBetweenTheLastCountAndTheWrite) {
    FillIn();
    Trace trace(*screen, line);
    trace.When(
        PostedRule("1043"),
        [this] {
            RunBeside("INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) VALUES "
                      "(1043, '2026-11-20T00:00:00', 1, '6010002')");
        },
        2);
    screen->BtnSave_Click();
    EXPECT_EQ(trace.Take(),
              Joined({TwiceValid, Saved("1043", "1043", HeaderUpdate, 0), Emptied("1044")}));
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1043"), "'6010001'");
}

// ---- records that depend on the arrival ----

TEST_F(SavingTrace, RefusedForAPurchaseShowsTheBoxInsideTheTransactionAndRollsBack) {
    FillInOpened(1035);
    const auto header = StoredTable("Arrivals");
    const auto body = StoredTable("ArrivalsBody");
    const std::string box = "Box \"Alert\" [exclamation, OK] Cannot updated this invoice because "
                            "it is used in (PurchaseBody) table";
    bool wasOpen = false;
    Trace trace(*screen, line);
    trace.When(box, [&] {
        EXPECT_THROW(Con->BeginTrans(), Failure);
        EXPECT_EQ(
            Con->Execute("Select SellerId From Arrivals Where ArrivalID = 1035").Fields(0).Text(),
            "6010001");
        wasOpen = true;
    });
    screen->BtnSave_Click();
    Lines seen = trace.Take();
    EXPECT_TRUE(wasOpen);
    std::erase(seen, "Select SellerId From Arrivals Where ArrivalID = 1035");
    EXPECT_EQ(seen, Joined({{PostedRule("1035"), PostedRule("1035")},
                            UpToDependents("1035", "1035", HeaderUpdate),
                            {"Select TOP 1 * From PurchaseBody Where ArrivalId=1035", box,
                             "RollbackTrans"}}));
    EXPECT_EQ(StoredTable("Arrivals"), header);
    EXPECT_EQ(StoredTable("ArrivalsBody"), body);
    EXPECT_TRUE(screen->BtnSave.Enabled());
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
    EXPECT_EQ(screen->ActiveControlName(), "BtnSave");
}

TEST_F(SavingTrace, NamesTheFirstTableThatRefersToTheArrival) {
    FillInOpened(1037);
    const auto header = StoredTable("Arrivals");
    EXPECT_EQ(SaveTraced(),
              Joined({{PostedRule("1037"), PostedRule("1037")},
                      UpToDependents("1037", "1037", HeaderUpdate),
                      {"Box \"Alert\" [exclamation, OK] Cannot updated this invoice because it is "
                       "used in (LaboratoryReports) table",
                       "RollbackTrans"}}));
    EXPECT_EQ(StoredTable("Arrivals"), header);
}

TEST_F(SavingTrace, LooksForRecordsOnTheMembersArrivalAndNotOnTheBoxes) {
    FillIn();
    screen->ArrivalNo = 1037;
    EXPECT_EQ(SaveTraced(),
              Joined({TwiceValid,
                      UpToDependents("1043", "1037", HeaderInsert),
                      {"Box \"Alert\" [exclamation, OK] Cannot updated this invoice because it is "
                       "used in (LaboratoryReports) table",
                       "RollbackTrans"}}));
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1043"), "0");
}

TEST_F(SavingTrace, ContinuesWhenTheTestForDependentRecordsFails) {
    RunBeside("CREATE TABLE \"Gate Passes\" (PassId INTEGER PRIMARY KEY, ArrivalId INTEGER "
              "REFERENCES Arrivals (ArrivalID))");
    FillIn();
    const Lines seen = SaveTraced();
    const auto probe =
        std::find(seen.begin(), seen.end(), "Select TOP 1 * From Gate Passes Where ArrivalId=1043");
    ASSERT_NE(probe, seen.end());
    EXPECT_TRUE((probe + 1)->starts_with("Box \"Database\" [critical, OK] ")) << *(probe + 1);
    // A server may end the transaction with this failure. The save then ends, and nothing is
    // stored.
    const bool isEnded = OnSqlServer() && *(probe + 2) == "RollbackTrans";
    EXPECT_EQ(*(probe + 2),
              isEnded ? "RollbackTrans" : "Update Arrivals Set IsPosted=0 where arrivalid=1043");
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"),
              isEnded ? "0" : "2");
}

// ---- failures inside the transaction ----

class FailingSave : public SavingTrace {
protected:
    /// A save that fails after these statements of the body, with this box. Afterwards everything
    /// in the tables and on the screen is unchanged.
    void ExpectRolledBack(const Lines& bodyWrites, const std::string& box) {
        const auto header = StoredTable("Arrivals");
        const auto body = StoredTable("ArrivalsBody");
        EXPECT_EQ(SaveTraced(), Joined({TwiceValid,
                                        UpToDependents("1043", "1043", HeaderInsert),
                                        BehindDependents("1043", "1043", 0),
                                        bodyWrites,
                                        {"RollbackTrans", box}}));
        EXPECT_EQ(StoredTable("Arrivals"), header);
        EXPECT_EQ(StoredTable("ArrivalsBody"), body);
        EXPECT_TRUE(screen->BtnSave.Enabled());
        EXPECT_EQ(screen->ActiveControlName(), "BtnSave");
        EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
        EXPECT_EQ(screen->CboSeller.Text(), "Chaudhry Grain Traders-Okara");
        EXPECT_EQ(screen->CboCommodity.Text(), "Wheat");
        EXPECT_EQ(screen->TxtNetWeight.Text(), "8203");
        EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
        EXPECT_EQ(screen->BagRows.RowCount(), 2);
    }
    void ExpectSecondTryWorks() {
        EXPECT_EQ(SaveTraced(),
                  Joined({TwiceValid, Saved("1043", "1043", HeaderInsert, 0), Emptied("1044")}));
        EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
    }
};

TEST_F(FailingSave, ForNoBagsAtAllIsADivisionByZero) {
    FillIn();
    SetBagLines({{"Jute New", "100 Kg", ""}, {"Jute Old", "50 Kg", "0"}});
    ExpectRolledBack({}, "Box \"Quillane\" [critical, OK] Division by zero");
    SetBagLines({{"Jute New", "100 Kg", "60"}, {"Jute Old", "50 Kg", "40"}});
    ExpectSecondTryWorks();
}

TEST_F(FailingSave, ForMoreThan32767BagsIsAnOverflow) {
    FillIn();
    SetBagLines({{"Jute New", "100 Kg", "32000"}, {"Jute Old", "50 Kg", "768"}});
    ExpectRolledBack({}, "Box \"Quillane\" [critical, OK] Overflow");
    SetBagLines({{"Jute New", "100 Kg", "32000"}, {"Jute Old", "50 Kg", "767"}});
    ExpectSecondTryWorks();
}

TEST_F(FailingSave, OfTheLastLineUndoesTheFirstToo) {
    database.Refuse({"INSERT", "ArrivalsBody", "The books are closed", "NoOfBags = 40"});
    FillIn();
    ExpectRolledBack({BodyInsert, BodyInsert}, DatabaseBox("The books are closed"));
    database.AcceptAgain();
    ExpectSecondTryWorks();
}

TEST_F(FailingSave, WhoseTransactionTheEngineEndsIsReportedInTheSameWay) {
    database.Refuse({"INSERT", "ArrivalsBody", "The books are gone", "NoOfBags = 40", true});
    FillIn();
    ExpectRolledBack({BodyInsert, BodyInsert}, DatabaseBox("The books are gone"));
    database.AcceptAgain();
    ExpectSecondTryWorks();
}

TEST_F(FailingSave, OnAFullDiskStoresNothing) {
    SKIP_ON_SQL_SERVER("the test cannot fill its disk");
    FillIn();
    screen->TxtDriverName.SetText(std::string(100'000, 'x'));
    Con->Execute("PRAGMA max_page_count = 1");
    ExpectRolledBack({BodyInsert}, "Box \"Database\" [critical, OK] database or disk is full");
    Con->Execute("PRAGMA max_page_count = 1000000");
    ExpectSecondTryWorks();
}

TEST_F(FailingSave, ForAnUnlistedSellerEndsBeforeAnyWrite) {
    FillIn();
    screen->CboSeller.SetText("Somebody else");
    EXPECT_EQ(SaveTraced(),
              Joined({TwiceValid,
                      {"BeginTrans", "Select * from Arrivals Where ArrivalId=1043", "RollbackTrans",
                       "Box \"Quillane\" [critical, OK] Invalid use of Null"}}));
    screen->CboSeller.SetText("Chaudhry Grain Traders-Okara");
    ExpectSecondTryWorks();
}

TEST_F(FailingSave, OfAnOpenedArrivalRestoresItsOldLines) {
    FillInOpened(1040);
    const auto body = StoredTable("ArrivalsBody");
    SetBagLines({{"Jute New", "100 Kg", ""}});
    EXPECT_EQ(SaveTraced(),
              Joined({{PostedRule("1040"), PostedRule("1040")},
                      UpToDependents("1040", "1040", HeaderUpdate),
                      BehindDependents("1040", "1040", 2),
                      {"RollbackTrans", "Box \"Quillane\" [critical, OK] Division by zero"}}));
    EXPECT_EQ(StoredTable("ArrivalsBody"), body);
    EXPECT_TRUE(screen->IsOpened);
}

// The member holds a whole number that differs from the text of the box: a save that uses both
// would mix the rows of two arrivals.
TEST_F(FailingSave, UnderANumberThatIsNotWholeEndsBeforeAnyWrite) {
    FillIn();
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    screen->TxtArrivalId.SetText("1041.5");
    EXPECT_EQ(screen->ArrivalNo, 1042);
    EXPECT_EQ(SaveTraced(), (Lines{IdCount("1041.5"), PostedRule("1041.5"), IdCount("1041.5"),
                                   PostedRule("1041.5"), "BeginTrans",
                                   "Select * from Arrivals Where ArrivalId=1041.5", "RollbackTrans",
                                   OverflowLine}));
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1041.5");
    EXPECT_TRUE(screen->BtnSave.Enabled());
    screen->TxtArrivalId.SetText("1043");
    ExpectSecondTryWorks();
}

// The committed changes are kept. The report is that there is nothing to roll back.
TEST_F(FailingSave, AfterTheCommitReportsThatThereIsNoTransaction) {
    FillIn();
    Trace trace(*screen, line);
    trace.When("Line opens, timer 300 ms", [this] {
        screen->DtpArrivalDate.SetEnabled(false);
        screen->TxtArrivalId.SetEnabled(false);
    });
    screen->BtnSave_Click();
    EXPECT_TRUE(trace.Take().back().starts_with("Box \"Database\" [critical, OK] "));
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

TEST_F(FailingSave, OfTheNewWeighmentAfterItDoesNotChangeTheSave) {
    FillIn();
    Trace trace(*screen, line);
    trace.When(PrintQuestion, [this] { database.Rename("PortSettings", "Away"); });
    screen->BtnSave_Click();
    const Lines seen = trace.Take();
    EXPECT_EQ(StatementsOf(seen).back(), "Select * from PortSettings");
    EXPECT_EQ(seen.back(), "GotFocus DtpArrivalDate");
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

} // namespace
} // namespace Quillane::Testing
