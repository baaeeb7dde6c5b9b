// The actions of a removal, in order: statements, boxes, writes and moves of the focus.

#include "data/Con.h"
#include "platform/runtime/Failure.h"
#include "signin/UserLogin.h"
#include "support/ProcessEnd.h"
#include "weighment/OpeningFixture.h"

namespace Quillane {
namespace {

using namespace Testing;

const std::string RemoveText = "Are you sure to remove this arrival?";
const std::string RemoveQuestion = "Box \"Alert\" [question, Yes*/No] " + RemoveText;
const std::string NothingToRollBack = "No transaction is open, so none can be rolled back.";
const std::string NoPurchases = EngineWords("no such table: purchasebody") + "\n";

std::string BodyRead(const std::string& id) {
    return "Select * From arrivalsbody where arrivalid=" + id;
}
std::string PurchaseTest(const std::string& id) {
    return "select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
           "arrivalid = " +
           id;
}
std::string PostedDown(const std::string& id) {
    return "Update Arrivals Set IsPosted=0 where arrivalid=" + id;
}
std::string HeaderDelete(const std::string& id) {
    return "Delete From arrivals where arrivalid=" + id;
}
std::string Reported(const std::string& text, const std::string& source = "Database") {
    return "Box \"" + source + "\" [critical, OK] " + text;
}

/// All actions up to the commit, for an arrival with this number of rows.
Lines Removed(const std::string& id, int rows) {
    Lines lines{BodyRead(id), RemoveQuestion, PurchaseTest(id), "BeginTrans", PostedDown(id)};
    lines.insert(lines.end(), static_cast<std::size_t>(rows), BodyDelete);
    return Joined({lines, {HeaderDelete(id), "CommitTrans"}});
}

class RemovingTrace : public OpeningTest {
protected:
    Lines Removing(const std::function<void()>& remove, BoxAnswer answer = BoxAnswer::Yes) {
        Trace trace(*screen, line);
        trace.Answer(RemoveText, answer);
        remove();
        return trace.Take();
    }
    Lines RemovingByCode() {
        return Removing([this] { screen->BtnRemove_Click(); });
    }
    Lines NewFrom(const std::string& nextId) {
        return Joined({{Opens200, NextId, "TxtArrivalId = '" + nextId + "'", Opens300}});
    }
};

TEST_F(RemovingTrace, OfAnArrivalOfTwoRowsByItsButton) {
    Open(1040);
    EXPECT_EQ(Removing([this] { ScreenDriver(*screen).Click(screen->BtnRemove); }),
              Joined({Moved("DtpArrivalDate", "BtnRemove"),
                      Testing::Joined({Removed("1040", 2)}),
                      {PortRows, "LostFocus BtnRemove", "GotFocus BtnClose"},
                      BlankingAScreenOf("7330", "183-10"),
                      NewFrom("1043"),
                      Moved("BtnClose", "DtpArrivalDate")}));
    EXPECT_EQ(On(), "Open Clear ");
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->ArrivalNo, 1043);
    EXPECT_EQ(screen->BagRows.RowCount(), 0);
}

TEST_F(RemovingTrace, OfAnArrivalByItsKeys) {
    Open(1034);
    EXPECT_EQ(
        Removing([this] { ScreenDriver(*screen).Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete); }),
        Joined({Removed("1034", 3),
                {PortRows},
                BlankingAScreenOf("15980", "399-20"),
                NewFrom("1043")}))
        << "the date already has the focus";
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
}

TEST_F(RemovingTrace, AnsweredNoHasOnlyReadTheRows) {
    Open(1040);
    const Lines before = Screenful();
    EXPECT_EQ(Removing([this] { screen->BtnRemove_Click(); }, BoxAnswer::No),
              (Lines{BodyRead("1040"), RemoveQuestion}));
    EXPECT_EQ(Screenful(), before);
}

TEST_F(RemovingTrace, ByARestrictedUserIsRefusedWithoutAnyStatement) {
    SignInAsGate();
    for (const bool exists : {true, false}) {
        Open(1040);
        if (!exists)
            screen->ArrivalNo = 5000;
        const Lines before = Screenful();
        EXPECT_EQ(RemovingByCode(),
                  Lines{"Box \"Alert\" [information, OK] You are not authorised to do this "
                        "operation"});
        EXPECT_EQ(Screenful(), before);
    }
}

TEST_F(RemovingTrace, IsOnlyForLevelOne) {
    Open(1040);
    for (const std::string level : {"0", "2", "3", "9"}) {
        RunBeside("UPDATE StationUsers SET UserLevel = " + level + " WHERE UserName = '" +
                  SampleUserName + "'");
        UserLogin->ResetLogin(0);
        UserLogin->SignIn(SampleUserName, SampleUserName);
        EXPECT_EQ(StatementsOf(RemovingByCode()), Lines{}) << level;
    }
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals"), "12");
}

