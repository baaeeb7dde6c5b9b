#include "platform/host/PrivateFile.h"

#include <QFile>
#include <QString>

namespace Quillane {

void MakePrivateFile(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (file.open(QIODevice::WriteOnly))
        MakePrivate(file);
}

void MakePrivate(QFileDevice& file) {
    constexpr QFileDevice::Permissions others =
        QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    file.setPermissions(file.permissions() & ~others);
}

} // namespace Quillane
