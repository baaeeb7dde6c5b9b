#include "setup/SqlServerSetup.h"

#include "platform/ado/Connection.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "setup/SchemaUpgrade.h"
#include "setup/SqlServerDatabaseSetup.h"

namespace Quillane {

namespace {

std::string InQuotes(std::string_view text) {
    return "N'" + Doubled(text, '\'') + "'";
}

std::string InBrackets(std::string_view name) {
    return "[" + Doubled(name, ']') + "]";
}

bool IsNull(Connection& connection, const std::string& expression) {
    return connection.Execute("Select " + expression).Fields(0).IsNull();
}

/// The database's user for the station's sign-in; empty if there is none.
std::string UserOfStation(const SqlServerTarget& station) {
    try {
        return OpenSqlServer(station)->Execute("Select USER_NAME()").Fields(0).TextOrEmpty();
    } catch (const Failure&) {
        return {};
    }
}

// A Windows user may be a member through a group, which only the owner knows.
void AddStationUser(Connection& owner, const SqlServerTarget& station) {
    if (station.windowsSignIn)
        return;
    std::string user = UserOfStation(station);
    if (user == "dbo")
        return;
    bool isNew = false;
    if (user.empty()) {
        user = station.userName;
        isNew = IsNull(owner, "DATABASE_PRINCIPAL_ID(" + InQuotes(user) + ")");
        if (isNew)
            owner.Execute("CREATE USER " + InBrackets(user) + " FOR LOGIN " + InBrackets(user) +
                          " WITH DEFAULT_SCHEMA = Station");
    }
    const std::string isMember = "IS_ROLEMEMBER(N'StationOperator', " + InQuotes(user) + ")";
    if (owner.Execute("Select IsNull(" + isMember + ", 0)").Fields(0).Number() == 0)
        owner.Execute("ALTER ROLE StationOperator ADD MEMBER " + InBrackets(user));
    // Sets the default schema of a user that existed before.
    if (!isNew)
        RenewRights(owner);
}

void TryAsStation(const SqlServerTarget& station) {
    const TryOut tried = TrySqlServer(station, {});
    if (!tried.works || !tried.contents.isComplete)
        throw Failure(FailureNumber::Database,
                      "The database is ready, but the station's sign-in does not work:\n" +
                          tried.answer,
                      FailureSource::Database);
}

} // namespace

SetupOutcome PrepareSqlServerDatabase(const SqlServerTarget& station, const OwnerSignIn& owner,
                                      const NewDatabase* particulars, LongWork& work) {
    work.Begin("Connecting to " + station.server);
    const auto connection = OpenSqlServer(TargetForSetup(station, owner));
    const auto progress = [&work](int done, int all) {
        if (done == 0)
            work.Begin("Creating what is missing in the database", all);
        return work.Advance(done);
    };
    SetupOutcome outcome;
    if (particulars) {
        outcome = SetUpSqlServerDatabase(*connection, *particulars, progress);
        if (!outcome)
            return outcome;
    }
    work.Begin("Testing the station's sign-in");
    outcome.isFinished = !work.IsCancelled();
    if (!outcome)
        return outcome;
    if (particulars || owner.IsGiven())
        RenewRights(*connection);
    if (owner.IsGiven())
        AddStationUser(*connection, station);
    TryAsStation(station);
    outcome.isFinished = !work.IsCancelled();
    return outcome;
}

} // namespace Quillane
