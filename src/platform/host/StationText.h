#pragma once

#include <string>
#include <string_view>

/// Changes in the text of a `Station.ini`. Everything else in it stays as it is: comments, blank
/// lines, the order, the line ends.
namespace Quillane {

/// The value under a key; empty where there is none.
std::string StationEntry(std::string_view text, std::string_view section, std::string_view key);

/// The text with this value under a key: the entry replaced, or put into its section in the order
/// of numbered keys, or both added at the end.
std::string WithStationEntry(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

/// The text without the entry; its section stays.
std::string WithoutStationEntry(std::string_view text, std::string_view section,
                                std::string_view key);

} // namespace Quillane
