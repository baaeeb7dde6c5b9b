#pragma once

#include "platform/forms/core/Control.h"

#include <QColor>

namespace Quillane {

/// A screen's colour, blue in the high byte, as Qt's.
QColor ToQt(Colour colour);

} // namespace Quillane
