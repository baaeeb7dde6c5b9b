#pragma once

#include "office/records/Rows.h"

#include <optional>
#include <string>

/// Converts cells of a CSV file to cells of a list.
namespace Quillane::Office {

/// Thrown if a record is invalid; the import reports the record as faulty.
struct Faulty {
    std::string reason;
};

/// Finds the column with this header, database name or caption. Case and blanks around it are
/// ignored.
std::optional<std::size_t> ColumnOf(const Table& table, const std::string& header);

/// The headers of a list, separated by commas.
std::string HeadersOf(const Table& table);

/// Returns "1" for 1, yes, y, true and x, and "0" for 0, no, n, false and the empty text. Errors:
/// throws Faulty for any other text.
std::string FlagCell(const Column& column, const std::string& cell);

/// Returns the key of the row with this name, or with this key. Errors: throws Faulty if there is
/// no such row or several.
std::string KeyNamed(const KnownRows& target, const std::string& name);

/// The name of a record in the preview, shortened.
std::string ShownName(const Row& cells);

} // namespace Quillane::Office
