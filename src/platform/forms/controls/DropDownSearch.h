#pragma once

#include "platform/runtime/RowArray.h"

#include <QString>

#include <optional>

namespace Quillane {

/// The rows of a pick list whose names (column 0) match a typed text, ignoring case.
struct NameMatch {
    std::optional<int> named;     ///< the first row of exactly this name
    std::optional<int> beginning; ///< the first row whose name begins with it
};

/// An empty text matches nothing.
NameMatch MatchName(const RowArray& rows, const QString& typed);

/// The name in a row, as shown.
QString NameAt(const RowArray& rows, int row);

} // namespace Quillane
