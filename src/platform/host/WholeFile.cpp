#include "platform/host/WholeFile.h"

#include "platform/host/PrivateFile.h"
#include "platform/runtime/Failure.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace Quillane {

namespace {

[[noreturn]] void FailOnFile(const QFileDevice& file) {
    throw Failure(FailureNumber::PathAccess, "The file " + file.fileName().toStdString() + ": " +
                                                 file.errorString().toStdString());
}

} // namespace

std::string ReadWholeFile(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        FailOnFile(file);
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        FailOnFile(file);
    return bytes.toStdString();
}

void WriteWholeFile(const std::string& path, const std::string& bytes, FileReaders readers) {
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly))
        FailOnFile(file);
    if (readers == FileReaders::OwnerAndGroup)
        MakePrivate(file);
    if (file.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0 || !file.commit())
        FailOnFile(file);
}

#ifndef _WIN32
// Some file systems cannot flush a folder and return EINVAL.
void FlushToDisk(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const int code = file < 0 || ::fsync(file) != 0 ? errno : 0;
    if (file >= 0)
        ::close(file);
    if (code != 0 && code != EINVAL)
        throw Failure(FailureNumber::PathAccess, path + " cannot be written to disk: " +
                                                     std::system_category().message(code) + ".");
}
#else
void FlushToDisk(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (QFileInfo(file).isDir())
        return;
    if (!file.open(QIODevice::ReadWrite) || ::_commit(file.handle()) != 0)
        FailOnFile(file);
}
#endif

} // namespace Quillane
