#pragma once

#include <string>
#include <string_view>

/// Edits of the text of a `Station.ini`. Comments, blank lines, the order and the line ends are
/// kept.
namespace Quillane {

/// Returns the value of a key; empty if there is none.
std::string StationEntry(std::string_view text, std::string_view section, std::string_view key);

/// Returns the text with a value stored under a key. An existing entry is replaced; a new one is
/// inserted into its section in numerical order of the keys. A missing section is appended.
std::string WithStationEntry(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

/// Returns the text without the entry. The section is kept even if it is now empty.
std::string WithoutStationEntry(std::string_view text, std::string_view section,
                                std::string_view key);

} // namespace Quillane
