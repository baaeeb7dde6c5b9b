#pragma once

#include <QStringList>

namespace Quillane {

/// The families to ask for where a text of any script may stand: the named one, and behind it those
/// of the installed ones that have all letters of Urdu. The fonts that are commonly fallen back to
/// lack single ones, and a word drawn in two fonts falls apart.
const QStringList& FontFamilies(const QString& name);

} // namespace Quillane
