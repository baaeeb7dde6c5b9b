#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Pointer.h"

class QDialog;
class QGridLayout;
class QHBoxLayout;
class QVBoxLayout;

/// The common look of the dialogs that come before the start screen.
namespace Quillane {

/// The hourglass for as long as it lives; then the pointer that was there before.
class Hourglass {
public:
    Hourglass() { SetMousePointer(MousePointer::Hourglass); }
    ~Hourglass() { SetMousePointer(before_); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    MousePointer before_ = CurrentMousePointer();
};

/// The dialog's column of contents below a coloured head with a title and a line under it. The note
/// is small, at the right of the title.
QVBoxLayout* DialogColumn(QDialog& dialog, std::string_view title, Label& subtitle,
                          std::string_view note = {});

/// The same with contents that scroll where the display is too small for them, and `buttons` below,
/// always in sight. `FitToDisplay` belongs at the end of the layout.
QVBoxLayout* ScrollingColumn(QDialog& dialog, std::string_view title, Label& subtitle,
                             QHBoxLayout& buttons);

/// Gives a dialog with a scrolling column its size: as high as its contents, within the display.
void FitToDisplay(QDialog& dialog, int width);

/// Scrolls a part of a scrolling column into sight.
void BringIntoSight(QWidget& part);

/// A caption, whose letter behind the ampersand leads to the box, and the box beside it, as the
/// next row of the grid.
void AddField(QGridLayout& grid, std::string_view caption, TextBox& box);

/// Two captions with their boxes side by side, as the next row of the grid.
void AddFields(QGridLayout& grid, std::string_view leftCaption, TextBox& left,
               std::string_view rightCaption, TextBox& right);

/// A heading across all columns, as the next row of the grid.
void AddHeading(QGridLayout& grid, std::string_view text);

/// A check box below the boxes, as the next row of the grid.
void AddCheck(QGridLayout& grid, CheckBox& check);

/// Options side by side that exclude each other, across all columns of the grid's next row.
void AddOptions(QGridLayout& grid, OptionButton& left, OptionButton& right);

/// A text that may change, and a button beside it, across all columns of the grid's next row.
void AddTextAndButton(QGridLayout& grid, Label& text, CommandButton& button);

/// A button of the dialog's width; the leading one is the one that Enter ends in.
void AddButton(QHBoxLayout& row, CommandButton& button, bool leading);

/// Plain text, wrapped, with room for so many lines.
void LookLikeText(Label& label, int lines);

/// Dark red text that keeps its place while it is empty.
void LookLikeMessage(Label& label);

} // namespace Quillane
