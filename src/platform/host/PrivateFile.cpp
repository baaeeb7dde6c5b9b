#include "platform/host/PrivateFile.h"

#include "platform/runtime/Paths.h"

#include <QFile>
#include <QString>

#include <filesystem>

namespace Quillane {

namespace {

bool FolderSharesItsGroup(const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path folder = PathOf(path).parent_path();
    std::error_code error;
    return (fs::status(folder, error).permissions() & fs::perms::set_gid) != fs::perms::none;
}

} // namespace

void MakePrivateFile(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly))
        return;
    MakePrivate(file);
    if (FolderSharesItsGroup(path))
        file.setPermissions(file.permissions() | QFileDevice::ReadGroup | QFileDevice::WriteGroup);
}

void MakePrivate(QFileDevice& file) {
    constexpr QFileDevice::Permissions others =
        QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    file.setPermissions(file.permissions() & ~others);
}

} // namespace Quillane
