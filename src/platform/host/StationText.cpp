#include "platform/host/StationText.h"

#include "platform/runtime/Text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

namespace Quillane {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Splits a text into lines that keep their line ends.
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

std::string_view Content(std::string_view line) {
    if (line.starts_with(byteOrderMark))
        line.remove_prefix(byteOrderMark.size());
    return TrimWhiteSpace(line);
}

bool IsSection(std::string_view line, std::string_view name) {
    const std::string_view content = Content(line);
    return content.starts_with('[') && content.ends_with(']') &&
           EqualIgnoringCase(TrimWhiteSpace(content.substr(1, content.size() - 2)), name);
}

/// The key of an entry; empty if the line is not an entry.
std::string_view KeyOf(std::string_view line) {
    const std::string_view content = Content(line);
    const auto equals = content.find('=');
    const bool isEntry = equals != std::string_view::npos && !content.starts_with(';') &&
                         !content.starts_with('#') && !content.starts_with('[');
    return isEntry ? TrimWhiteSpace(content.substr(0, equals)) : std::string_view();
}

int NumberOf(std::string_view key) {
    int number = 0;
    std::from_chars(key.data(), key.data() + key.size(), number);
    return number;
}

/// The lines of an entry and of its insertion point.
struct EntryLine {
    std::optional<std::size_t> entry;
    std::optional<std::size_t>
        next; ///< a new entry is inserted before it; none if there is no section
};

EntryLine FindEntry(const std::vector<std::string>& lines, std::string_view section,
                    std::string_view key) {
    EntryLine at;
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
            at.entry = line;
        const bool isGreater = !found.empty() && NumberOf(found) > NumberOf(key);
        if (!isBeforeGreater)
            at.next = isGreater ? line : line + 1;
        isBeforeGreater = isBeforeGreater || isGreater;
    }
    return at;
}

std::string LineEndOf(std::string_view text) {
    const auto end = text.find('\n');
    return end != std::string_view::npos && end > 0 && text[end - 1] == '\r' ? "\r\n" : "\n";
}

} // namespace

std::string StationEntry(std::string_view text, std::string_view section, std::string_view key) {
    const std::vector<std::string> lines = Lines(text);
    const EntryLine at = FindEntry(lines, section, key);
    if (!at.entry)
        return {};
    const std::string_view line = Content(lines[*at.entry]);
    return std::string(TrimWhiteSpace(line.substr(line.find('=') + 1)));
}

std::string WithStationEntry(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
    std::vector<std::string> lines = Lines(text);
    const std::string lineEnd = LineEndOf(text);
    if (!lines.empty() && !lines.back().ends_with('\n'))
        lines.back() += lineEnd;
    const std::string entry = std::string(key) + "=" + std::string(value) + lineEnd;
    const EntryLine at = FindEntry(lines, section, key);
    if (at.entry) {
        lines[*at.entry] = entry;
    } else if (at.next) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(*at.next), entry);
    } else {
        lines.push_back((lines.empty() ? "" : lineEnd) + "[" + std::string(section) + "]" +
                        lineEnd + entry);
    }
    return Joined(lines);
}

std::string WithoutStationEntry(std::string_view text, std::string_view section,
                                std::string_view key) {
    std::vector<std::string> lines = Lines(text);
    if (const EntryLine at = FindEntry(lines, section, key); at.entry)
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(*at.entry));
    return Joined(lines);
}

} // namespace Quillane
