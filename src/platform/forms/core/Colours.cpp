#include "platform/forms/core/Colours.h"

#include <QColor>

namespace Quillane {

QColor ToQt(Colour colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                  static_cast<int>(colour >> 16 & 0xFF));
}

} // namespace Quillane
