// The parts of the move that do not depend on SQL Server, on PostgreSQL.

#include "MoveFixture.h"

#include "office/move/MoveRows.h"
#include "servers/ServerRelay.h"
#include "support/OwnDisk.h"

#include <sys/stat.h>

#include <atomic>
#include <thread>

namespace Quillane::Office {
namespace {

bool Says(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(MoveToPostgres, StoresAllRowsAndPointsTheStationToTheServer) {
    const std::map<std::string, long> counts = Counts();
    const std::optional<MovedStation> moved = MoveIt();
    ASSERT_TRUE(moved.has_value());
    ExpectMoved(counts);
    EXPECT_EQ(moved->tables, counts.size());
    EXPECT_EQ(moved->notes, std::vector<std::string>());
    EXPECT_EQ(moved->database, Database());
    EXPECT_EQ(server.Execute("SELECT SUM(NetWeight) FROM ArrivalsBody").Fields(0).Number(),
              station.Rows("SELECT sum(NetWeight) FROM ArrivalsBody").at(0).at(0).Number());
    EXPECT_EQ(server
                  .Execute("SELECT RegistryValue FROM PortSettings WHERE RegistryKey = "
                           "'PortName'")
                  .Fields(0)
                  .Text(),
              "1")
        << "the rows of the schema's script are replaced";
    EXPECT_NE(FailureOf([&] { server.Execute("SELECT * FROM StationMove"); }).Description(), "");
}

TEST_F(MoveToPostgres, KeepsThePreviousConfigurationAndHidesTheNewOneFromOthers) {
    const std::optional<MovedStation> moved = MoveIt();
    ASSERT_TRUE(moved.has_value());
    ASSERT_EQ(KeptConfigs().size(), 1U);
    EXPECT_EQ(moved->configKept, station.folder.File(*KeptConfigs().begin()));
    EXPECT_EQ(station.folder.Read(*KeptConfigs().begin()), config);
    struct stat rights {};
    ASSERT_EQ(::stat(station.folder.File("Config.ini").c_str(), &rights), 0);
    EXPECT_EQ(rights.st_mode & 0777, 0640U);
}

TEST_F(MoveToPostgres, TextsNumbersAndDatesAreNotChanged) {
    station.Run("UPDATE Parties SET Address = 'O''Brien \u06af\u0646\u062f\u0645 \U0001F69A ' "
                "WHERE PartyId = '6010001'; UPDATE Arrivals SET PermitNo = '' WHERE ArrivalID = "
                "1031; UPDATE ArrivalsBody SET NetWeight = 0.1, NoOfBags = 12.0625 WHERE ArrivalId "
                "= 1031");
    ASSERT_TRUE(MoveIt().has_value());
    EXPECT_EQ(
        server.Execute("SELECT Address FROM Parties WHERE PartyId = '6010001'").Fields(0).Text(),
        "O'Brien \u06af\u0646\u062f\u0645 \U0001F69A ");
    const Recordset row = server.Execute(
        "SELECT A.PermitNo, A.ArrivalDate, A.CenterId, B.NetWeight, B.NoOfBags FROM Arrivals A "
        "INNER JOIN ArrivalsBody B ON B.ArrivalId = A.ArrivalID WHERE A.ArrivalID = 1031");
    EXPECT_EQ(row.Fields(0).Text(), "");
    EXPECT_EQ(
        row.Fields(1).Text(),
        station.Rows("SELECT ArrivalDate FROM Arrivals WHERE ArrivalID = 1031").at(0).at(0).Text());
    EXPECT_EQ(row.Fields(3).Number(), 0.1);
    EXPECT_EQ(row.Fields(4).Number(), 12.0625);
}

TEST_F(MoveToPostgres, OpenDatabaseIsReportedAndNothingIsDone) {
    Connection open;
    station.Open(open);
    EXPECT_TRUE(Says(FailureOfMove(), "The database " + Database() + " is in use."));
    EXPECT_EQ(Config(), config);
    EXPECT_NE(FailureOf([&] { server.Execute("SELECT * FROM Arrivals"); }).Description(), "");
}

TEST_F(MoveToPostgres, StationCannotOpenTheDatabaseDuringTheMove) {
    PostgresTarget target = Target();
    int tried = 0;
    Move(
        station.folder.path, Database(),
        [&](LongWork&) {
            MoveServer server_ = target.Connect();
            server_.makeReady = [&](LongWork&) {
                ++tried;
                Connection connection;
                connection.SetEmbeddedSupport(
                    {.folder = station.folder.path, .busyWait = std::chrono::milliseconds(0)});
                EXPECT_TRUE(Says(FailureOf([&] {
                                     connection.Open(
                                         "Driver=SQL Server;Server=(embedded);Database=Account1");
                                 }).Description(),
                                 "locked"));
            };
            return server_;
        },
        work);
    EXPECT_EQ(tried, 1);
}

/// Lets a station wait for the lock of its file, and reports when it waits.
class Waiting : public LockWait {
public:
    explicit Waiting(std::atomic<bool>& begun) { begun = true; }
    bool GoOn(std::chrono::milliseconds) override {
        std::this_thread::yield();
        return true;
    }
};

TEST_F(MoveToPostgres, StationThatWaitedDuringTheMoveDoesNotUseTheOldFile) {
    PostgresTarget target = Target();
    std::atomic<bool> waits = false;
    std::thread starting;
    std::string outcome;
    Move(
        station.folder.path, Database(),
        [&](LongWork&) {
            MoveServer server_ = target.Connect();
            server_.makeReady = [&](LongWork&) {
                starting = std::thread([&] {
                    Connection connection;
                    connection.SetEmbeddedSupport(
                        {.folder = station.folder.path,
                         .busyWait = std::chrono::minutes(5),
                         .waitForLock = [&] { return std::make_unique<Waiting>(waits); }});
                    try {
                        connection.Open("Driver=SQL Server;Server=(embedded);Database=Account1");
                        connection.Execute("Update Arrivals Set PermitNo = 'lost'");
                        outcome = "stored";
                    } catch (const Failure& failure) {
                        outcome = failure.Description();
                    }
                });
                while (!waits)
                    std::this_thread::yield();
            };
            return server_;
        },
        work);
    starting.join();
    EXPECT_NE(outcome, "stored");
    EXPECT_NE(outcome, "");
    EXPECT_EQ(
        station.Rows("SELECT count(*) FROM Arrivals WHERE PermitNo = 'lost'").at(0).at(0).Number(),
        0);
}

// ---- existing contents of the server's database ----

TEST_F(MoveToPostgres, OtherArrivalsThereAreNotChanged) {
    Target().MakeSchema(server);
    server.Execute("INSERT INTO Commodities VALUES (1, 'Barley', 1, 0, 0)");
    const std::map<std::string, long> counts = Counts();
    EXPECT_THROW(MoveIt(), MoveRefused);
    EXPECT_EQ(
        FailureOfMove(),
        "The server's database already holds rows that are not from this station: "
        "Commodities (1 row). Please name a database without them. Nothing has been changed.");
    EXPECT_EQ(server.Execute("SELECT COUNT(*) FROM Commodities").Fields(0).Long(), 1);
    ExpectTheOldStation(counts);
}

TEST_F(MoveToPostgres, AsManyRowsWithOtherValuesThereAreNotChanged) {
    ASSERT_TRUE(MoveIt().has_value());
    station.folder.Write("Config.ini", config);
    server.Execute("UPDATE ArrivalsBody SET NetWeight = NetWeight + 1 WHERE ArrivalId = 1031");
    EXPECT_TRUE(Says(FailureOfMove(), "already holds rows that are not from this station"));
    EXPECT_EQ(Config(), config);
}

TEST_F(MoveToPostgres, IfAllRowsAreThereOnlyTheStationIsPointedToThem) {
    ASSERT_TRUE(MoveIt().has_value());
    const std::map<std::string, long> counts = Counts();
    station.folder.Write("Config.ini", config);
    server.Execute("CREATE RULE nothing AS ON DELETE TO Arrivals DO INSTEAD NOTHING");
    EXPECT_TRUE(MoveIt().has_value());
    ExpectMoved(counts);
}

TEST_F(MoveToPostgres, UnfinishedMoveOfAnotherDatabaseIsNotChanged) {
    TargetDatabase(server, PostgresTarget::Dialect()).BeginMove("gate2:/mill/Account1.db");
    EXPECT_TRUE(Says(FailureOfMove(), "the unfinished move of another database, "
                                      "gate2:/mill/Account1.db."));
    EXPECT_EQ(Config(), config);
}

TEST_F(MoveToPostgres, MissingTableOrColumnIsNamed) {
    station.Run("CREATE TABLE Visitors (VisitorId INTEGER PRIMARY KEY)");
    const PostgresTarget without = Target();
    station.Run("CREATE TABLE Gatekeepers (GatekeeperId INTEGER PRIMARY KEY)");
    EXPECT_TRUE(Says(FailureOf([&] { MoveTo(without); }).Description(),
                     "The table Gatekeepers is not on the server"));
    station.Run("DROP TABLE Gatekeepers; ALTER TABLE Visitors ADD Purpose TEXT");
    EXPECT_TRUE(Says(FailureOf([&] { MoveTo(without); }).Description(),
                     "The table Visitors on the server has no column Purpose."));
    server.Execute("ALTER TABLE Visitors ADD Purpose varchar(20)");
    EXPECT_TRUE(MoveTo(without).has_value());
}

// ---- values that the server does not accept ----

TEST_F(MoveToPostgres, TextThatIsTooLongIsNamedByTableAndRow) {
    const std::map<std::string, long> counts = Counts();
    station.Run("UPDATE Parties SET Address = '" + std::string(201, 'x') +
                "' WHERE PartyId = '6010007'");
    const std::string words = FailureOfMove();
    EXPECT_TRUE(Says(words, "The move has not been finished. The server refuses a row of the table "
                            "Parties, PartyId 6010007: "))
        << words;
    EXPECT_TRUE(Says(words, "too long")) << words;
    EXPECT_TRUE(Says(words, "The station works on its database on this computer as before."))
        << words;
    ExpectTheOldStation(counts);
    station.Run("UPDATE Parties SET Address = 'Grain Market' WHERE PartyId = '6010007'");
    EXPECT_TRUE(MoveIt().has_value());
    ExpectMoved(counts);
}

TEST_F(MoveToPostgres, ValueThatTheServerChangesIsNamedByTableColumnAndRow) {
    station.Run("UPDATE ArrivalsBody SET NoOfBags = 12.00001 WHERE LineId = (SELECT max(LineId) "
                "FROM ArrivalsBody)");
    const std::string line =
        station.Rows("SELECT max(LineId) FROM ArrivalsBody").at(0).at(0).Text();
    const std::string words = FailureOfMove();
    EXPECT_TRUE(Says(words, "The table ArrivalsBody on the server does not hold what it holds "
                            "here: column NoOfBags: other values there. The first row that "
                            "differs is LineId " +
                                line + "."))
        << words;
    EXPECT_EQ(Config(), config);
}

TEST_F(MoveToPostgres, RowsAddedByAnotherSessionAreDetected) {
    int added = 0;
    const std::string words = FailureOfMoveTo([&](MoveServer& to) {
        to.connection->StatementObserver = [&](std::string_view text) {
            if (text.starts_with("SELECT CityId") && added++ == 0)
                server.Execute("INSERT INTO Cities VALUES (900, 'Nowhere')");
        };
    });
    EXPECT_TRUE(Says(words, "The table Cities on the server does not hold what it holds here: " +
                                std::to_string(Counts()["Cities"]) + " rows, there "))
        << words;
    EXPECT_EQ(Config(), config);
}

// ---- interruptions at any statement ----

class EachStatementOnPostgres : public MoveToPostgres {
protected:
    /// Moves, and calls a function before each statement with its number, from 1. Returns false if
    /// the move was cancelled or failed. If the station was moved, this is undone.
    bool MovedWith(const PostgresTarget& target, const std::function<void(int)>& atStatement) {
        int statements = 0;
        const auto connect = [&](LongWork&) {
            MoveServer to = target.Connect();
            to.connection->StatementObserver = [&](std::string_view) { atStatement(++statements); };
            return to;
        };
        words.clear();
        try {
            if (!Move(station.folder.path, Database(), connect, *observed))
                return false;
        } catch (const Failure& failure) {
            words = failure.Description();
            return false;
        }
        station.folder.Write("Config.ini", config);
        return true;
    }
    /// The number of statements of a move to an empty database.
    int CountStatements() {
        const PostgresDatabase fresh;
        int count = 0;
        EXPECT_TRUE(MovedWith(TargetBy(fresh.ConnectionString()), [&](int) { ++count; })) << words;
        return count;
    }

    std::optional<LongWork> observed{std::in_place};
    std::string words; ///< of the failure
};

TEST_F(EachStatementOnPostgres, CancelledMoveKeepsTheStationAndTheNextOneSucceeds) {
    const std::map<std::string, long> counts = Counts();
    const int statements = CountStatements();
    const PostgresTarget target = Target();
    int cancelled = 0;
    for (int at = 1; at < statements; at += 17) {
        SCOPED_TRACE(at);
        observed.emplace();
        const bool moved = MovedWith(target, [&](int statement) {
            if (statement == at)
                observed->Cancel();
        });
        EXPECT_EQ(words, "");
        cancelled += moved ? 0 : 1;
        ExpectTheOldStation(counts);
    }
    EXPECT_GT(cancelled, 3);
    EXPECT_TRUE(MoveIt().has_value());
    ExpectMoved(counts);
}

TEST_F(EachStatementOnPostgres, LostServerAtAnyStatementKeepsTheStation) {
    const std::map<std::string, long> counts = Counts();
    const int statements = CountStatements();
    ServerRelay relay(database->ConnectionString());
    const PostgresTarget target = TargetBy(relay.ConnectionString());
    int failed = 0;
    for (int at = 1; at < statements; at += 13) {
        SCOPED_TRACE(at);
        relay.Restore();
        const bool moved = MovedWith(target, [&](int statement) {
            if (statement == at)
                relay.Break(at % 2 == 0 ? ServerRelay::Moment::AtNextRequest
                                        : ServerRelay::Moment::AtNextAnswer);
        });
        EXPECT_EQ(Says(words, "The move has not been finished."), !moved) << words;
        failed += moved ? 0 : 1;
        ExpectTheOldStation(counts);
    }
    EXPECT_GT(failed, 3);
    relay.Restore();
    EXPECT_TRUE(MoveTo(target).has_value());
    ExpectMoved(counts);
}

TEST_F(MoveToPostgres, UnresponsiveServerChangesNothing) {
    const std::map<std::string, long> counts = Counts();
    const PostgresTarget away = TargetBy("Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=1;"
                                         "Database=postgres;UID=a;PWD=b");
    EXPECT_TRUE(
        Says(FailureOf([&] { MoveTo(away); }).Description(), "The move has not been finished."));
    ExpectTheOldStation(counts);
}

/// The folder of the station on a disk of its own.
class FullDiskOfMoveToPostgres : public MoveToPostgres {
protected:
    void CopyStation() const {
        for (const char* name : {"Account1.db", "Config.ini"})
            std::filesystem::copy_file(station.folder.File(name), disk.File(name));
    }
    std::optional<MovedStation> MoveIt() {
        const std::string file = disk.File("Account1.db");
        const PostgresTarget target(file, database->ConnectionString(), disk.path);
        return Move(
            disk.path, file, [&](LongWork&) { return target.Connect(); }, work);
    }

    FreshFolder disk;
};

TEST_F(FullDiskOfMoveToPostgres, ChangesNothing) {
    SKIP_IF_MISSING(OwnDisk::WhyMissing());
    const auto size = std::filesystem::file_size(Database());
    const std::map<std::string, long> counts = Counts();
    for (const auto left : {std::uintmax_t{0}, std::uintmax_t{65'536}, size - 4096}) {
        const auto move = [&] {
            CopyStation();
            const std::filesystem::path rest = FillDisk(disk.path, left);
            const std::string words = FailureOf([&] { MoveIt(); }).Description();
            EXPECT_TRUE(Says(words, "The move has not been finished. ")) << words;
            EXPECT_TRUE(Says(words, left == 0 ? " is full. Nothing has been changed. "
                                              : " the space on its disk."))
                << words;
            EXPECT_EQ(disk.Read("Config.ini"), config);
            EXPECT_FALSE(disk.Has("Account1.db.move"));
            std::filesystem::remove(rest);
            EXPECT_TRUE(MoveIt().has_value());
            EXPECT_EQ(CountsThere(server, counts), counts);
        };
        EXPECT_EXIT((OwnDisk{.folder = disk.path, .size = "4m"}.CallAndExit(move)),
                    testing::ExitedWithCode(0), "")
            << left;
    }
}

TEST_F(MoveToPostgres, ConfigurationThatCannotBeWrittenLeavesTheStationAndNoSecondCopyOfIt) {
    const std::map<std::string, long> counts = Counts();
    const std::string words = FailureOfMoveTo([](MoveServer& to) {
        to.pointStation = [] {
            throw Failure(FailureNumber::PathAccess, "no space left on the disk");
        };
    });
    EXPECT_TRUE(Says(words, "no space left on the disk")) << words;
    EXPECT_EQ(KeptConfigs(), std::set<std::string>());
    ExpectTheOldStation(counts);
    EXPECT_TRUE(MoveIt().has_value());
    ExpectMoved(counts);
}

} // namespace
} // namespace Quillane::Office
