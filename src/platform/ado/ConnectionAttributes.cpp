#include "platform/ado/ConnectionAttributes.h"

#include "platform/runtime/Text.h"

#include <algorithm>

namespace Quillane {

namespace {

std::string_view WithoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Removes a value in braces from the front of `rest`, and everything up to the semicolon.
std::string TakeBracedValue(std::string_view& rest) {
    std::string value;
    std::size_t at = 1;
    for (; at < rest.size(); ++at) {
        if (rest[at] == '}' && rest.substr(at, 2) != "}}")
            break;
        if (rest[at] == '}')
            ++at;
        value += rest[at];
    }
    rest.remove_prefix(std::min(rest.find(';', at), rest.size()));
    return value;
}

std::string TakeValue(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    if (rest.starts_with('{'))
        return TakeBracedValue(rest);
    const std::size_t end = std::min(rest.find(';'), rest.size());
    const std::string value(WithoutBlanks(rest.substr(0, end)));
    rest.remove_prefix(end);
    return value;
}

} // namespace

ConnectionAttributes::ConnectionAttributes(std::string_view text) : whole_(text) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of("=;"), rest.size());
        const std::string key(WithoutBlanks(rest.substr(0, end)));
        const bool hasValue = end < rest.size() && rest[end] == '=';
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (!hasValue)
            continue;
        entries_.emplace_back(key, TakeValue(rest));
        rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
    }
}

std::string ConnectionAttributes::Get(std::string_view key) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [key](const auto& entry) {
        return EqualIgnoringCase(entry.first, key);
    });
    return found == entries_.end() ? std::string() : found->second;
}

} // namespace Quillane
