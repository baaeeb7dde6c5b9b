#include "office/backup/Backup.h"

#include "office/backup/BackupFiles.h"
#include "office/backup/OnlineCopy.h"
#include "office/backup/WorkLock.h"
#include "platform/ado/AdoFailure.h"
#include "platform/forms/core/Text.h"
#include "platform/host/BackupRecord.h"
#include "platform/host/PrivateFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace Quillane::Office {

namespace {

constexpr qint64 bytesInMegabyte = 1'000'000;

/// The prefix of the names of all backups of a database: "Account1".
std::string NameOfDatabase(const std::string& file) {
    return FromQt(QFileInfo(ToQt(file)).completeBaseName());
}

Backup MakeCopy(const BackupOrder& order, LongWork& work) {
    const std::string database = NameOfDatabase(order.database);
    RemoveUnfinished(order.folder, database);
    Backup backup{.file = FreeBackupName(order.folder, database, Clock::now())};
    const std::string copy = UnfinishedName(backup.file);
    MakePrivateFile(copy);
    backup.contents = CopyOnline(order.database, copy, work);
    if (CheckDatabase(copy, copy, work) != backup.contents)
        FailDatabase("The copy " + copy +
                     " differs from the database. Check the disk, then try again.");
    FlushToDisk(copy);
    Rename(copy, backup.file);
    return backup;
}

void RemoveOldest(const BackupOrder& order, Backup& backup) {
    if (order.keep == 0)
        return;
    std::vector<std::string> older = BackupsIn(order.folder, NameOfDatabase(order.database));
    std::erase(older, backup.file);
    const auto kept = static_cast<std::size_t>(order.keep - 1);
    older.resize(older.size() - std::min(older.size(), kept));
    for (const std::string& file : older) {
        QFile old(ToQt(file));
        if (old.remove())
            backup.removed.push_back(file);
        else
            backup.notes.push_back("The old backup " + file + " cannot be removed: " +
                                   FromQt(old.errorString()) + ". Remove it by hand.");
    }
}

// The sign-in of the stations reads this record.
void Remember(const BackupOrder& order, Backup& backup) {
    try {
        WriteBackupRecord(FromQt(QFileInfo(ToQt(order.database)).path()), Clock::now(),
                          backup.file);
    } catch (const Failure& failure) {
        backup.notes.push_back(
            "The time of this backup cannot be stored for the sign-in of the stations: " +
            failure.Description() + ". Check the rights of this user in the station folder.");
    }
}

/// Returns what to do if the disk has too little space for a backup; otherwise nothing.
std::string AdviceOnSpace(const BackupOrder& order) {
    const QStorageInfo disk(ToQt(order.folder));
    const qint64 needed = QFileInfo(ToQt(order.database)).size();
    if (!disk.isValid() || disk.bytesAvailable() > needed)
        return {};
    return "\nThe disk has too little space: a backup needs about " +
           std::to_string(needed / bytesInMegabyte + 1) +
           " MB. Free some space, or name another folder.";
}

} // namespace

std::optional<Backup> BackUp(const BackupOrder& order, LongWork& work) {
    CheckBackupFolder(order.folder);
    const WorkLock lock(order.database);
    try {
        Backup backup = MakeCopy(order, work);
        RemoveOldest(order, backup);
        Remember(order, backup);
        return backup;
    } catch (const Cancelled&) {
        RemoveUnfinished(order.folder, NameOfDatabase(order.database));
        return std::nullopt;
    } catch (const Failure& failure) {
        RemoveUnfinished(order.folder, NameOfDatabase(order.database));
        throw Failure(failure.Number(),
                      "No backup has been made in " + order.folder + ": " + failure.Description() +
                          AdviceOnSpace(order) + "\nThe earlier backups have not been changed.",
                      failure.Source());
    }
}

} // namespace Quillane::Office
