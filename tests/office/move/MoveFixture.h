#pragma once

#include "PostgresTarget.h"

#include "platform/runtime/LongWork.h"
#include "servers/PostgresServer.h"
#include "setup/EmbeddedFile.h"
#include "station/StationDatabase.h"
#include "support/FailureOf.h"
#include "support/SkipIfMissing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace Quillane::Office {

/// A station on an embedded database with the sample rows.
class StationToMove : public testing::Test {
protected:
    StationToMove() { station.folder.Write("Config.ini", config); }

    std::string Database() const { return station.folder.File("Account1.db"); }
    std::string Config() const { return station.folder.Read("Config.ini"); }

    /// The numbers of rows, counted by SQLite.
    std::map<std::string, long> Counts() {
        EmbeddedFile file(Database(), SQLITE_OPEN_READONLY);
        const SourceDatabase source(file);
        std::map<std::string, long> counts;
        for (const SourceTable& table : source.Tables())
            counts[table.name] = file.FirstNumber(("SELECT count(*) FROM " + table.name).c_str());
        return counts;
    }
    static std::map<std::string, long> CountsThere(Connection& server,
                                                   const std::map<std::string, long>& here) {
        std::map<std::string, long> counts;
        for (const auto& [table, rows] : here)
            counts[table] = server.Execute("SELECT COUNT(*) FROM " + table).Fields(0).Long();
        return counts;
    }
    /// Checks that the station starts on its complete old database, and that no file is left next
    /// to it.
    void ExpectTheOldStation(const std::map<std::string, long>& counts) {
        EXPECT_EQ(Config(), config);
        {
            Connection connection;
            station.Open(connection);
            EXPECT_EQ(connection.Execute("PRAGMA integrity_check").Fields(0).Text(), "ok");
        }
        EXPECT_EQ(Counts(), counts);
        EXPECT_FALSE(station.folder.Has("Account1.db.move"));
    }
    /// As many arrivals as a mill has in a year, without bag lines.
    void AddArrivals(int arrivals) {
        EmbeddedFile file(Database(), SQLITE_OPEN_READWRITE);
        file.Run("BEGIN");
        for (int id = 0; id < arrivals; ++id)
            file.Run("INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) SELECT "
                     "?, '2026-11-20T00:00:00', min(CommodityId), '6010001' FROM Commodities",
                     {std::to_string(3000 + id)});
        file.Run("COMMIT");
    }
    std::set<std::string> KeptConfigs() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(station.folder.path))
            if (entry.path().filename().string().starts_with("Config-before-move-"))
                names.insert(entry.path().filename().string());
        return names;
    }

    static constexpr const char* config = "Server=(embedded);Database=Account1\n";
    StationDatabase station{SampleParticulars(), StationEngine::Embedded};
    LongWork work;
};

/// The same station, and an empty database on a PostgreSQL server.
class MoveToPostgres : public StationToMove {
protected:
    void SetUp() override {
        SKIP_IF_MISSING(PostgresServer::WhyMissing());
        database.emplace();
        server.Open(database->ConnectionString());
    }

    PostgresTarget Target() const { return TargetBy(database->ConnectionString()); }
    PostgresTarget TargetBy(const std::string& connectionString) const {
        return {Database(), connectionString, station.folder.path};
    }
    std::optional<MovedStation> MoveTo(const PostgresTarget& target) {
        return Move(
            station.folder.path, Database(), [&](LongWork&) { return target.Connect(); }, work);
    }
    /// The failure of a move to a server that is changed just before.
    std::string FailureOfMoveTo(const std::function<void(MoveServer&)>& change) {
        const PostgresTarget target = Target();
        const auto connect = [&](LongWork&) {
            MoveServer to = target.Connect();
            change(to);
            return to;
        };
        return FailureOf([&] { Move(station.folder.path, Database(), connect, work); })
            .Description();
    }
    std::optional<MovedStation> MoveIt() { return MoveTo(Target()); }
    std::string FailureOfMove() {
        return FailureOf([&] { MoveIt(); }).Description();
    }
    void ExpectMoved(const std::map<std::string, long>& counts) {
        EXPECT_EQ(CountsThere(server, counts), counts);
        EXPECT_EQ(Config(), PostgresTarget::Config);
        EXPECT_EQ(Counts(), counts) << "the old file is kept";
    }

    std::optional<PostgresDatabase> database;
    Connection server; ///< a second session
};

} // namespace Quillane::Office
