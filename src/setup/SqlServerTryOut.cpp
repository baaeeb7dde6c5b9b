#include "setup/SqlServerTryOut.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <optional>

namespace Quillane {

namespace {

constexpr int secondsToConnect = 15;

bool IsAnyOf(long code, std::initializer_list<long> codes) {
    return std::ranges::find(codes, code) != codes.end();
}

bool IsMissingDriver(const EngineCodes& codes) {
    return codes.state == "IM002";
}

/// 17 is the number of the driver of Windows, the others are those of FreeTDS: connection timed
/// out, no server at this address, no such host.
bool IsMissingServer(const EngineCodes& codes) {
    return codes.state.starts_with("HYT") || IsAnyOf(codes.native, {17, 20003, 20009, 20013});
}

/// FreeTDS: the server closes the connection.
bool IsClosedByServer(const EngineCodes& codes) {
    return codes.native == 20002;
}

bool IsWrongPassword(const EngineCodes& codes) {
    return codes.native == 18456;
}

std::string Address(const SqlServerTarget& target) {
    return target.server + (target.port.empty() ? "" : ", port " + target.port);
}

std::string Plural(long count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

bool IsCaseSensitive(std::string_view collation) {
    return collation.find("_CS") != collation.npos || collation.find("_BIN") != collation.npos;
}

/// The reason why the station cannot work with this database; empty if it can.
std::string WhyUnfit(const SqlServerContents& found) {
    if (IsCaseSensitive(UpperCase(found.collation)))
        return "The sign-in works, but this database is case-sensitive (collation " +
               found.collation + "). A station needs one that is not.";
    if (found.isComplete || found.mayBeCreated)
        return {};
    if (found.missing.empty())
        return "The sign-in works, but there are no users of stations, and this sign-in may not "
               "add "
               "any. Enter the owner's sign-in below; it is used only for the set-up.";
    return "The sign-in works, but these tables or functions are missing, or it has no right to "
           "use "
           "them, and it may not create them: " +
           Joined(found.missing) +
           ". Enter the owner's sign-in below; it is used only for the set-up.";
}

std::string WhatIsThere(const SqlServerContents& found) {
    if (found.isComplete)
        return "It works. This is a station's database: " +
               (found.company.companyName.empty() ? "no company" : found.company.companyName) +
               "; " + Plural(found.arrivals, "arrival", "arrivals") + ", " +
               Plural(found.users, "user", "users") + ".";
    if (found.isEmpty)
        return "It works. The database has no station tables yet; the set-up will create them.";
    if (found.missing.empty())
        return "It works. There are no users of stations yet; the set-up will add the first one.";
    return "It works. The set-up will create what is missing and change nothing else: " +
           Joined(found.missing) + ".";
}

bool Opens(SqlServerTarget target, const char* database) {
    target.database = database;
    try {
        OpenSqlServer(target);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

/// Does not ask a server that does not answer.
bool ServerAccepts(const SqlServerTarget& target, const EngineCodes& codes) {
    return !IsMissingDriver(codes) && !IsMissingServer(codes) && !IsClosedByServer(codes) &&
           Opens(target, "master");
}

/// The fault of the station's sign-in. That the database does not know it yet is no fault, because
/// the owner can change that.
std::optional<std::string> FaultOfStation(const SqlServerTarget& station, std::string& answer) {
    try {
        OpenSqlServer(station);
    } catch (const Failure& failure) {
        if (!ServerAccepts(station, CodesOf(failure)))
            return "The owner's sign-in works, but not the station's.\n" +
                   WhyItDoesNotOpen(station, failure, false);
        answer += station.windowsSignIn
                      ? " The database does not know the station's sign-in yet. After the set-up "
                        "has created the role StationOperator, make the sign-in a member of it."
                      : " The database does not know the station's sign-in yet; the set-up adds "
                        "it with the role StationOperator.";
    }
    return std::nullopt;
}

TryOut Judge(const SqlServerTarget& station, const OwnerSignIn& owner, Connection& connection) {
    TryOut result;
    result.contents = LookAtSqlServerDatabase(connection);
    result.answer = WhyNameIsUnfit(connection.DefaultDatabase());
    if (result.answer.empty())
        result.answer = WhyUnfit(result.contents);
    result.works = result.answer.empty();
    if (!result.works)
        return result;
    result.answer = WhatIsThere(result.contents);
    if (!owner.IsGiven())
        return result;
    if (const auto fault = FaultOfStation(station, result.answer)) {
        result.works = false;
        result.answer = *fault;
    }
    return result;
}

} // namespace

SqlServerTarget TargetForSetup(const SqlServerTarget& station, const OwnerSignIn& owner) {
    SqlServerTarget target = station;
    if (owner.IsGiven()) {
        target.windowsSignIn = false;
        target.userName = owner.userName;
        target.password = owner.password;
    }
    return target;
}

std::unique_ptr<Connection> OpenSqlServer(const SqlServerTarget& target, int commandSeconds) {
    auto connection = std::make_unique<Connection>();
    connection->ConnectionTimeout = secondsToConnect;
    connection->CommandTimeout = commandSeconds;
    connection->Open("Driver=SQL Server;" + ConfigFragment(target, DriverOfThisSystem()));
    connection->CursorLocation = adUseClient;
    return connection;
}

TryOut TrySqlServer(const SqlServerTarget& station, const OwnerSignIn& owner) {
    const SqlServerTarget target = TargetForSetup(station, owner);
    std::unique_ptr<Connection> connection;
    try {
        connection = OpenSqlServer(target);
    } catch (const Failure& failure) {
        const bool serverAnswers = ServerAccepts(target, CodesOf(failure));
        return {.works = false,
                .answer = WhyItDoesNotOpen(target, failure, serverAnswers),
                .contents = {}};
    }
    try {
        return Judge(station, owner, *connection);
    } catch (const Failure& failure) {
        return {.works = false,
                .answer =
                    "The sign-in works, but the database cannot be read:\n" + failure.Description(),
                .contents = {}};
    }
}

std::string WhyItDoesNotOpen(const SqlServerTarget& target, const Failure& failure,
                             bool serverAnswers) {
    const EngineCodes codes = CodesOf(failure);
    const std::string text = "\n" + failure.Description();
    if (IsMissingDriver(codes))
        return failure.Description();
    if (serverAnswers)
        return "The server answers, but there is no database \"" + target.database +
               "\", or it does not know this sign-in. The owner's sign-in, below, can change "
               "that." +
               text;
    if (IsMissingServer(codes))
        return "No SQL Server answers at " + Address(target) +
               ". Check that it runs, that name and port are correct, and that no firewall blocks "
               "the connection." +
               text;
    if (IsClosedByServer(codes) && target.windowsSignIn)
        return "The Windows sign-in does not work with " + Address(target) +
               ". It needs a computer that belongs to the server's domain." + text;
    if (IsClosedByServer(codes))
        return "The server at " + Address(target) +
               " closes the connection. It may require another encryption than the options "
               "specify, or may not be a SQL Server." +
               text;
    if (IsWrongPassword(codes))
        return "The server refuses the sign-in: the name or the password is wrong." + text;
    return "The server refuses the connection." + text;
}

} // namespace Quillane
