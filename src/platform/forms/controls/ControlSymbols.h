#pragma once

#include <QString>

class QLineEdit;

namespace Quillane {

/// The name of a character that cannot be seen: "STX" or "CR" as the manuals of devices have them,
/// "80" (its code) above 127. Empty for one that can be seen.
QString NameOfUnseen(QChar character);

/// Paints over a line, once it has painted itself, the names of the characters in view that cannot
/// be seen: each in a small box in its own place. The text stays what it is.
void PaintControlSymbols(QLineEdit& line);

} // namespace Quillane
