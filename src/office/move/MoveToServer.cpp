#include "office/move/MoveToServer.h"

#include "office/backup/Contents.h"
#include "office/move/MoveRows.h"
#include "platform/runtime/LongWork.h"
#include "platform/runtime/Numbers.h"
#include "setup/DatabaseScripts.h"
#include "setup/SchemaMessages.h"
#include "setup/SchemaUpgrade.h"
#include "setup/SqlServerDatabaseSetup.h"
#include "setup/SqlServerSetup.h"
#include "setup/StationSetup.h"

#include <cctype>

namespace Quillane::Office {

namespace {

constexpr int secondsForAStatement = 600;

void MakeSchema(Connection& connection, LongWork& work) {
    const auto progress = [&work](int done, int all) {
        if (done == 0)
            work.Begin("Making what is missing in the server's database", all);
        return work.Advance(done);
    };
    if (!SetUpSqlServerDatabase(connection, NewDatabase{}, progress))
        throw Cancelled();
}

// If no owner signs in, the station's own sign-in is that of the owner.
void MakeReady(Connection& connection, const MoveOrder& order, LongWork& work) {
    if (!order.owner.IsGiven())
        RenewRights(connection);
    if (!PrepareSqlServerDatabase(order.place, order.owner, nullptr, work))
        throw Cancelled();
}

// A database with an older version is upgraded together with the rest of the schema.
void RefuseNewerSchema(Connection& connection) {
    const double version = ReadSchemaVersion(connection);
    if (version > SchemaVersionOfProgram())
        throw MoveRefused(FailureNumber::Database,
                          NewerSchemaText(version, "the server's database"),
                          FailureSource::Database);
}

MoveServer ServerOf(const MoveOrder& order) {
    auto connection = OpenSqlServer(TargetForSetup(order.place, order.owner), secondsForAStatement);
    Connection& opened = *connection;
    RefuseNewerSchema(opened);
    return {
        .connection = std::move(connection),
        .dialect = DialectOfSqlServer(),
        .filledBySchema = TablesFilledBy(DatabaseScripts::SqlServerSchema),
        .makeSchema = [&opened](LongWork& work) { MakeSchema(opened, work); },
        .makeReady = [&opened, &order](LongWork& work) { MakeReady(opened, order, work); },
        .pointStation = [&order] { PointToSqlServer(order.stationFolder, order.place, {}, {}); }};
}

} // namespace

std::set<std::string> TablesFilledBy(std::string_view script) {
    constexpr std::string_view insert = "INSERT INTO dbo.";
    std::set<std::string> tables;
    for (std::size_t at = script.find(insert); at != std::string_view::npos;
         at = script.find(insert, at)) {
        at += insert.size();
        std::size_t end = at;
        while (end < script.size() &&
               (std::isalnum(static_cast<unsigned char>(script[end])) != 0 || script[end] == '_'))
            ++end;
        tables.emplace(script.substr(at, end - at));
    }
    return tables;
}

std::optional<MovedStation> MoveToServer(const MoveOrder& order, LongWork& work) {
    return Move(
        order.stationFolder, order.database, [&](LongWork&) { return ServerOf(order); }, work);
}

} // namespace Quillane::Office
