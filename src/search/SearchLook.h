#pragma once

#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"

#include <QSize>

#include <initializer_list>
#include <string_view>

class QHBoxLayout;

/// What the search screens share: filters above, the list, the buttons below it.
namespace Quillane {

/// Letters of a size that is legible at arm's length where the display has room for it. To be
/// called before anything is laid out.
void SetLetterSize(Screen& screen);

/// A caption, and beside it the filter that it names, with room for ten digits at least.
void AddFilter(QHBoxLayout& filters, std::string_view caption, VisualControl& filter,
               int stretch = 0);

/// Lays the screen out and gives it two thirds of the display, at least `least` where it fits.
void LayOutSearch(Screen& screen, QHBoxLayout& filters, VisualControl& list,
                  std::initializer_list<VisualControl*> buttons, QSize least);

void SetTabOrder(std::initializer_list<VisualControl*> controls);

/// Empties a box without running its change handler.
void Blank(TextBox& box);

} // namespace Quillane
