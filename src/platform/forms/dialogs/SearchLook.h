#pragma once

#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"

#include <QSize>

#include <initializer_list>
#include <string_view>

class QHBoxLayout;

/// The common layout of the search screens: filters at the top, then the list, then the buttons.
namespace Quillane {

/// Adds a caption and its filter to the row of filters. The filter is at least ten digits wide.
void AddFilter(QHBoxLayout& filters, std::string_view caption, VisualControl& filter,
               int stretch = 0);

/// Lays out the screen and resizes it to two thirds of the display, but not below `least` pixels if
/// the display is large enough.
void LayOutSearch(Screen& screen, QHBoxLayout& filters, VisualControl& list,
                  std::initializer_list<VisualControl*> buttons, QSize least);

/// Clears a text box without calling its change handler.
void Blank(TextBox& box);

} // namespace Quillane
