#include "office/backup/Restore.h"

#include "office/backup/BackupFiles.h"
#include "office/backup/HeldDatabase.h"
#include "platform/forms/core/Text.h"
#include "platform/host/Files.h"
#include "platform/host/PrivateFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"
#include "platform/runtime/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace Quillane::Office {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const std::string& text) {
    throw Failure(FailureNumber::PathAccess, text);
}

[[noreturn]] void FailToCopy(const QFile& file) {
    Refuse(
        "The backup cannot be copied into the folder of the database: " +
        FromQt(file.errorString()) + " (" + FromQt(file.fileName()) +
        "). The database has not been changed. Check the rights in the folder and the free space "
        "on its disk.");
}

bool IsSameFile(const std::string& left, const std::string& right) {
    std::error_code error;
    return fs::equivalent(PathOf(left), PathOf(right), error);
}

/// A restore that was killed just before the replacement may have left a second name of the file.
void RemoveSecondNames(const std::string& database) {
    for (const std::string& kept : KeptByRestores(database))
        if (IsSameFile(kept, database))
            QFile::remove(ToQt(kept));
}

/// Refuses a backup that is not a single file, and the database itself.
void RefuseByFiles(const std::string& database, const std::string& copy) {
    if (!FileExists(copy))
        throw Failure(FailureNumber::FileNotFound,
                      "The file " + copy + " does not exist. Check the path.");
    if (!QFileInfo(ToQt(copy)).isFile())
        Refuse(copy + " is not a file. Give the path of a backup.");
    if (IsSameFile(copy, database))
        Refuse(copy + " is the database itself. Give the path of a backup.");
    for (const char* ending : {"-wal", "-journal"})
        if (QFileInfo(ToQt(copy + ending)).size() > 0)
            Refuse("The file " + copy + " has a journal, " + copy + ending +
                   ", with changes that are not in the file. Use a copy without a journal.");
}

void CopyBackup(const std::string& from, const std::string& to, LongWork& work) {
    QFile source(ToQt(from));
    CopyBytes(source, to, "Copying " + from, work, FailToCopy);
}

/// "Account1-before-restore-20261122-104149.db", or the next second that is free.
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

std::vector<std::string> KeptByRestores(const std::string& database) {
    const QFileInfo info(ToQt(database));
    const QStringList form{info.completeBaseName() + "-before-restore-*.db"};
    std::vector<std::string> kept;
    for (const QFileInfo& file : info.dir().entryInfoList(form, QDir::Files, QDir::Name))
        kept.push_back(FromQt(file.filePath()));
    return kept;
}

Contents CheckCopy(const std::string& database, const std::string& copy, LongWork& work) {
    RefuseByFiles(database, copy);
    const Contents contents = CheckDatabase(copy, copy, work);
    RefuseForeign(copy, contents, copy);
    return contents;
}

Restoration::Restoration(std::string database, const std::string& copy, LongWork& work)
    : database_(std::move(database)), lock_(database_), checked_(database_ + ".restore") {
    RefuseByFiles(database_, copy);
    RemoveSecondNames(database_);
    { const HeldDatabase isNotInUse(database_); }
    try {
        QFile::remove(ToQt(checked_));
        MakePrivateFile(checked_);
        CopyBackup(copy, checked_, work);
        contents_ = CheckDatabase(checked_, copy, work);
        RefuseForeign(checked_, contents_, copy);
        FlushToDisk(checked_);
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
    const std::string folder = FromQt(QFileInfo(ToQt(database_)).path());
    CopyPermissions(present.Exists() ? database_ : folder, checked_);
    const std::string old = NameOfOld(database_);
    present.ReplaceBy(checked_, old);
    return present.Exists() ? old : std::string();
}

} // namespace Quillane::Office
