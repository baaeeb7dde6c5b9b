#include "office/backup/Restore.h"

#include "office/backup/BackupFiles.h"
#include "office/backup/HeldDatabase.h"
#include "platform/forms/core/Text.h"
#include "platform/host/Files.h"
#include "platform/host/PrivateFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace Quillane::Office {

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

constexpr qint64 bytesInOneStep = 1'048'576;

[[noreturn]] void Refuse(const std::string& text) {
    throw Failure(FailureNumber::PathAccess, text);
}

[[noreturn]] void FailToCopy(const QFile& file) {
    Refuse("The copy cannot be brought next to the database: " + FromQt(file.errorString()) + " (" +
           FromQt(file.fileName()) +
           "). Please check the rights in the folder and the space on its disk. The database is as "
           "it was.");
}

bool IsSameFile(const std::string& left, const std::string& right) {
    std::error_code error;
    return fs::equivalent(PathOf(left), PathOf(right), error);
}

/// A restore that was killed just before the old file was replaced has left it a second name.
void RemoveSecondNames(const std::string& database) {
    const QFileInfo info(ToQt(database));
    const QStringList form{info.completeBaseName() + "-before-restore-*.db"};
    for (const QFileInfo& old : info.dir().entryInfoList(form, QDir::Files))
        if (IsSameFile(FromQt(old.filePath()), database))
            QFile::remove(old.filePath());
}

/// What is not one file by itself, or is the database that is to be replaced.
void RefuseByFiles(const std::string& database, const std::string& copy) {
    if (!FileExists(copy))
        throw Failure(FailureNumber::FileNotFound, "There is no file " + copy + ".");
    if (!QFileInfo(ToQt(copy)).isFile())
        Refuse(copy + " is not a file.");
    if (IsSameFile(copy, database))
        Refuse(copy + " is the database that is to be replaced. Please name a copy of it.");
    for (const char* ending : {"-wal", "-journal"})
        if (QFileInfo(ToQt(copy + ending)).size() > 0)
            Refuse("The file " + copy + " has a journal, " + copy + ending +
                   ", with changes that are not in the file. Please use a copy that has none.");
}

void CopyBytes(const std::string& from, const std::string& to, LongWork& work) {
    QFile source(ToQt(from));
    QFile target(ToQt(to));
    if (!source.open(QIODevice::ReadOnly))
        FailToCopy(source);
    if (!target.open(QIODevice::WriteOnly))
        FailToCopy(target);
    work.Begin("Copying " + from, static_cast<int>(source.size() / bytesInOneStep) + 1);
    for (int step = 0; !source.atEnd(); ++step) {
        const QByteArray bytes = source.read(bytesInOneStep);
        if (source.error() != QFileDevice::NoError)
            FailToCopy(source);
        if (target.write(bytes) != bytes.size() || !target.flush())
            FailToCopy(target);
        if (!work.Advance(step))
            throw BrokenOff();
    }
}

std::string FolderOf(const std::string& file) {
    return FromQt(QFileInfo(ToQt(file)).path());
}

/// "Account1-before-restore-20261122-104149.db", a second later where there is one.
std::string NameOfOld(const std::string& database) {
    const QFileInfo info(ToQt(database));
    const std::string base =
        FromQt(info.path() + "/" + info.completeBaseName()) + "-before-restore-";
    Clock::time_point time = Clock::now();
    while (FileExists(base + TimeInName(time) + ".db"))
        time += std::chrono::seconds(1);
    return base + TimeInName(time) + ".db";
}

} // namespace

Restoration::Restoration(std::string database, const std::string& copy, LongWork& work)
    : database_(std::move(database)), lock_(database_), checked_(database_ + ".restore") {
    RefuseByFiles(database_, copy);
    RemoveSecondNames(database_);
    { const HeldDatabase inTime(database_); }
    try {
        QFile::remove(ToQt(checked_));
        MakePrivateFile(checked_);
        CopyBytes(copy, checked_, work);
        contents_ = LookThrough(checked_, copy, work);
        RefuseForeign(checked_, contents_, copy);
        BringToDisk(checked_);
    } catch (...) {
        QFile::remove(ToQt(checked_));
        throw;
    }
}

Restoration::~Restoration() {
    QFile::remove(ToQt(checked_));
}

std::string Restoration::PutInPlace() {
    HeldDatabase present(database_);
    TakeRightsOf(present.Exists() ? database_ : FolderOf(database_), checked_);
    const std::string old = NameOfOld(database_);
    present.ReplaceBy(checked_, old);
    return present.Exists() ? old : std::string();
}

} // namespace Quillane::Office
