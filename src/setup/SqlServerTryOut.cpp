#include "setup/SqlServerTryOut.h"

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <optional>

namespace Quillane {

namespace {

constexpr int secondsToConnect = 15;

bool HoldsAny(std::string_view words, std::initializer_list<std::string_view> any) {
    return std::any_of(any.begin(), any.end(), [words](std::string_view each) {
        return words.find(each) != std::string_view::npos;
    });
}

// The words of the drivers themselves, which are the same in every language of the server.

bool TellsOfNoDriver(std::string_view words) {
    return HoldsAny(words, {"is not installed"});
}

bool TellsOfNoServer(std::string_view words) {
    return HoldsAny(words, {"Unable to connect:", "Unknown host", "connection timed out",
                            "does not exist or access denied"});
}

bool TellsOfBreakingOff(std::string_view words) {
    return HoldsAny(words, {"Adaptive Server connection failed"});
}

std::string Address(const SqlServerPlace& place) {
    return place.server + (place.port.empty() ? "" : ", port " + place.port);
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

/// Why the station could not work on what is there.
std::string WhyUnfit(const SqlServerContents& found) {
    if (HoldsAny(UpperCase(found.collation), {"_CS", "_BIN"}))
        return "The sign-in works, but this database tells capitals from small letters "
               "(collation " +
               found.collation + "). A station needs one that does not.";
    if (found.isComplete || found.mayBeMade)
        return {};
    if (found.missing.empty())
        return "The sign-in works, but nobody is set up to sign in at a station, and this sign-in "
               "may not change that. Please give the owner's below, for the set-up alone.";
    return "The sign-in works, but these are missing or closed to it, and it may not make them: " +
           Joined(found.missing) + ". Please give the owner's below, for the set-up alone.";
}

std::string WhatIsThere(const SqlServerContents& found) {
    if (found.isComplete)
        return "It works. There is a station's database: " +
               (found.company.companyName.empty() ? "no company" : found.company.companyName) +
               "; " + Plural(found.arrivals, "arrival", "arrivals") + ", " +
               Plural(found.users, "user", "users") + ".";
    if (found.isEmpty)
        return "It works. The database holds nothing of a station's yet; the set-up makes all of "
               "it.";
    if (found.missing.empty())
        return "It works. Nobody is set up to sign in at a station yet; the set-up adds the first "
               "user.";
    return "It works. The set-up makes what is missing and changes nothing else: " +
           Joined(found.missing) + ".";
}

bool Opens(SqlServerPlace place, const char* database) {
    place.database = database;
    try {
        OpenSqlServer(place);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

/// A server that is away, or a driver, need not be asked a second time.
bool ServerTakes(const SqlServerPlace& place, std::string_view words) {
    return !TellsOfNoDriver(words) && !TellsOfNoServer(words) && !TellsOfBreakingOff(words) &&
           Opens(place, "master");
}

/// Whether the station's own sign-in is one; that the database does not know it yet is no fault,
/// since the owner can change that.
std::optional<std::string> FaultOfStation(const SqlServerPlace& station, std::string& answer) {
    try {
        OpenSqlServer(station);
    } catch (const Failure& failure) {
        const std::string words = failure.Description();
        if (!ServerTakes(station, words))
            return "The owner's sign-in works, but not the station's.\n" +
                   WhyItDoesNotOpen(station, words, false);
        answer += station.windowsSignIn
                      ? " The station's own sign-in is not known to the database yet; once the "
                        "set-up has made the role StationOperator, make it a member there."
                      : " The station's own sign-in is not known to the database yet; the set-up "
                        "adds it with the role StationOperator.";
    }
    return std::nullopt;
}

TryOut Judge(const SqlServerPlace& station, const OwnerSignIn& owner, Connection& connection) {
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

SqlServerPlace PlaceForSetUp(const SqlServerPlace& station, const OwnerSignIn& owner) {
    SqlServerPlace place = station;
    if (owner.IsGiven()) {
        place.windowsSignIn = false;
        place.userName = owner.userName;
        place.password = owner.password;
    }
    return place;
}

std::unique_ptr<Connection> OpenSqlServer(const SqlServerPlace& place, int commandSeconds) {
    auto connection = std::make_unique<Connection>();
    connection->ConnectionTimeout = secondsToConnect;
    connection->CommandTimeout = commandSeconds;
    connection->Open("Driver=SQL Server;" + ConfigFragment(place, DriverOfThisSystem()));
    connection->CursorLocation = adUseClient;
    return connection;
}

TryOut TrySqlServer(const SqlServerPlace& station, const OwnerSignIn& owner) {
    const SqlServerPlace place = PlaceForSetUp(station, owner);
    std::unique_ptr<Connection> connection;
    try {
        connection = OpenSqlServer(place);
    } catch (const Failure& failure) {
        const std::string words = failure.Description();
        return {.works = false,
                .answer = WhyItDoesNotOpen(place, words, ServerTakes(place, words)),
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

std::string WhyItDoesNotOpen(const SqlServerPlace& place, std::string_view wordsOfDriver,
                             bool serverAnswers) {
    const std::string words = "\n" + std::string(wordsOfDriver);
    if (TellsOfNoDriver(wordsOfDriver))
        return std::string(wordsOfDriver);
    if (serverAnswers)
        return "The server answers, but there is no database \"" + place.database +
               "\", or it does not know this sign-in; the owner's, below, can change that." + words;
    if (TellsOfNoServer(wordsOfDriver))
        return "No SQL Server answers at " + Address(place) +
               ". Please see that it runs, that name and port are right, and that no firewall "
               "stands between." +
               words;
    if (TellsOfBreakingOff(wordsOfDriver) && place.windowsSignIn)
        return "The Windows sign-in does not get through to " + Address(place) +
               ". It needs a computer that belongs to the server's domain." + words;
    if (TellsOfBreakingOff(wordsOfDriver))
        return "The server at " + Address(place) +
               " breaks the connection off. It may ask for another encryption than the options do, "
               "or be no SQL Server." +
               words;
    if (HoldsAny(wordsOfDriver, {"Login failed"}))
        return "The server refuses the sign-in: the name or the password is wrong." + words;
    return "The server refuses the connection." + words;
}

} // namespace Quillane
