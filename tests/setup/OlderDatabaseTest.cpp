// Databases of older programs, upgraded by this one.

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "setup/DatabaseScripts.h"
#include "setup/DatabaseSetup.h"
#include "setup/SchemaUpgrade.h"
#include "station/FreshFolder.h"
#include "support/BoxAnswers.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace Quillane {

namespace {

using Rows = std::vector<std::string>;

std::string Script(const std::string& name) {
    std::ifstream file(std::string(OLDER_SCHEMAS) + "/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Two loads; the numbers of their lines have gaps.
constexpr const char* loads =
    "INSERT INTO ChartOfAccounts VALUES ('601', 'Akbar', 1);"
    "INSERT INTO Parties (PartyId) VALUES ('601');"
    "INSERT INTO Commodities (CommodityId, CommodityName) VALUES (1, 'Wheat');"
    "INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) VALUES "
    "(7, '2026-11-20T00:00:00', 1, '601'), (9, '2026-11-20T00:00:00', 1, '601');"
    "INSERT INTO ArrivalsBody VALUES "
    "(3, 7, 1, 1, 1, 10.5, 'LEA-1', 4320, 0, 81.25, 0, 17, 8203, 'Aslam', 'B-1', 'LEA-1'),"
    "(5, 7, 1, 0, 0, 20, NULL, 0, 0, 81.25, 0, 0, 1, NULL, NULL, ''),"
    "(41, 9, 1, 1, 1, 30, 'LEA-2', 0, 0, 1, 0, 0, 1, 'x', 'y', 'z');";

constexpr const char* oneMoreLine =
    "INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, "
    "TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, NetWeight) VALUES "
    "(7, 1, 1, 1, 99, 0, 0, 1, 0, 0, 99)";

/// A file of schema version 1, and the connection of this program's station on it.
class DatabaseOfVersion1 : public testing::Test {
protected:
    void SetUp() override {
        RunElsewhere(Script("schema-1.sql") + loads);
        Open(station);
        setup.SetConnection(station);
    }
    void Open(Connection& connection) const {
        connection.SetEmbeddedSupport({.folder = folder.path, .registerFunctions = {}});
        connection.Open("Server=(embedded);Database=Account1");
    }
    /// Runs statements in another session.
    void RunElsewhere(const std::string& statements) const {
        sqlite3* session = nullptr;
        ASSERT_EQ(sqlite3_open(folder.File("Account1.db").c_str(), &session), SQLITE_OK);
        sqlite3_busy_timeout(session, 10'000);
        EXPECT_EQ(sqlite3_exec(session, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(session);
        sqlite3_close(session);
    }
    static Rows RowsOf(Connection& connection, const std::string& query) {
        Rows rows;
        for (Recordset found = connection.Execute(query); !found.Eof(); found.MoveNext()) {
            std::string& row = rows.emplace_back();
            for (int field = 0; field < found.FieldCount(); ++field)
                row += found.Fields(field).TextOrEmpty() + "|";
        }
        return rows;
    }
    /// Every row of every table except the one with the version.
    std::map<std::string, Rows> Contents() {
        std::map<std::string, Rows> contents;
        for (const std::string& table :
             RowsOf(station, "Select name From sqlite_schema Where type = 'table' And name Not In "
                             "('StationSchema', 'sqlite_sequence')"))
            contents[table] =
                RowsOf(station, "Select rowid, * From " + table.substr(0, table.size() - 1));
        return contents;
    }
    Rows Definitions() {
        return RowsOf(station, "Select type, name, sql From sqlite_schema Where name Not Like "
                               "'sqlite_%' Order By type, name");
    }
    std::string NumberOfANewLine(Connection& connection) {
        connection.Execute(oneMoreLine);
        return RowsOf(connection, "Select max(LineId) From ArrivalsBody").at(0);
    }

    FreshFolder folder;
    Connection station;
    DatabaseSetupObject setup;
};

TEST_F(DatabaseOfVersion1, KeepsEveryRowAndItsNumber) {
    const auto before = Contents();
    ASSERT_EQ(before.at("ArrivalsBody|").size(), 3U);
    setup.UpgradeDatabase();
    EXPECT_EQ(setup.DatabaseVersion(), setup.ProgramVersion());
    EXPECT_EQ(Contents(), before);
    EXPECT_EQ(RowsOf(station, "PRAGMA integrity_check"), Rows{"ok|"});
    EXPECT_EQ(RowsOf(station, "PRAGMA foreign_key_check"), Rows{});
}

TEST_F(DatabaseOfVersion1, HasTheTablesAndIndexesOfANewOneAfterwards) {
    setup.UpgradeDatabase();
    const Rows upgraded = Definitions();
    station.Close();
    std::filesystem::remove(folder.File("Account1.db"));
    RunElsewhere(DatabaseScripts::EmbeddedSchema);
    Open(station);
    EXPECT_EQ(upgraded, Definitions());
}

TEST_F(DatabaseOfVersion1, ReusesNoNumberOfABagLineAfterTheUpgrade) {
    station.Execute("Delete From ArrivalsBody Where LineId = 41");
    EXPECT_EQ(NumberOfANewLine(station), "6|") << "as the older schema did";
    setup.UpgradeDatabase();
    station.Execute("Delete From ArrivalsBody Where LineId = 6");
    EXPECT_EQ(NumberOfANewLine(station), "7|");
    station.Execute("Delete From ArrivalsBody");
    EXPECT_EQ(NumberOfANewLine(station), "8|");
}

TEST_F(DatabaseOfVersion1, BeginsWithOneWithoutBagLines) {
    station.Execute("Delete From ArrivalsBody");
    setup.UpgradeDatabase();
    EXPECT_EQ(NumberOfANewLine(station), "1|");
    station.Execute("Delete From ArrivalsBody");
    EXPECT_EQ(NumberOfANewLine(station), "2|");
}

// The same for a station with the older program that is running during the upgrade.
TEST_F(DatabaseOfVersion1, ReusesNoNumberInASessionThatWasOpenBefore) {
    Connection other;
    Open(other);
    other.Execute("Delete From ArrivalsBody Where LineId = 41");
    setup.UpgradeDatabase();
    other.Execute("Delete From ArrivalsBody Where LineId = 5");
    EXPECT_EQ(NumberOfANewLine(other), "6|");
    other.Execute("Delete From ArrivalsBody Where LineId = 6");
    EXPECT_EQ(NumberOfANewLine(other), "7|");
}

TEST_F(DatabaseOfVersion1, KeepsTheObjectsOfItsOwner) {
    RunElsewhere(
        "ALTER TABLE ArrivalsBody ADD COLUMN Remarks TEXT DEFAULT 'none';"
        "CREATE INDEX LinesByDriver ON ArrivalsBody (DriverName);"
        "CREATE VIEW Nets AS SELECT ArrivalId, sum(NetWeight) AS Net FROM ArrivalsBody GROUP BY "
        "ArrivalId;"
        "CREATE TABLE Changes (LineId INTEGER REFERENCES ArrivalsBody (LineId));"
        "CREATE TRIGGER NoteChanges AFTER INSERT ON ArrivalsBody BEGIN INSERT INTO Changes "
        "VALUES (new.LineId); END;"
        "INSERT INTO Changes VALUES (41);");
    const auto before = Contents();
    const Rows definitions = Definitions();
    setup.UpgradeDatabase();
    EXPECT_EQ(Contents(), before);
    EXPECT_EQ(Definitions().size(), definitions.size());
    NumberOfANewLine(station);
    EXPECT_EQ(RowsOf(station, "Select * From Changes"), (Rows{"41|", "42|"}));
    EXPECT_EQ(RowsOf(station, "Select Net From Nets Where ArrivalId = 7"), Rows{"8303|"});
    EXPECT_EQ(RowsOf(station, "PRAGMA integrity_check"), Rows{"ok|"});
}

TEST_F(DatabaseOfVersion1, IsUpgradedOnceByTwoStationsThatStartTogether) {
    setup.UpgradeDatabase();
    const Rows definitions = Definitions();
    RunSchemaSteps(station, 1, SchemaSteps());
    EXPECT_EQ(Definitions(), definitions);
    EXPECT_EQ(RowsOf(station, "Select * From sqlite_sequence"), Rows{"ArrivalsBody|41|"});
}

TEST_F(DatabaseOfVersion1, IsNotChangedIfItsBagLinesHaveAnotherKey) {
    RunElsewhere(
        "DROP TABLE ArrivalsBody; CREATE TABLE ArrivalsBody (LineId TEXT PRIMARY KEY, ArrivalId "
        "INTEGER); INSERT INTO ArrivalsBody VALUES ('a', 7)");
    const auto before = Contents();
    const Rows definitions = Definitions();
    Testing::BoxAnswers answers;
    answers.Expect(
        Testing::Critical("CHECK constraint failed: ArrivalsBodyHasLineIdAsItsKey", "Database"));
    setup.UpgradeDatabase();
    EXPECT_EQ(setup.DatabaseVersion(), 1);
    EXPECT_EQ(Contents(), before);
    EXPECT_EQ(Definitions(), definitions);
}

TEST_F(DatabaseOfVersion1, IsUpgradedIfItsBagLinesHaveNoKey) {
    RunElsewhere(
        "DROP TABLE ArrivalsBody; CREATE TABLE ArrivalsBody (LineId INTEGER, ArrivalId INTEGER);"
        "INSERT INTO ArrivalsBody VALUES (NULL, 7)");
    const auto before = Contents();
    setup.UpgradeDatabase();
    EXPECT_EQ(setup.DatabaseVersion(), setup.ProgramVersion());
    EXPECT_EQ(Contents(), before);
}

} // namespace
} // namespace Quillane
