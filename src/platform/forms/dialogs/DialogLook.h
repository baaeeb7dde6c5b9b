#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Pointer.h"

class QDialog;
class QGridLayout;
class QHBoxLayout;
class QVBoxLayout;

/// The common look of the dialogs before the start screen and of those of the office.
namespace Quillane {

/// Adds a coloured head with a title, a small note at its right and a line below it, and returns
/// the column for the contents.
QVBoxLayout* DialogColumn(QDialog& dialog, std::string_view title, Label& subtitle,
                          std::string_view note = {});

/// The same with contents that scroll if the display is too small, and with `buttons` below them,
/// which stay visible. Requires: `FitToDisplay` at the end of the layout.
QVBoxLayout* ScrollingColumn(QDialog& dialog, std::string_view title, Label& subtitle,
                             QHBoxLayout& buttons);

/// Sets the size of a dialog with a scrolling column: as high as its contents, but not larger than
/// the display.
void FitToDisplay(QDialog& dialog, int width);

/// Scrolls a part of a scrolling column into view.
void BringIntoSight(QWidget& part);

/// Adds a row: a caption and a box. Alt with the letter after the ampersand in the caption moves
/// the focus to the box.
void AddField(QGridLayout& grid, std::string_view caption, TextBox& box);

/// Adds a row: two captions, each with its box.
void AddFields(QGridLayout& grid, std::string_view leftCaption, TextBox& left,
               std::string_view rightCaption, TextBox& right);

/// Adds a row: a heading across all columns.
void AddHeading(QGridLayout& grid, std::string_view text);

/// Adds a row: a check box in the column of the boxes.
void AddCheck(QGridLayout& grid, CheckBox& check);

/// Adds a row: two options that exclude each other, across all columns.
void AddOptions(QGridLayout& grid, OptionButton& left, OptionButton& right);

/// Adds a row: a text that may change and a button, across all columns.
void AddTextAndButton(QGridLayout& grid, Label& text, CommandButton& button);

/// Adds a button to a row. `leading` marks the button that Enter presses in the end.
void AddButton(QHBoxLayout& row, CommandButton& button, bool leading);

/// Plain text, wrapped, at least as high as this number of lines.
void LookLikeText(Label& label, int lines);

/// Dark red text that keeps its space while it is empty.
void LookLikeMessage(Label& label);

} // namespace Quillane
