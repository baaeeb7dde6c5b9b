#include "office/move/Move.h"

#include "office/backup/BackupFiles.h"
#include "office/backup/Contents.h"
#include "office/backup/HeldDatabase.h"
#include "office/backup/WorkLock.h"
#include "office/move/MoveRows.h"
#include "platform/ado/AdoFailure.h"
#include "platform/forms/core/Text.h"
#include "platform/host/Files.h"
#include "platform/host/PrivateFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Paths.h"
#include "setup/EmbeddedSchema.h"
#include "setup/SchemaMessages.h"
#include "setup/SchemaUpgrade.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <filesystem>

namespace Quillane::Office {

namespace {

namespace fs = std::filesystem;

/// The file of the held database. Errors: this program cannot work with its state.
EmbeddedFile& UsableFile(HeldDatabase& held, const std::string& path) {
    EmbeddedFile* file = held.File();
    if (!file || !HoldsStationTables(*file))
        FailDatabase("The file " + path + " is missing or is not the database of a station.");
    const double version = ToDouble(file->FirstText("SELECT SchemaVersion FROM StationSchema"));
    if (version > SchemaVersionOfProgram())
        FailDatabase(NewerSchemaText(version));
    if (version != SchemaVersionOfProgram())
        FailDatabase(OlderSchemaText(version) + " Start the station once to upgrade it.");
    return *file;
}

[[noreturn]] void FailOnSecondFile(const QFile& file) {
    throw Failure(FailureNumber::PathAccess,
                  "The database cannot be copied next to itself: " + FromQt(file.errorString()) +
                      " (" + FromQt(file.fileName()) +
                      "). Please check the rights in the folder and the space on its disk.");
}

/// A copy of the database in another file, which replaces the file at the end. A station that was
/// waiting for the file's lock then cannot use it: the file that it has opened does not exist any
/// more.
class SecondFile {
public:
    /// `reader` is left open: closing it would end this process's lock of the database.
    SecondFile(QFile& reader, LongWork& work)
        : path_(FromQt(reader.fileName()) + ".move"), aside_(path_ + "d") {
        Remove();
        try {
            MakePrivateFile(path_);
            CopyBytes(reader, path_, "Copying the file of the database", work, FailOnSecondFile);
            FlushToDisk(path_);
            CopyPermissions(FromQt(reader.fileName()), path_);
        } catch (...) {
            Remove();
            throw;
        }
    }
    ~SecondFile() { Remove(); }
    SecondFile(const SecondFile&) = delete;
    SecondFile& operator=(const SecondFile&) = delete;

    void PutInPlace(HeldDatabase& held) { held.ReplaceBy(path_, aside_); }

private:
    void Remove() const {
        for (const std::string& path : {path_, aside_})
            QFile::remove(ToQt(path));
    }

    std::string path_;
    std::string aside_; ///< the temporary name of the replaced file
};

/// The text that identifies the unfinished move of this database on the server.
std::string MarkOf(const std::string& database) {
    constexpr std::size_t mostBytes = 1000;
    std::string mark =
        FromQt(QSysInfo::machineHostName() + ":" + QFileInfo(ToQt(database)).absoluteFilePath());
    return mark.substr(mark.size() - std::min(mark.size(), mostBytes));
}

/// Keeps a copy of `Config.ini` that other users cannot read, with the owner of the file itself.
std::string KeepConfig(const std::string& folder) {
    const std::string config = folder + "/Config.ini";
    const std::string base = folder + "/Config-before-move-";
    Clock::time_point time = Clock::now();
    while (FileExists(base + TimeInName(time) + ".ini"))
        time += std::chrono::seconds(1);
    const std::string kept = base + TimeInName(time) + ".ini";
    WriteWholeFile(kept, ReadWholeFile(config), FileReaders::OwnerAndGroup);
    CopyPermissions(config, kept);
    fs::permissions(PathOf(kept), fs::perms::others_all, fs::perm_options::remove);
    return kept;
}

class MoveOfStation {
public:
    MoveOfStation(std::string folder, std::string database, LongWork& work)
        : folder_(std::move(folder)), database_(std::move(database)), work_(work), lock_(database_),
          reader_(ToQt(database_)), held_(database_), file_(UsableFile(held_, database_)),
          source_(file_) {}

    MovedStation Run(const std::function<MoveServer(LongWork&)>& connect) {
        work_.Begin("Connecting to the server");
        MoveServer server = connect(work_);
        TargetDatabase target(*server.connection, server.dialect);
        SecondFile second(reader_, work_);
        FillTarget(server, target);
        server.makeReady(work_);
        if (work_.IsCancelled())
            throw Cancelled();
        target.EndMove();
        MovedStation moved = Described();
        moved.configKept = PointStation(server);
        ReplaceFile(second, moved);
        return moved;
    }

private:
    void FillTarget(const MoveServer& server, TargetDatabase& target) {
        const std::string mark = MarkOf(database_);
        const TargetState state = LookAtTarget(source_, target, mark, server.filledBySchema, work_);
        if (state == TargetState::Complete)
            return;
        if (state == TargetState::Free)
            target.BeginMove(mark);
        server.makeSchema(work_);
        CheckTables(source_, target);
        const Digests digests = CopyRows(source_, target, work_);
        CompareRows(source_, digests, target, work_);
    }

    MovedStation Described() const {
        MovedStation moved{.database = database_, .configKept = {}};
        moved.tables = source_.Tables().size();
        for (const SourceTable& table : source_.Tables())
            moved.rows += table.rows;
        return moved;
    }

    std::string PointStation(const MoveServer& server) const {
        const std::string kept = KeepConfig(folder_);
        try {
            server.pointStation();
        } catch (const Failure&) {
            QFile::remove(ToQt(kept));
            throw;
        }
        // The user who runs this may not be the one who runs the station.
        CopyPermissions(kept, folder_ + "/Config.ini");
        return kept;
    }

    // The station works on the server from here on, so nothing is reported as a failure any more.
    void ReplaceFile(SecondFile& second, MovedStation& moved) {
        try {
            second.PutInPlace(held_);
        } catch (const Failure& failure) {
            moved.notes.push_back(
                "A station that was starting during the move may still use the old "
                "database. Close every station and start it again. (" +
                failure.Description() + ")");
        }
    }

    std::string folder_;
    std::string database_;
    LongWork& work_;
    WorkLock lock_;
    QFile reader_; ///< of the held file; closed after the lock is released
    HeldDatabase held_;
    EmbeddedFile& file_;
    SourceDatabase source_;
};

} // namespace

std::optional<MovedStation> Move(const std::string& stationFolder, const std::string& database,
                                 const std::function<MoveServer(LongWork& work)>& connect,
                                 LongWork& work) {
    try {
        return MoveOfStation(stationFolder, database, work).Run(connect);
    } catch (const Cancelled&) {
        return std::nullopt;
    } catch (const MoveRefused&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure(failure.Number(),
                      "The move has not been finished. " + failure.Description() +
                          "\nThe station works on its database on this computer as before.",
                      failure.Source());
    }
}

} // namespace Quillane::Office
