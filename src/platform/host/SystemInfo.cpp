#include "platform/host/SystemInfo.h"

#include <QString>
#include <QSysInfo>

namespace Quillane {

std::string SystemInfo::OsName() {
    return QSysInfo::prettyProductName().toStdString();
}

} // namespace Quillane
