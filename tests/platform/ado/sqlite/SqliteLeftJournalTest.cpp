// A journal that was left next to the file: by a station that was interrupted, or by another state
// of the database.

#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <fstream>
#include <iterator>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

std::string Contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class SqliteLeftJournal : public testing::Test {
protected:
    void SetUp() override {
        folder.RunScript("CREATE TABLE Arrivals (ArrivalID INTEGER PRIMARY KEY, SellerId TEXT);"
                         "CREATE INDEX BySeller ON Arrivals (SellerId);"
                         "CREATE TABLE Lines (LineId INTEGER PRIMARY KEY, ArrivalId INTEGER "
                         "REFERENCES Arrivals)");
        Save(1, 3000);
    }
    /// Stores arrivals with these numbers, each with a line, and writes the journal back.
    void Save(int first, int last) const {
        Connection station;
        folder.Open(station);
        SaveBy(station, first, last);
        ASSERT_TRUE(station.WriteBack());
    }
    static void SaveBy(Connection& station, int first, int last) {
        const std::string numbers = "With N(I) As (Select " + std::to_string(first) +
                                    " Union All Select I + 1 From N Where I < " +
                                    std::to_string(last) + ") ";
        station.Execute(numbers + "Insert Into Arrivals Select I, 'party ' || (I % 90) From N");
        station.Execute(numbers + "Insert Into Lines (ArrivalId) Select I From N");
    }
    fs::path Copy(const std::string& name) const { return folder.Folder() / name; }
    fs::path Log() const { return folder.File().string() + "-wal"; }
    fs::path Index() const { return folder.File().string() + "-shm"; }
    /// Copies file and log in their present state, as a power failure leaves them.
    void CutOff(Connection& station) const {
        fs::copy_file(folder.File(), Copy("file"));
        fs::copy_file(Log(), Copy("log"));
        station.Close();
        fs::rename(Copy("file"), folder.File());
        fs::rename(Copy("log"), Log());
    }
    std::string OpeningFailure() const {
        Connection station;
        return DatabaseFailureOf([&] { folder.Open(station); });
    }
    std::string Arrivals() const {
        Connection station;
        folder.Open(station);
        return station.Execute("Select Count(*) From Arrivals").Fields(0).Text();
    }

    EmbeddedFolder folder;
};

TEST_F(SqliteLeftJournal, OfAnInterruptedStationIsUsed) {
    Connection station;
    folder.Open(station);
    SaveBy(station, 3001, 3001);
    CutOff(station);
    ASSERT_GT(fs::file_size(Log()), 0U);
    EXPECT_EQ(Arrivals(), "3001");
    EXPECT_FALSE(fs::exists(Log())) << "the journal is written back at the end";
}

TEST_F(SqliteLeftJournal, OfAnotherStateIsRefusedAndNoFileIsChanged) {
    fs::copy_file(folder.File(), Copy("backup"));
    Save(3001, 3010);
    Connection station;
    folder.Open(station);
    SaveBy(station, 3011, 3011);
    CutOff(station);
    fs::rename(Copy("backup"), folder.File());
    const std::string file = Contents(folder.File()), log = Contents(Log());
    const std::string files = folder.File().string() + "-wal";
    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(
            OpeningFailure(),
            "The journal " + files + " does not belong to the database file " +
                folder.File().string() +
                ": it belongs to an earlier state of the database, before a copy replaced it. "
                "Please move " +
                files + " and " + Index().string() +
                " to another folder and start the program again.");
        EXPECT_EQ(Contents(folder.File()), file);
        EXPECT_EQ(Contents(Log()), log);
    }
    fs::remove(Log());
    fs::remove(Index());
    EXPECT_EQ(Arrivals(), "3000");
}

// Each table has one page, so every page is consistent.
TEST_F(SqliteLeftJournal, OfAnotherStateIsRefusedForMissingReferencedRows) {
    folder.RunScript("CREATE TABLE Loads (Id INTEGER PRIMARY KEY);"
                     "CREATE TABLE Bags (Id INTEGER PRIMARY KEY, LoadId INTEGER REFERENCES Loads)");
    fs::copy_file(folder.File(), Copy("backup"));
    folder.RunScript("INSERT INTO Loads VALUES (7)");
    Connection station;
    folder.Open(station);
    station.Execute("Insert Into Bags (LoadId) Values (7)");
    CutOff(station);
    fs::rename(Copy("backup"), folder.File());
    EXPECT_NE(OpeningFailure().find("does not belong"), std::string::npos);
}

TEST_F(SqliteLeftJournal, OfADamagedFileIsReportedAsDamage) {
    Connection station;
    folder.Open(station);
    SaveBy(station, 3001, 3001);
    CutOff(station);
    {
        std::fstream file(folder.File(), std::ios::in | std::ios::out | std::ios::binary);
        for (int page = 2; page < 8; ++page) {
            file.seekp(page * 4096);
            file << std::string(4096, 'x');
        }
    }
    const std::string words = OpeningFailure();
    EXPECT_EQ(words, "The database file " + folder.File().string() +
                         " is damaged. Please put the last backup in its place, move " +
                         Log().string() + " and " + Index().string() +
                         " to another folder and start the program again.");
}

TEST_F(SqliteLeftJournal, OfARunningStationIsAccepted) {
    Connection station;
    folder.Open(station);
    SaveBy(station, 3001, 3100);
    EXPECT_EQ(Arrivals(), "3100");
    SaveBy(station, 3101, 3101);
    EXPECT_EQ(Arrivals(), "3101");
}

TEST_F(SqliteLeftJournal, IsFoundInAFolderWithAnyName) {
    const fs::path odd = folder.Folder() / "50% #1? کانٹا";
    fs::create_directory(odd);
    fs::copy_file(folder.File(), odd / "Account1.db");
    Save(3001, 3010);
    Connection station;
    folder.Open(station);
    SaveBy(station, 3011, 3011);
    fs::copy_file(Log(), odd / "Account1.db-wal");
    Connection other;
    other.SetEmbeddedSupport({odd.string()});
    EXPECT_NE(DatabaseFailureOf([&] {
                  other.Open(EmbeddedFolder::connectionString);
              }).find("does not belong"),
              std::string::npos);
}

} // namespace

} // namespace Quillane
