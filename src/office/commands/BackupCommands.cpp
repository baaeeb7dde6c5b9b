#include "office/commands/BackupCommands.h"

#include "office/backup/Backup.h"
#include "office/backup/BackupFiles.h"
#include "office/backup/Restore.h"
#include "office/commands/StationConnection.h"
#include "platform/host/StationFile.h"

#include <memory>
#include <ostream>

namespace Quillane::Office {

namespace {

ExitCode ReportCancelled(Terminal& terminal) {
    terminal.err << "Cancelled. Nothing has been changed.\n";
    return ExitCode::Cancelled;
}

BackupOrder OrderOf(const std::string& stationFolder, const std::string& database,
                    const Request& request) {
    return {.database = database,
            .folder = request.folder.empty() ? BackupFolderOf(stationFolder, TheStation())
                                             : request.folder,
            .keep = request.keep == 0 ? TheStation().BackupsKept : request.keep};
}

void ReportBackup(const Backup& backup, Terminal& terminal) {
    terminal.out << "Backup " << backup.file << ": " << DescribeContents(backup.contents) << ".\n";
    for (const std::string& file : backup.removed)
        terminal.out << "Removed " << file << ".\n";
    for (const std::string& note : backup.notes)
        terminal.err << note << "\n";
}

bool IsConfirmed(const Restoration& restoration, const Request& request, Terminal& terminal) {
    terminal.out << "The backup " << request.file
                 << " is valid: " << DescribeContents(restoration.OfCopy()) << ".\n"
                 << std::flush;
    return request.isConfirmed || terminal.confirm("Replace the database of the station by it?");
}

} // namespace

ExitCode RunBackup(const std::string& stationFolder, const Request& request, Terminal& terminal) {
    const std::string database = EmbeddedDatabaseOf(stationFolder);
    if (database.empty()) {
        terminal.out << "The database is on a database server. Its owner makes the backups there; "
                        "nothing needs to be done on this station.\n";
        return ExitCode::Done;
    }
    std::optional<Backup> backup;
    terminal.runLong(
        [&](LongWork& work) { backup = BackUp(OrderOf(stationFolder, database, request), work); });
    if (!backup)
        return ReportCancelled(terminal);
    ReportBackup(*backup, terminal);
    return ExitCode::Done;
}

ExitCode RunRestore(const std::string& stationFolder, const Request& request, Terminal& terminal) {
    const std::string database = EmbeddedDatabaseOf(stationFolder);
    if (database.empty()) {
        terminal.err << "The database is on a database server. Nothing has been changed. Ask its "
                        "owner to restore it there.\n";
        return ExitCode::Refused;
    }
    std::unique_ptr<Restoration> restoration;
    terminal.runLong([&](LongWork& work) {
        try {
            restoration = std::make_unique<Restoration>(database, request.file, work);
        } catch (const Cancelled&) {
            // `restoration` is then empty.
        }
    });
    if (!restoration)
        return ReportCancelled(terminal);
    if (!IsConfirmed(*restoration, request, terminal)) {
        terminal.err << "Nothing has been changed. Answer yes, or use --yes.\n";
        return ExitCode::NotConfirmed;
    }
    const std::string old = restoration->PutInPlace();
    terminal.out << "The database has been restored.\n";
    if (!old.empty())
        terminal.out << "The previous database is kept in " << old << ". To undo this: "
                     << "quillane-office --restore " << old << "\n";
    return ExitCode::Done;
}

} // namespace Quillane::Office
