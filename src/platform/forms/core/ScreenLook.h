#pragma once

#include "platform/forms/core/Colours.h"

#include <QSize>

class QWidget;

/// What the layouts of the screens share. Sizes are in logical pixels.
namespace Quillane {

/// The largest size of a window on its display: the available space without the window's frame.
QSize LargestWindow(const QWidget& window);

/// True for a display with few logical pixels, such as 1280 x 800 at a scale of 2: letters, margins
/// and buttons are small there. `available` is the display's available size.
bool IsSmallDisplay(QSize available);
bool OnSmallDisplay(const QWidget& window);

/// Point size of the captions and entries of a working screen: legible at arm's length where the
/// display has space for it.
int LetterSize(const QWidget& window);
/// Sets this size for a screen. To be called before anything is laid out.
void SetLetterSize(QWidget& screen);

/// The minimum size of the buttons below a working screen.
QSize ButtonSize(const QWidget& window);

void SetFontSize(QWidget& widget, int points, bool bold);
void SetTextColour(QWidget& widget, Colour colour);

} // namespace Quillane
