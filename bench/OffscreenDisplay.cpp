#include "OffscreenDisplay.h"

#include <QFile>

namespace Quillane {

OffscreenDisplay::OffscreenDisplay() {
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    QFile screens(folder_.filePath("screens.json"));
    if (screens.open(QIODevice::WriteOnly))
        screens.write(R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false,
            "screens": [{"name": "gate", "x": 0, "y": 0, "width": 1920, "height": 1080,
                         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    // The platform warns for each window that it does not support a minimum size.
    qputenv("QT_LOGGING_RULES", "default.warning=false;default.info=false");
}

} // namespace Quillane
