#pragma once

#include <QString>

class QLineEdit;

namespace Quillane {

/// The name of a character that is not visible: "STX" or "CR" as in the manuals of devices, or its
/// code, such as "80", above 127. Empty for a visible character.
QString NameOfUnseen(QChar character);

/// Paints the names of the invisible characters over a line, each in a small box at its position.
/// To be called after the line has painted itself. The text does not change.
void PaintControlSymbols(QLineEdit& line);

} // namespace Quillane
