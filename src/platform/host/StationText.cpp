#include "platform/host/StationText.h"

#include "platform/runtime/Numbers.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

namespace Quillane {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The lines with their ends.
std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size() - 1);
        lines.emplace_back(text.substr(0, end + 1));
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

std::string_view Bare(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view Content(std::string_view line) {
    if (line.starts_with(byteOrderMark))
        line.remove_prefix(byteOrderMark.size());
    return Bare(line);
}

bool IsSection(std::string_view line, std::string_view name) {
    const std::string_view content = Content(line);
    return content.starts_with('[') && content.ends_with(']') &&
           EqualIgnoringCase(Bare(content.substr(1, content.size() - 2)), name);
}

/// Of a line that is an entry; empty otherwise.
std::string_view KeyOf(std::string_view line) {
    const std::string_view content = Content(line);
    const auto equals = content.find('=');
    const bool isEntry = equals != std::string_view::npos && !content.starts_with(';') &&
                         !content.starts_with('#') && !content.starts_with('[');
    return isEntry ? Bare(content.substr(0, equals)) : std::string_view();
}

int NumberOf(std::string_view key) {
    int number = 0;
    std::from_chars(key.data(), key.data() + key.size(), number);
    return number;
}

/// Where an entry is among the lines, or where it would go.
struct Place {
    std::optional<std::size_t> entry;
    std::optional<std::size_t> next; ///< the line before which it goes; none without its section
};

Place FindPlace(const std::vector<std::string>& lines, std::string_view section,
                std::string_view key) {
    Place place;
    bool inSection = false;
    bool isBeforeGreater = false;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const bool isHeader = Content(lines[line]).starts_with('[');
        if (isHeader)
            inSection = IsSection(lines[line], section);
        const std::string_view found = KeyOf(lines[line]);
        if (!inSection || (!isHeader && found.empty()))
            continue;
        if (!found.empty() && EqualIgnoringCase(found, key))
            place.entry = line;
        const bool isGreater = !found.empty() && NumberOf(found) > NumberOf(key);
        if (!isBeforeGreater)
            place.next = isGreater ? line : line + 1;
        isBeforeGreater = isBeforeGreater || isGreater;
    }
    return place;
}

std::string LineEndOf(std::string_view text) {
    const auto end = text.find('\n');
    return end != std::string_view::npos && end > 0 && text[end - 1] == '\r' ? "\r\n" : "\n";
}

} // namespace

std::string StationEntry(std::string_view text, std::string_view section, std::string_view key) {
    const std::vector<std::string> lines = Lines(text);
    const Place place = FindPlace(lines, section, key);
    if (!place.entry)
        return {};
    const std::string_view line = Content(lines[*place.entry]);
    return std::string(Bare(line.substr(line.find('=') + 1)));
}

std::string WithStationEntry(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
    std::vector<std::string> lines = Lines(text);
    const std::string lineEnd = LineEndOf(text);
    if (!lines.empty() && !lines.back().ends_with('\n'))
        lines.back() += lineEnd;
    const std::string entry = std::string(key) + "=" + std::string(value) + lineEnd;
    const Place place = FindPlace(lines, section, key);
    if (place.entry) {
        lines[*place.entry] = entry;
    } else if (place.next) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(*place.next), entry);
    } else {
        lines.push_back((lines.empty() ? "" : lineEnd) + "[" + std::string(section) + "]" +
                        lineEnd + entry);
    }
    return Joined(lines);
}

std::string WithoutStationEntry(std::string_view text, std::string_view section,
                                std::string_view key) {
    std::vector<std::string> lines = Lines(text);
    if (const Place place = FindPlace(lines, section, key); place.entry)
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(*place.entry));
    return Joined(lines);
}

} // namespace Quillane
