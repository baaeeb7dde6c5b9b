#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Office {

/// One record of a CSV file.
struct CsvRecord {
    int line = 0;                     ///< its first line, counted from 1
    std::vector<std::string> cells{}; ///< unchanged, with their blanks
    std::string fault{};              ///< why the record is invalid; empty if it is valid
};

struct CsvFile {
    char separator = ',';
    std::vector<CsvRecord> records{}; ///< without empty lines
    std::string fault{};              ///< why the file is invalid; empty if it is valid
};

/// Reads a CSV file (RFC 4180) in UTF-8, with or without a byte order mark. Lines end with CR LF or
/// LF. The separator is the one of comma, semicolon and tab that is most frequent in the first
/// line.
CsvFile ReadCsv(std::string_view text);

/// Formats a record with its line end. Cells are quoted if necessary.
std::string CsvLine(const std::vector<std::string>& cells);

/// The byte order mark, by which spreadsheets recognise UTF-8.
inline constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

} // namespace Quillane::Office
