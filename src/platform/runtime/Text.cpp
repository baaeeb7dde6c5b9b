#include "platform/runtime/Text.h"

#include <algorithm>

namespace Quillane {

namespace {

std::string_view TrimAny(std::string_view text, std::string_view characters) {
    const std::size_t first = text.find_first_not_of(characters);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

} // namespace

std::string_view Trim(std::string_view text) {
    return TrimAny(text, " ");
}

std::string_view TrimWhiteSpace(std::string_view text) {
    return TrimAny(text, " \t\r\n");
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return LowerCase(a) == LowerCase(b); });
}

std::string Doubled(std::string_view text, char mark) {
    std::string doubled;
    for (const char c : text)
        doubled.append(c == mark ? 2 : 1, c);
    return doubled;
}

} // namespace Quillane
