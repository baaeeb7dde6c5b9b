#pragma once

#include "MoveFixture.h"

#include "office/move/MoveToServer.h"
#include "platform/ado/ConnectionAttributes.h"
#include "servers/SqlServerDatabase.h"

#include <QStringList>

namespace Quillane::Office {

/// A station on an embedded database with the sample rows, and an empty database on the SQL Server
/// of the test run.
class StationToMoveToServer : public StationToMove {
protected:
    StationToMoveToServer() { server.Open(database.ConnectionString()); }

    SqlServerTarget Place() const {
        const ConnectionAttributes entries(database.ConnectionString());
        return {.server = entries.Get("Server"),
                .port = entries.Get("Port"),
                .database = entries.Get("Database"),
                .userName = entries.Get("UID"),
                .password = entries.Get("PWD")};
    }
    MoveOrder Order() const {
        return {.stationFolder = station.folder.path, .database = Database(), .place = Place()};
    }
    std::optional<MovedStation> MoveIt() { return MoveToServer(Order(), work); }
    std::string FailureOfMove(const MoveOrder& order) {
        return FailureOf([&] { MoveToServer(order, work); }).Description();
    }
    QStringList CommandLine() const {
        const SqlServerTarget place = Place();
        const auto text = [](const std::string& utf8) { return QString::fromStdString(utf8); };
        return {"--station",
                text(station.folder.path),
                "--move-to-server",
                text(place.server),
                "--port",
                text(place.port),
                "--database",
                text(place.database),
                "--user",
                text(place.userName),
                "--yes"};
    }
    void ExpectMoved(const std::map<std::string, long>& counts) {
        EXPECT_EQ(CountsThere(server, counts), counts);
        EXPECT_EQ(Config(), ConfigFileText(ConfigFragment(Place(), DriverOfThisSystem())));
        EXPECT_EQ(Counts(), counts) << "the old file is kept";
    }
    /// Deletes the rows of the server's database.
    void ForgetMove() {
        EmbeddedFile file(Database(), SQLITE_OPEN_READONLY);
        TargetDatabase target(server, DialectOfSqlServer());
        const std::vector<SourceTable> tables = SourceDatabase(file).Tables();
        for (auto table = tables.rbegin(); table != tables.rend(); ++table)
            target.Clear(table->name);
    }

    SqlServerDatabase database;
    Connection server; ///< a second session, of the owner
};

} // namespace Quillane::Office
