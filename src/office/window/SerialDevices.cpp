#include "office/window/SerialDevices.h"

#include "platform/forms/core/Text.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>

namespace Quillane::Office {

namespace {

// An adapter keeps this name in every socket, and after a restart.
QString LastingName(const QString& systemName) {
    const QDir byId("/dev/serial/by-id");
    const QString target = QFileInfo(systemName).canonicalFilePath();
    for (const QFileInfo& link : byId.entryInfoList(QDir::System | QDir::Files))
        if (!target.isEmpty() && link.canonicalFilePath() == target)
            return link.absoluteFilePath();
    return systemName;
}

} // namespace

std::vector<SerialDevice> SerialDevices() {
    std::vector<SerialDevice> devices;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        QStringList facts{port.description(), port.manufacturer(), port.serialNumber()};
        facts.removeAll(QString());
        devices.push_back({.device = FromQt(LastingName(port.systemLocation())),
                           .systemName = FromQt(port.systemLocation()),
                           .description = FromQt(facts.join(", ")),
                           .access = DescribeAccess(FromQt(port.systemLocation()))});
    }
    return devices;
}

std::string DescribeAccess(const std::string& device) {
#ifdef Q_OS_WIN
    return "Every user may open it.";
#else
    const QFileInfo file(ToQt(device));
    if (!file.exists())
        return "No such device; is it plugged in?";
    const std::string group = FromQt(file.group());
    if (file.isReadable() && file.isWritable())
        return "May be opened (group " + group + ")";
    return "Not by this user: please add it to the group " + group;
#endif
}

} // namespace Quillane::Office
