#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <sqlite3.h>

namespace Quillane {

namespace {

class SqliteEngineTest : public testing::Test {
protected:
    void SetUp() override {
        folder.Open(connection);
        Run("CREATE TABLE Parties (PartyId TEXT COLLATE QTEXT, Name TEXT COLLATE QTEXT)");
        Run("CREATE TABLE Arrivals (ArrivalID INTEGER PRIMARY KEY, ArrivalDate DATETIME, "
            "\"Order\" INT, \"bag \"\"line\" INT)");
    }

    void Run(std::string_view statement) { connection.Execute(statement); }
    std::string OneValue(std::string_view statement) {
        return connection.Execute(statement).Fields(0).Text();
    }

    EmbeddedFolder folder;
    Connection connection;
};

TEST_F(SqliteEngineTest, SetsTheSessionUpForSafety) {
    EXPECT_EQ(OneValue("PRAGMA foreign_keys"), "1");
    EXPECT_EQ(OneValue("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(OneValue("PRAGMA synchronous"), "2");
}

TEST_F(SqliteEngineTest, TheDatabaseIsNamedWithoutFolderAndEnding) {
    EXPECT_EQ(connection.DefaultDatabase(), "Account1");
}

TEST_F(SqliteEngineTest, RefusesASecondStatementAndRunsNeither) {
    Run("Insert Into Parties Values ('6001', 'Ali'), ('6002', 'Bano')");
    const std::string changed = "Select Count(*) From Parties Where Name = 'Chand'";
    EXPECT_NE(
        DatabaseFailureOf([&] { Run("Update Parties Set Name = 'Chand'; Delete From Parties"); }),
        "");
    EXPECT_EQ(OneValue(changed), "0");
    EXPECT_EQ(OneValue("Select Count(*) From Parties"), "2");
    Run("Update Parties Set Name = 'Chand'; -- a comment");
    EXPECT_EQ(OneValue(changed), "2");
}

TEST_F(SqliteEngineTest, RegistersFunctionsOnEverySession) {
    int sessions = 0;
    EmbeddedSupport support = folder.Support();
    support.registerFunctions = [&sessions](sqlite3* database) {
        ++sessions;
        sqlite3_create_function(
            database, "FunSeven", 0, SQLITE_UTF8, nullptr,
            [](sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_int(context, 7); },
            nullptr, nullptr);
    };
    connection.Close();
    connection.SetEmbeddedSupport(support);
    connection.Open(EmbeddedFolder::connectionString);
    EXPECT_EQ(OneValue("Select dbo.funSeven()"), "7");
    Connection second;
    second.SetEmbeddedSupport(support);
    second.Open(EmbeddedFolder::connectionString);
    EXPECT_EQ(sessions, 2);
}

TEST_F(SqliteEngineTest, TextComparesWithoutCaseAndTrailingBlanks) {
    Run("Insert Into Parties Values ('6001', 'Müller '), ('6002', 'علی')");
    EXPECT_EQ(OneValue("Select PartyId From Parties Where Name = N'MÜLLER'"), "6001");
    EXPECT_EQ(OneValue("Select PartyId From Parties Where Name Like 'mÜ%'"), "6001");
    EXPECT_EQ(OneValue("Select PartyId From Parties Where Name Like '%ل%'"), "6002");
    EXPECT_EQ(OneValue("Select Count(*) From Parties Where PartyId Like '6%'"), "2");
    EXPECT_EQ(OneValue("Select Count(*) From Parties Where PartyId Like '6!%' Escape '!'"), "0");
    EXPECT_EQ(OneValue("Select Count(*) From Parties Where Null Like '%'"), "0");
}

TEST_F(SqliteEngineTest, APatternFromAColumnIsReadForEachRow) {
    Run("Insert Into Parties Values ('6%', '6001'), ('7%', '6001'), ('6!%', '6%')");
    EXPECT_EQ(OneValue("Select Count(*) From Parties Where Name Like PartyId"), "1");
    EXPECT_EQ(OneValue("Select Count(*) From Parties Where Name Like PartyId Escape '!'"), "2");
    DatabaseFailureOf([&] { Run("Select 1 From Parties Where Name Like '6%' Escape 'ab'"); });
}

TEST_F(SqliteEngineTest, AByteOrderMarkBeforeAStatementIsIgnored) {
    EXPECT_EQ(
        OneValue("\xEF\xBB\xBFSelect TOP 1 dbo.IsNull(Null, 7) From (Select 1 Union All Select "
                 "2) t"),
        "7");
    EXPECT_EQ(OneValue("\xEF\xBB\xBFSelect Count(*) From Parties Where PartyId = 5"), "0");
}

TEST_F(SqliteEngineTest, ADoubleQuotedTextIsAName) {
    DatabaseFailureOf([&] { Run("Select \"no such column\" From Parties"); });
}

TEST_F(SqliteEngineTest, AWholeDayInADateColumnIsADate) {
    Run("Insert Into Arrivals (ArrivalID, ArrivalDate) Values (1, '2026-11-20T00:00:00'), "
        "(2, '2026-11-20T13:45:00'), (3, '2026-13-40T00:00:00'), (4, '2026-11-20'), (5, 7)");
    const Recordset rows =
        connection.Execute("Select ArrivalDate, '2026-11-20T00:00:00' From Arrivals");
    EXPECT_EQ(std::get<Date>(rows.ValueAt(0, 0).Raw()), ParseDate("2026-11-20"));
    EXPECT_TRUE(std::holds_alternative<std::string>(rows.ValueAt(0, 1).Raw()));
    for (const int row : {1, 2, 3})
        EXPECT_TRUE(std::holds_alternative<std::string>(rows.ValueAt(row, 0).Raw())) << row;
    EXPECT_EQ(rows.ValueAt(4, 0).Text(), "7");
}

TEST_F(SqliteEngineTest, ADateIsStoredAsText) {
    Recordset rows;
    rows.Open("Select * From Arrivals", connection, adOpenStatic, adLockOptimistic);
    rows.AddNew();
    rows.Collect("ArrivalID", 1);
    rows.Collect("ArrivalDate", ParseDate("2026-11-20"));
    rows.Update();
    EXPECT_EQ(OneValue("Select typeof(ArrivalDate) || ' ' || ArrivalDate From Arrivals"),
              "text 2026-11-20T00:00:00");
}

TEST_F(SqliteEngineTest, WritesColumnsWhoseNamesNeedQuotes) {
    Recordset rows;
    rows.Open("Select * From Arrivals", connection, adOpenStatic, adLockOptimistic);
    rows.AddNew();
    rows.Collect("Order", 3);
    rows.Collect("bag \"line", 4);
    rows.Update();
    EXPECT_EQ(OneValue("Select \"Order\" + [bag \"line] From Arrivals"), "7");
}

TEST_F(SqliteEngineTest, ANewRowCanConsistOfDefaultsOnly) {
    Recordset rows;
    rows.Open("Select * From Arrivals", connection, adOpenStatic, adLockOptimistic);
    rows.AddNew();
    rows.Update();
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals"), "1");
}

TEST_F(SqliteEngineTest, RefusesTextThatIsNotAStatement) {
    EXPECT_EQ(DatabaseFailureOf([&] { Run(""); }), "The statement is empty.");
    EXPECT_EQ(DatabaseFailureOf([&] { Run(" -- nothing"); }), "The statement is empty.");
    EXPECT_EQ(DatabaseFailureOf([&] { Run("Select 1; Select 2"); }),
              "Only one statement can be run at a time.");
    DatabaseFailureOf([&] { Run("Select 'never closed"); });
    DatabaseFailureOf([&] { Run("EXEC sp_help"); });
    DatabaseFailureOf([&] { Run("Select ?"); });
}

TEST_F(SqliteEngineTest, AFailureInTheMiddleOfAResultGivesNoRows) {
    Recordset rows;
    DatabaseFailureOf([&] {
        rows.Open("Select abs(column1) From (Values (1), (-9223372036854775808))", connection);
    });
    EXPECT_EQ(rows.State(), adStateClosed);
}

} // namespace

} // namespace Quillane
