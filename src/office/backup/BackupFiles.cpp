#include "office/backup/BackupFiles.h"

#include "office/backup/Contents.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"

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

constexpr qint64 bytesOfStep = 1'048'576;

const QString timeForm = "yyyyMMdd-HHmmss";

QString TimeText(const QDateTime& time) {
    return time.toString(timeForm);
}

QDateTime QtTime(Clock::time_point time) {
    return QDateTime::fromSecsSinceEpoch(Clock::to_time_t(time));
}

/// Lists the names of backups in the folder that have this suffix.
QStringList NamesIn(const QString& folder, const std::string& database, const QString& suffix) {
    const QRegularExpression form("^" + QRegularExpression::escape(ToQt(database)) +
                                  "-\\d{8}-\\d{6}" + QRegularExpression::escape(ending + suffix) +
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

std::optional<Clock::time_point> TimeOfName(const std::string& file) {
    const QString name = QFileInfo(ToQt(file)).completeBaseName();
    const QDateTime time = QDateTime::fromString(name.right(timeForm.size()), timeForm);
    if (!time.isValid())
        return std::nullopt;
    return Clock::from_time_t(time.toSecsSinceEpoch());
}

std::vector<std::string> BackupsIn(const std::string& folder, const std::string& database) {
    const QFileInfo info(ToQt(folder));
    if (info.exists() && !info.isReadable())
        Refuse(folder, "cannot be read. Check the rights of this user in it.");
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
    for (const char* suffix : {".part", ".part-wal", ".part-shm", ".part-journal"})
        for (const QString& name : NamesIn(ToQt(folder), database, suffix))
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
        Refuse(folder, "does not exist. No backup has been made. Create the folder, connect its "
                       "drive, or name another folder.");
    if (!info.isDir())
        Refuse(folder, "is not a folder. No backup has been made. Name another folder.");
    QTemporaryFile attempt(info.filePath() + "/quillane-XXXXXX.part");
    if (!attempt.open())
        Refuse(folder,
               "is not writable: " + FromQt(attempt.errorString()) +
                   ". No backup has been made. Check the rights of this user in it, or name "
                   "another folder.");
}

void CopyBytes(QFile& source, const std::string& target, const std::string& step, LongWork& work,
               const std::function<void(const QFile&)>& fail) {
    QFile copy(ToQt(target));
    if (!source.open(QIODevice::ReadOnly))
        fail(source);
    if (!copy.open(QIODevice::WriteOnly))
        fail(copy);
    work.Begin(step, static_cast<int>(source.size() / bytesOfStep) + 1);
    for (int done = 0; !source.atEnd(); ++done) {
        const QByteArray bytes = source.read(bytesOfStep);
        if (source.error() != QFileDevice::NoError)
            fail(source);
        if (copy.write(bytes) != bytes.size() || !copy.flush())
            fail(copy);
        if (!work.Advance(done))
            throw Cancelled();
    }
}

void Rename(const std::string& file, const std::string& name) {
    QFile moved(ToQt(file));
    if (!moved.rename(ToQt(name)))
        throw Failure(FailureNumber::PathAccess, FromQt(moved.errorString()) + ": " + name);
    FlushToDisk(FromQt(QFileInfo(ToQt(name)).path()));
}

void CopyPermissions([[maybe_unused]] const std::string& from,
                     [[maybe_unused]] const std::string& file) {
#ifndef _WIN32
    struct stat rights {};
    if (::stat(from.c_str(), &rights) != 0)
        return;
    constexpr mode_t readAndWrite = 0666;
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    if (::chown(file.c_str(), rights.st_uid, rights.st_gid) == 0 ||
        ::chown(file.c_str(), sameOwner, rights.st_gid) == 0)
        ::chmod(file.c_str(), rights.st_mode & readAndWrite);
#endif
}

} // namespace Quillane::Office
