#include "platform/comm/LineDevice.h"

#include "platform/forms/core/Text.h"

#include <QFileInfo>

namespace Quillane {

std::string NoSuchDevice() {
    return "the device does not exist. Check that the indicator's adapter is plugged in.";
}

std::string FaultOfDevice(const std::string& device) {
#ifdef Q_OS_WIN
    // Devices are not files on Windows.
    return {};
#else
    const QFileInfo file(ToQt(device));
    if (!file.exists())
        return NoSuchDevice();
    return file.isReadable() ? std::string() : "this user has no permission to use the device.";
#endif
}

} // namespace Quillane