TEST_F(RemovingTrace, OfAnArrivalThatAPurchaseUsesIsRefusedBeforeAnyTransaction) {
    Open(1035);
    const Lines before = Screenful();
    EXPECT_EQ(RemovingByCode(),
              (Lines{BodyRead("1035"), RemoveQuestion, PurchaseTest("1035"),
                     "Box \"Alert\" [exclamation, OK] Cannot remove this invoice because it is "
                     "used in (PurchaseBody) table"}));
    EXPECT_EQ(Screenful(), before);
    EXPECT_EQ(On(), "Open Print Remove Clear ");
}

TEST_F(RemovingTrace, OfAnArrivalWithoutRowsDeletesItsHeader) {
    Open(1040);
    RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1040");
    const Lines done = RemovingByCode();
    EXPECT_EQ(Lines(done.begin(), done.begin() + 7), Removed("1040", 0));
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1040"), "0");
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
}

TEST_F(RemovingTrace, UsesTheMemberAndNotTheBox) {
    Open(1040);
    screen->ArrivalNo = 1034;
    const Lines done = RemovingByCode();
    EXPECT_EQ(Lines(done.begin(), done.begin() + 10), Removed("1034", 3));
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1040"), "1");
}

TEST_F(RemovingTrace, MovesToTheIdIfTheDateIsDisabledAfterwards) {
    Open(1040);
    Trace trace(*screen, line);
    trace.Answer(RemoveText, BoxAnswer::Yes);
    trace.When(Opens300, [this] { screen->DtpArrivalDate.SetEnabled(false); });
    screen->BtnRemove_Click();
    EXPECT_EQ(trace.Take().back(), "GotFocus TxtArrivalId");
}

// ---- failures inside the transaction ----

class FailingRemoval : public RemovingTrace {
protected:
    /// A removal of 1040 that fails after these lines, with this box. Afterwards everything is
    /// unchanged.
    void ExpectRolledBack(const Lines& upToTheFailure, const std::string& box,
                          const std::string& source = "Database") {
        if (!screen->IsOpened)
            Open(1040);
        const auto headers = StoredTable("Arrivals");
        const auto bodies = StoredTable("ArrivalsBody");
        const Lines before = Screenful();
        EXPECT_EQ(RemovingByCode(),
                  Joined({upToTheFailure, {"RollbackTrans", Reported(box, source)}}));
        EXPECT_EQ(StoredTable("Arrivals"), headers);
        EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
        EXPECT_EQ(Screenful(), before);
        EXPECT_EQ(screen->ArrivalNo, 1040);
    }
    void ExpectSecondTryWorks() {
        const Lines done = RemovingByCode();
        ASSERT_GE(done.size(), 9U);
        EXPECT_EQ(Lines(done.begin(), done.begin() + 9), Removed("1040", 2));
        EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1040"), "0");
        EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1040"), "0");
    }
    /// This number of lines of a removal of 1040.
    static Lines First(int lines) {
        const Lines all = Removed("1040", 2);
        return {all.begin(), all.begin() + lines};
    }
};

TEST_F(FailingRemoval, AtThePostedFlagIsRolledBack) {
    database.Refuse({"UPDATE", "Arrivals", "The books are closed"});
    ExpectRolledBack(First(5), EngineWords("The books are closed"));
    database.AcceptAgain();
    ExpectSecondTryWorks();
}

TEST_F(FailingRemoval, AtTheLastRowRestoresTheFirst) {
    database.Refuse({"DELETE", "ArrivalsBody", "The books are closed", "NoOfBags = 71"});
    ExpectRolledBack(First(7), EngineWords("The books are closed"));
    database.AcceptAgain();
    ExpectSecondTryWorks();
}

TEST_F(FailingRemoval, AtTheHeaderRestoresTheRows) {
    database.Refuse({"DELETE", "Arrivals", "The books are closed"});
    ExpectRolledBack(First(8), EngineWords("The books are closed"));
    database.AcceptAgain();
    ExpectSecondTryWorks();
}

TEST_F(FailingRemoval, AtTheCommitIsRolledBack) {
    SKIP_ON_SQL_SERVER("it checks no key at the commit");
    RunBeside("CREATE TABLE GatePasses (PassId INTEGER PRIMARY KEY, ArrivalId INTEGER REFERENCES "
              "Arrivals (ArrivalID) DEFERRABLE INITIALLY DEFERRED);"
              "INSERT INTO GatePasses (ArrivalId) VALUES (1040)");
    ExpectRolledBack(First(9), EngineWords("FOREIGN KEY constraint failed"));
    RunBeside("DELETE FROM GatePasses");
    ExpectSecondTryWorks();
}

