#include "platform/host/WholeFile.h"

#include "platform/host/PrivateFile.h"
#include "platform/runtime/Failure.h"

#include <QFile>
#include <QSaveFile>

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

} // namespace Quillane
