#include "platform/ado/EmbeddedFolder.h"
#include "platform/ado/Recordset.h"
#include "support/FailureOf.h"

namespace Quillane {

namespace {

class SqliteStatementsTest : public testing::Test {
protected:
    void SetUp() override {
        folder.Open(connection);
        folder.RunScript("CREATE TABLE Arrivals (ArrivalID INTEGER PRIMARY KEY, Bilty TEXT, "
                         "Net REAL CHECK (Net <> 13));"
                         "INSERT INTO Arrivals VALUES (1, '7', 81.5), (2, '07', 4100), "
                         "(100000000000000000, '', 0)");
    }

    std::string One(const std::string& statement) {
        const Recordset rows = connection.Execute(statement);
        return rows.RecordCount() == 1 ? rows.Fields(0).Text() : "no single row";
    }

    EmbeddedFolder folder;
    Connection connection;
};

TEST_F(SqliteStatementsTest, ReturnTheRowsOfEachNumber) {
    struct Case {
        const char* end;
        const char* bilty;
    };
    constexpr Case cases[] = {
        {"ArrivalID = 1", "7"},
        {"ArrivalID = 2", "07"},
        {"ArrivalID =1", "7"},
        {"ArrivalID=2", "07"},
        {"ArrivalID = 3", "no single row"},
        {"ArrivalID = 002", "07"},
        {"ArrivalID = 100000000000000000", ""},
        {"ArrivalID = 1000000000000000000", "no single row"},
        {"ArrivalID = 99999999999999999999999", "no single row"},
        {"ArrivalID = -1", "no single row"},
        {"ArrivalID = 1.0", "7"},
        {"Net = 4100", "07"},
        {"Net = 81.5", "7"},
        {"Net >= 4100", "07"},
        {"Bilty = 7", "7"}, // a text column compares with the number's text
        {"Bilty = '07'", "07"},
        {"ArrivalID = 1 ", "7"},
        {"ArrivalID = 2;", "07"},
        {"ArrivalID = 2 -- = 1", "07"},
        {"ArrivalID = 1 /* = 2", "7"},
    };
    for (int round = 0; round < 2; ++round)
        for (const Case& c : cases)
            EXPECT_EQ(One(std::string("Select Bilty From Arrivals Where ") + c.end), c.bilty)
                << c.end;
}

TEST_F(SqliteStatementsTest, KeepTheNamesOfTheirColumns) {
    for (const char* column : {"1 = 5", "1 = 6"}) {
        const std::string select = std::string("Select ") + column;
        EXPECT_EQ(connection.Execute(select).FieldName(0), column);
        EXPECT_EQ(
            connection.Execute("Select (Select 1 Where 1=1), " + std::string(column)).FieldName(1),
            column);
    }
    for (const char* column : {"Net = 5", "Net = 6"})
        EXPECT_EQ(connection
                      .Execute(std::string("Delete From Arrivals Where ArrivalID = 9 Returning ") +
                               column)
                      .FieldName(0),
                  column);
}

TEST_F(SqliteStatementsTest, KeepTheNumberOfAnOrderThatNamesAColumn) {
    const Recordset rows = connection.Execute(
        "Select ArrivalID = 2 From Arrivals Where ArrivalID < 3 Union "
        "Select ArrivalID = 2 From Arrivals Where ArrivalID < 3 Order By ArrivalID = 2");
    ASSERT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.ValueAt(1, 0).Long(), 1);
}

TEST_F(SqliteStatementsTest, CreateViewsAndIndexesThatEndInANumber) {
    connection.Execute("Create View Seconds As Select * From Arrivals Where ArrivalID = 2");
    EXPECT_EQ(One("Select Bilty From Seconds"), "07");
    connection.Execute("Create Unique Index OneEmpty On Arrivals (Bilty) Where Net = 0");
    EXPECT_EQ(One("Select Bilty From Arrivals Where Net = 0"), "");
}

TEST_F(SqliteStatementsTest, ReportTheirOwnText) {
    const auto failing = [&](std::string_view statement) {
        return DatabaseFailureOf([&] { connection.Execute(statement); });
    };
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(failing("Select Bilty From Arrival Where ArrivalID = 1"),
                  "no such table: Arrival");
        EXPECT_EQ(failing("Select Bilty From Arrivals Where Id = 1"), "no such column: Id");
        EXPECT_EQ(failing("Select Bilty From Arrivals Where = 1"), "near \"=\": syntax error");
        EXPECT_EQ(failing("Select Bilty From Arrivals Where Bilty = 'a = 1"),
                  "unrecognized token: \"'a = 1\"");
        EXPECT_EQ(failing("Select Bilty From Arrivals Where ArrivalID = ? And Net = 1"),
                  "The statement does not have as many parameters as values were given.");
        EXPECT_EQ(failing("Select 1; Select Bilty From Arrivals Where ArrivalID = 1"),
                  "Only one statement can be run at a time.");
    }
}

