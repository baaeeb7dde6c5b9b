#include "platform/comm/LineDevice.h"

#include "platform/forms/core/Text.h"

#include <QFileInfo>

namespace Quillane {

std::string FaultOfDevice(const std::string& device) {
#ifdef Q_OS_WIN
    // Its devices are no files.
    return {};
#else
    const QFileInfo file(ToQt(device));
    if (!file.exists())
        return std::string(NoSuchDevice);
    return file.isReadable() ? std::string() : "this user may not use the device.";
#endif
}

} // namespace Quillane
