#pragma once

#include <QStringList>

namespace Quillane {

/// The font families for text in any script: the named one, then those installed ones that have all
/// letters of Urdu. Common fallback fonts lack some of these letters, and the letters of a word
/// that is drawn in two fonts do not join.
const QStringList& FontFamilies(const QString& name);

} // namespace Quillane