TEST_F(SqliteStatementsTest, ChangeAndRemoveTheRowOfEachNumber) {
    connection.Execute("Update Arrivals Set Net = 5 Where ArrivalID = 1");
    connection.Execute("Update Arrivals Set Net = 5 Where ArrivalID = 3");
    connection.Execute("Delete From Arrivals Where ArrivalID = 2");
    EXPECT_EQ(One("Select Count(*) From Arrivals Where Net = 5"), "1");
    EXPECT_EQ(One("Select Count(*) From Arrivals"), "2");
}

TEST_F(SqliteStatementsTest, SeeASchemaChangeOfAnotherSession) {
    const std::string all = "Select * From Arrivals Where ArrivalID = 2";
    EXPECT_EQ(connection.Execute(all).FieldCount(), 3);
    folder.RunScript("ALTER TABLE Arrivals ADD COLUMN Driver TEXT DEFAULT 'Ghulam'");
    const Recordset rows = connection.Execute(all);
    ASSERT_EQ(rows.FieldCount(), 4);
    EXPECT_EQ(rows.Fields("Driver").Text(), "Ghulam");
    folder.RunScript("ALTER TABLE Arrivals RENAME TO Loads");
    EXPECT_EQ(DatabaseFailureOf([&] { connection.Execute(all); }), "no such table: Arrivals");
    folder.RunScript("ALTER TABLE Loads RENAME TO Arrivals");
    EXPECT_EQ(connection.Execute(all).Fields("Driver").Text(), "Ghulam");
}

TEST_F(SqliteStatementsTest, HoldNoLockBetweenRuns) {
    One("Select Bilty From Arrivals Where ArrivalID = 1");
    folder.RunScript("UPDATE Arrivals SET Bilty = 'B-7781' WHERE ArrivalID = 1;"
                     "PRAGMA wal_checkpoint(TRUNCATE)");
    EXPECT_EQ(One("Select Bilty From Arrivals Where ArrivalID = 1"), "B-7781");
    connection.Execute("Drop Table Arrivals");
}

TEST_F(SqliteStatementsTest, RunAgainAfterARefusal) {
    const std::string add = "Insert Into Arrivals Select ArrivalID + 10, Bilty, Net - 4087 "
                            "From Arrivals Where ArrivalID = ";
    EXPECT_EQ(DatabaseFailureOf([&] { connection.Execute(add + "2"); }),
              "CHECK constraint failed: Net <> 13");
    connection.Execute(add + "1");
    EXPECT_EQ(DatabaseFailureOf([&] { connection.Execute(add + "1"); }),
              "UNIQUE constraint failed: Arrivals.ArrivalID");
    EXPECT_EQ(One("Select Bilty From Arrivals Where ArrivalID = 11"), "7");
}

TEST_F(SqliteStatementsTest, AreCorrectWhenThereAreMany) {
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 200; ++i)
            EXPECT_EQ(One("Select " + std::to_string(i) + " From Arrivals Where ArrivalID = 1"),
                      std::to_string(i));
}

} // namespace

} // namespace Quillane
