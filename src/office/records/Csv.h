#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Office {

/// One record of a CSV file.
struct CsvRecord {
    int line = 0;                     ///< where it begins, from 1
    std::vector<std::string> cells{}; ///< as they are, blanks included
    std::string fault{};              ///< why the record cannot be taken; empty where it can
};

struct CsvFile {
    char separator = ',';
    std::vector<CsvRecord> records{}; ///< empty lines are left out
    std::string fault{};              ///< why nothing of the file can be taken; else empty
};

/// Reads a file by RFC 4180, in UTF-8 with or without a byte order mark; lines end in CR LF or LF.
/// Cells are parted by comma, semicolon or tab: whichever the first line holds most of.
CsvFile ReadCsv(std::string_view text);

/// A record with its line end, for a file in UTF-8; cells are quoted where it is needed.
std::string CsvLine(const std::vector<std::string>& cells);

/// Tells spreadsheets that the text is UTF-8.
inline constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

} // namespace Quillane::Office
