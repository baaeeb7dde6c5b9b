#pragma once

#include "platform/forms/Buttons.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"

class QDialog;
class QGridLayout;
class QHBoxLayout;
class QVBoxLayout;

/// The common look of the dialogs that come before the start screen.
namespace Quillane {

inline constexpr int LongestUserName = 40;
inline constexpr int LongestPassword = 128;

/// The dialog's column of contents below a coloured head with a title and a line under it.
QVBoxLayout* DialogColumn(QDialog& dialog, std::string_view title, Label& subtitle);

/// A caption, whose letter behind the ampersand leads to the box, and the box beside it, as the
/// next row of the grid.
void AddField(QGridLayout& grid, std::string_view caption, TextBox& box);

/// A heading across both columns, as the next row of the grid.
void AddHeading(QGridLayout& grid, std::string_view text);

/// A check box below the boxes, as the next row of the grid.
void AddCheck(QGridLayout& grid, CheckBox& check);

/// A button of the dialog's width; the leading one is the one that Enter ends in.
void AddButton(QHBoxLayout& row, CommandButton& button, bool leading);

/// Dark red text that keeps its place while it is empty.
void LookLikeMessage(Label& label);

} // namespace Quillane
