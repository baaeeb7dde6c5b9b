#include "setup/EmbeddedSchema.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/sqlite/SqliteFile.h"
#include "platform/forms/core/Text.h"
#include "platform/host/PrivateFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "setup/DatabaseScripts.h"
#include "setup/EmbeddedFile.h"

#include <QFile>

namespace Quillane {

namespace {

constexpr int FileAlreadyExists = 58;
constexpr int NewFile = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;

void AddUser(EmbeddedFile& file, std::string_view name, std::string_view password,
             std::string_view level, HashCost cost) {
    file.Run("INSERT INTO StationUsers (UserName, PasswordHash, UserLevel) VALUES (?, ?, ?)",
             {name, HashPassword(password, cost), level});
}

void AddParticulars(EmbeddedFile& file, const NewDatabase& particulars) {
    const auto add = [&file](std::string_view key, std::string_view value) {
        file.Run("INSERT INTO Project_Registry (registrykey, value) VALUES (?, ?)", {key, value});
    };
    add("CompanyName", particulars.companyName);
    add("CompanyAddress", particulars.companyAddress);
    add("CompanyPhone", particulars.companyPhone);
    add("CompanyEmail", particulars.companyEmail);
}

/// The second user, unless the first one has the same name.
void AddSampleUser(EmbeddedFile& file, const NewDatabase& particulars) {
    if (!EqualIgnoringCase(particulars.userName, SampleUserName))
        AddUser(file, SampleUserName, SampleUserName, "2", particulars.hashCost);
}

void Build(const std::string& path, const NewDatabase& particulars) {
    MakePrivateFile(path);
    EmbeddedFile file(path, NewFile);
    // The file is not visible to others yet, so a journal in memory is enough. One transaction
    // waits for the disk only once.
    file.Run("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON;"
             "BEGIN");
    file.Run(DatabaseScripts::EmbeddedSchema);
    AddParticulars(file, particulars);
    AddUser(file, particulars.userName, particulars.password, "1", particulars.hashCost);
    if (particulars.sampleRows) {
        file.Run(DatabaseScripts::EmbeddedSampleRows);
        AddSampleUser(file, particulars);
    }
    file.Run("COMMIT");
}

[[noreturn]] void FailAlreadyThere(const std::string& file) {
    throw Failure(FileAlreadyExists, "There is already a file " + file, FailureSource::Database);
}

// The journal of a database that was moved away or deleted. The engine would apply it to the new
// one, and it may contain the last changes of the old one.
void RefuseJournals(const std::string& file) {
    for (const char* ending : {"-wal", "-journal"})
        if (QFile::exists(ToQt(file + ending)))
            throw Failure(
                FileAlreadyExists,
                "There is still a file of an earlier database here:\r\n" + file + ending +
                    "\r\nMove it to the folder of that database, or delete it if that database is "
                    "no longer needed. Then try again.",
                FailureSource::Database);
}

void ReadParticulars(EmbeddedFile& file, EmbeddedDatabase& found) {
    found.companyName =
        file.FirstText("SELECT value FROM Project_Registry WHERE registrykey = 'CompanyName'");
    found.arrivals = file.FirstNumber("SELECT count(*) FROM Arrivals");
    found.users = file.FirstNumber("SELECT count(*) FROM StationUsers");
}

} // namespace

bool HoldsStationTables(EmbeddedFile& file) {
    return file.FirstNumber(
               "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name COLLATE NOCASE IN"
               " ('Arrivals', 'ArrivalsBody', 'PortSettings', 'Project_Registry', 'StationUsers',"
               " 'StationSchema')") == 6;
}

void CreateEmbeddedDatabase(const std::string& file, const NewDatabase& particulars) {
    if (QFile::exists(ToQt(file)))
        FailAlreadyThere(file);
    RefuseJournals(file);
    const std::string unfinished = file + ".new";
    QFile::remove(ToQt(unfinished));
    Build(unfinished, particulars);
    // This rename never replaces a file.
    QFile finished(ToQt(unfinished));
    if (finished.rename(ToQt(file)))
        return;
    if (QFile::exists(ToQt(file)))
        FailAlreadyThere(file);
    throw Failure(FailureNumber::PathAccess, FromQt(finished.errorString()) + ": " + file,
                  FailureSource::Database);
}

EmbeddedDatabase LookAtEmbeddedDatabase(const std::string& file) {
    EmbeddedDatabase found;
    if (!QFile::exists(ToQt(file)))
        return found;
    try {
        found.kind = EmbeddedDatabase::Kind::NoAccess;
        EmbeddedFile session(file, SQLITE_OPEN_READWRITE);
        // It may belong to another state of the database, which the start will detect.
        if (HasLogWithContents(file))
            session.LeaveJournal();
        session.Run("PRAGMA schema_version");
        found.kind = HoldsStationTables(session) ? EmbeddedDatabase::Kind::OfStations
                                                 : EmbeddedDatabase::Kind::Foreign;
        if (found.kind == EmbeddedDatabase::Kind::OfStations)
            ReadParticulars(session, found);
    } catch (const Failure& failure) {
        if (CodesOf(failure).native == SQLITE_NOTADB)
            found.kind = EmbeddedDatabase::Kind::Unknown;
    }
    return found;
}

} // namespace Quillane
