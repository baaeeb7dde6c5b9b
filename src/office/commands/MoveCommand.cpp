#include "office/commands/MoveCommand.h"

#include "office/commands/StationConnection.h"
#include "office/move/MoveRows.h"
#include "office/move/MoveToServer.h"
#include "office/records/Texts.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/LongWork.h"
#include "setup/EmbeddedSchema.h"
#include "setup/SetupQuestions.h"

#include <QFileInfo>

#include <ostream>

namespace Quillane::Office {

namespace {

constexpr const char* nameOfClients = "anonymous";

/// Without passwords.
SqlServerTarget PlaceOf(const Request& request, const std::string& database) {
    const MoveRequest& wanted = request.move;
    const bool hasInstance = wanted.server.find('\\') != std::string::npos;
    SqlServerTarget place{.server = wanted.server,
                          .port = wanted.port.empty() && !hasInstance ? "1433" : wanted.port,
                          .database = wanted.database,
                          .userName = wanted.user,
                          .options = wanted.options};
    if (place.database.empty())
        place.database =
            QFileInfo(QString::fromStdString(database)).completeBaseName().toStdString();
    if (place.userName.empty() && TheStation().StationRole == "Client")
        place.userName = nameOfClients;
    place.windowsSignIn =
        place.userName.empty() && DriverOfThisSystem() == SqlServerDriver::Windows;
    return place;
}

/// The owner's password comes first, as for every command that takes --sign-in.
void AskPasswords(MoveOrder& order, Terminal& terminal) {
    const auto ask = [&](const std::string& name) {
        return terminal.password("Password of " + name + " at the database server: ");
    };
    if (order.owner.IsGiven())
        order.owner.password = ask(order.owner.userName);
    if (!order.place.windowsSignIn)
        order.place.password = ask(order.place.userName);
}

/// Empty where the server is named so that a station can use it.
std::string FaultOfPlace(const SqlServerTarget& place) {
    const auto fault = FaultOf(place, DriverOfThisSystem());
    return fault ? fault->reason : std::string();
}

std::string FaultBeforePassword(SqlServerTarget place) {
    place.password = "not asked yet";
    return place.userName.empty() && !place.windowsSignIn
               ? "The name that the station signs in with is missing: --user NAME."
               : FaultOfPlace(place);
}

bool IsConfirmed(const MoveOrder& order, const Request& request, Terminal& terminal) {
    const EmbeddedDatabase found = LookAtEmbeddedDatabase(order.database);
    terminal.out << "To move: " << order.database << ", "
                 << Counted(found.arrivals, "arrival", "arrivals") << ".\n"
                 << std::flush;
    return request.isConfirmed ||
           terminal.confirm("Move the station to " + LocationOnServer(order.place) + "?");
}

ExitCode ReportMove(const MovedStation& moved, const MoveOrder& order, Terminal& terminal) {
    terminal.out << Counted(static_cast<long>(moved.tables), "table", "tables") << " with "
                 << Counted(moved.rows, "row", "rows")
                 << " are on the server; counts, sums and checksums agree.\n"
                 << "The station works on " << LocationOnServer(order.place)
                 << " from its next start on.\n"
                 << "The database of before stays in " << moved.database
                 << ". To go back to it, replace Config.ini by " << moved.configKept << ".\n";
    for (const std::string& note : moved.notes)
        terminal.err << note << "\n";
    return ExitCode::Done;
}

ExitCode Refuse(Terminal& terminal, const std::string& why) {
    terminal.err << why << "\n";
    return ExitCode::Refused;
}

ExitCode TryOutAndMove(const MoveOrder& order, const Request& request, Terminal& terminal) {
    TryOut tried;
    terminal.runLong([&](LongWork& work) {
        work.Begin("Trying " + order.place.server);
        tried = TrySqlServer(order.place, order.owner);
    });
    if (!tried.works)
        return Refuse(terminal, tried.answer + "\nNothing has been changed.");
    terminal.out << tried.answer << "\n";
    if (!IsConfirmed(order, request, terminal)) {
        terminal.err << "Nothing has been changed. Answer yes, or give --yes.\n";
        return ExitCode::NotConfirmed;
    }
    std::optional<MovedStation> moved;
    terminal.runLong([&](LongWork& work) { moved = MoveToServer(order, work); });
    if (moved)
        return ReportMove(*moved, order, terminal);
    terminal.err << "Cancelled. The station works on its database on this computer as before. The "
                    "next move begins again.\n";
    return ExitCode::Cancelled;
}

} // namespace

ExitCode RunMove(const std::string& stationFolder, const Request& request, Terminal& terminal) {
    const std::string database = EmbeddedDatabaseOf(stationFolder);
    if (database.empty())
        return Refuse(terminal, "The station's database is on a database server already. Nothing "
                                "has been changed.");
    MoveOrder order{.stationFolder = stationFolder,
                    .database = database,
                    .place = PlaceOf(request, database),
                    .owner = {.userName = request.signIn}};
    std::string fault = FaultBeforePassword(order.place);
    if (fault.empty()) {
        AskPasswords(order, terminal);
        fault = FaultOfPlace(order.place);
    }
    if (!fault.empty()) {
        terminal.err << fault << " See --help.\n";
        return ExitCode::WrongArguments;
    }
    try {
        return TryOutAndMove(order, request, terminal);
    } catch (const MoveRefused& refused) {
        return Refuse(terminal, refused.Description());
    }
}

} // namespace Quillane::Office
