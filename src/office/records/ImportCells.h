#pragma once

#include "office/records/Rows.h"

#include <optional>
#include <string>

/// How the cells of a CSV file become cells of a list.
namespace Quillane::Office {

/// Why a record cannot be taken. Thrown; the record is then told as faulty.
struct Faulty {
    std::string reason;
};

/// The column that a name in a file's first line means: its header, its name in the database or its
/// caption, case and blanks around it aside.
std::optional<std::size_t> ColumnOf(const Table& table, const std::string& header);

/// The headers of a list, parted by commas.
std::string HeadersOf(const Table& table);

/// "1" for 1, yes, y, true, x; "0" for 0, no, n, false and nothing. Anything else is faulty.
std::string FlagCell(const Column& column, const std::string& cell);

/// The key of the row of this name, or else of this key. None and several are faulty.
std::string KeyNamed(const KnownRows& target, const std::string& name);

/// What a record is called in the preview, shortened.
std::string ShownName(const Row& cells);

} // namespace Quillane::Office
