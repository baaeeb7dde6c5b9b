#include "office/backup/BackupFiles.h"

#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace Quillane::Office {

namespace {

const QString ending = ".db";
const QString unfinished = ".part";

QString TimeText(const QDateTime& time) {
    return time.toString("yyyyMMdd-HHmmss");
}

QDateTime QtTime(Clock::time_point time) {
    return QDateTime::fromSecsSinceEpoch(Clock::to_time_t(time));
}

/// The names in the folder that are those of backups with this behind them.
QStringList NamesIn(const QString& folder, const std::string& database, const QString& behind) {
    const QRegularExpression form("^" + QRegularExpression::escape(ToQt(database)) +
                                  "-\\d{8}-\\d{6}" + QRegularExpression::escape(ending + behind) +
                                  "$");
    QStringList names;
    for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name))
        if (form.match(name).hasMatch())
            names.append(name);
    return names;
}

[[noreturn]] void Refuse(const std::string& folder, const std::string& why) {
    throw Failure(FailureNumber::PathAccess, "The backup folder " + folder + " " + why);
}

} // namespace

std::string TimeInName(Clock::time_point time) {
    return FromQt(TimeText(QtTime(time)));
}

std::vector<std::string> BackupsIn(const std::string& folder, const std::string& database) {
    const QFileInfo info(ToQt(folder));
    if (info.exists() && !info.isReadable())
        Refuse(folder, "cannot be read. Please check this user's rights in it.");
    std::vector<std::string> backups;
    for (const QString& name : NamesIn(ToQt(folder), database, {}))
        backups.push_back(folder + "/" + FromQt(name));
    return backups;
}

std::string FreeBackupName(const std::string& folder, const std::string& database,
                           Clock::time_point time) {
    QDateTime at = QtTime(time);
    const auto name = [&] { return folder + "/" + database + "-" + FromQt(TimeText(at) + ending); };
    while (QFile::exists(ToQt(name())))
        at = at.addSecs(1);
    return name();
}

void RemoveUnfinished(const std::string& folder, const std::string& database) {
    for (const char* behind : {".part", ".part-wal", ".part-shm", ".part-journal"})
        for (const QString& name : NamesIn(ToQt(folder), database, behind))
            QFile::remove(ToQt(folder) + "/" + name);
}

std::string UnfinishedName(const std::string& backup) {
    return backup + FromQt(unfinished);
}

std::string BackupFolderOf(const std::string& stationFolder, const StationFile& station) {
    const QDir folder(ToQt(stationFolder));
    if (station.BackupFolder.empty())
        folder.mkdir("backups");
    return FromQt(QDir::cleanPath(folder.absoluteFilePath(
        station.BackupFolder.empty() ? QString("backups") : ToQt(station.BackupFolder))));
}

void CheckBackupFolder(const std::string& folder) {
    const QFileInfo info(ToQt(folder));
    if (!info.exists())
        Refuse(folder, "does not exist. Please create it, connect the drive that holds it, or name "
                       "another folder. No backup has been made.");
    if (!info.isDir())
        Refuse(folder, "is not a folder. Please name another one. No backup has been made.");
    QTemporaryFile attempt(info.filePath() + "/quillane-XXXXXX.part");
    if (!attempt.open())
        Refuse(folder, "cannot be written: " + FromQt(attempt.errorString()) +
                           ". Please check this user's rights in it, or name another folder. No "
                           "backup has been made.");
}

void GiveName(const std::string& file, const std::string& name) {
    QFile moved(ToQt(file));
    if (!moved.rename(ToQt(name)))
        throw Failure(FailureNumber::PathAccess, FromQt(moved.errorString()) + ": " + name);
    BringToDisk(FromQt(QFileInfo(ToQt(name)).path()));
}

void TakeRightsOf([[maybe_unused]] const std::string& model,
                  [[maybe_unused]] const std::string& file) {
#ifndef _WIN32
    struct stat rights {};
    if (::stat(model.c_str(), &rights) != 0)
        return;
    constexpr mode_t readAndWrite = 0666;
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    if (::chown(file.c_str(), rights.st_uid, rights.st_gid) == 0 ||
        ::chown(file.c_str(), sameOwner, rights.st_gid) == 0)
        ::chmod(file.c_str(), rights.st_mode & readAndWrite);
#endif
}

} // namespace Quillane::Office