TEST_F(FailingRemoval, WhoseTransactionTheEngineEndsIsReportedInTheSameWay) {
    database.Refuse({.write = "DELETE",
                     .table = "Arrivals",
                     .words = "The books are gone",
                     .endsTransaction = true});
    ExpectRolledBack(First(8), EngineWords("The books are gone"));
    database.AcceptAgain();
    ExpectSecondTryWorks();
}

// The test for purchases knows no other table. Other tables that refer to the arrival make the
// database refuse the removal.
TEST_F(FailingRemoval, OfAnArrivalThatALaboratoryReportUsesIsRefusedByTheDatabase) {
    RunBeside("UPDATE LaboratoryReports SET SampleArrivalNo = 1040");
    ExpectRolledBack(First(8), EngineWords("FOREIGN KEY constraint failed"));
    RunBeside("DELETE FROM LaboratoryReports");
    ExpectSecondTryWorks();
}

// The rows are counted in 16 bits.
TEST_F(FailingRemoval, OfMoreThan32767RowsIsAnOverflow) {
    Open(1040);
    for (int rows = 2; rows < 32768; rows *= 2)
        RunBeside("INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
                  "NoOfBags, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, "
                  "NetWeight) SELECT 1040, 1, 1, 1, 1, 0, 0, 1, 0, 0, 1 FROM ArrivalsBody "
                  "WHERE ArrivalId = 1040");
    ASSERT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1040"), "32768");
    ExpectRolledBack(First(5), "Overflow", "Quillane");
}

// ---- failures outside the transaction ----

class UntrappedRemoval : public RemovingTrace {
protected:
    /// The actions of a click on the button, and the exit codes of the process.
    Lines Clicking() {
        ProcessEnd end;
        const Lines done = Removing([this] { ScreenDriver(*screen).Click(screen->BtnRemove); });
        EXPECT_EQ(end.Codes(), std::vector<int>{1});
        return done;
    }
    const Lines ToButton = Moved("DtpArrivalDate", "BtnRemove");
    /// The box of the runtime. The actions that led to it come first.
    static std::string RuntimesOwnBox(const std::string& before = {}) {
        return Reported(before + NothingToRollBack, "Quillane");
    }
};

TEST_F(UntrappedRemoval, ThatCannotReadTheRowsEndsTheProcess) {
    Open(1040);
    const auto headers = StoredTable("Arrivals");
    database.Rename("ArrivalsBody", "Away");
    EXPECT_EQ(Clicking(),
              Joined({ToButton,
                      {BodyRead("1040"),
                       RuntimesOwnBox(EngineWords("no such table: arrivalsbody") + "\n")}}));
    EXPECT_EQ(StoredTable("Arrivals"), headers);
}

TEST_F(UntrappedRemoval, ThatCannotTestForPurchasesEndsTheProcess) {
    Open(1040);
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    database.Rename("PurchaseBody", "Away");
    EXPECT_EQ(Clicking(), Joined({ToButton,
                                  {BodyRead("1040"), RemoveQuestion, PurchaseTest("1040"),
                                   RuntimesOwnBox(NoPurchases)}}));
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
}

// The committed changes are kept. The process ends because there is nothing to roll back.
TEST_F(UntrappedRemoval, ThatFailsAfterTheCommitEndsTheProcess) {
    Open(1040);
    Trace trace(*screen, line);
    trace.Answer(RemoveText, BoxAnswer::Yes);
    trace.When(Opens300, [this] {
        screen->DtpArrivalDate.SetEnabled(false);
        screen->TxtArrivalId.SetEnabled(false);
    });
    ProcessEnd end;
    ScreenDriver(*screen).Click(screen->BtnRemove);
    EXPECT_EQ(trace.Take().back(), RuntimesOwnBox());
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1040"), "0");
}

// The procedure of the keys has its own trap.
TEST_F(UntrappedRemoval, ByItsKeysIsReportedAndLeavesTheProcessRunning) {
    Open(1040);
    database.Rename("PurchaseBody", "Away");
    EXPECT_EQ(
        Removing([this] { ScreenDriver(*screen).Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete); }),
        (Lines{BodyRead("1040"), RemoveQuestion, PurchaseTest("1040"),
               Reported(NoPurchases + NothingToRollBack)}));
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_TRUE(screen->IsOpened);
}

TEST_F(UntrappedRemoval, LetsTheFailureOfTheRollbackThrough) {
    Open(1040);
    database.Rename("PurchaseBody", "Away");
    Trace trace(*screen, line);
    trace.Answer(RemoveText, BoxAnswer::Yes);
    try {
        screen->BtnRemove_Click();
        ADD_FAILURE() << "no failure was thrown";
    } catch (const Failure& failure) {
        EXPECT_EQ(ComparedWords(failure.Description()), NoPurchases + NothingToRollBack);
    }
}

} // namespace
} // namespace Quillane
