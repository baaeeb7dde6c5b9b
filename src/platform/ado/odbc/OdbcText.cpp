#include "platform/ado/odbc/OdbcText.h"

#include <cstdint>
#include <cstring>

namespace Quillane {

namespace {

static_assert(sizeof(SQLWCHAR) == 2, "the driver manager's wide characters are UTF-16");

constexpr char32_t replacement = 0xFFFD;

bool IsHighHalf(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowHalf(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Removes one character from the front; bytes that are not UTF-8 one by one.
char32_t TakeCharacter(std::string_view& rest) {
    const auto lead = static_cast<unsigned char>(rest.front());
    rest.remove_prefix(1);
    if (lead < 0x80)
        return lead;
    const std::size_t more = lead >= 0xF0 && lead < 0xF8   ? 3
                             : lead >= 0xE0 && lead < 0xF0 ? 2
                             : lead >= 0xC2 && lead < 0xE0 ? 1
                                                           : 0;
    if (more == 0 || rest.size() < more)
        return replacement;
    char32_t character = lead & (0x3Fu >> more);
    for (std::size_t i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(rest[i]);
        if ((byte & 0xC0) != 0x80)
            return replacement;
        character = (character << 6) | (byte & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (character < smallest[more] || character > 0x10FFFF || IsHighHalf(character) ||
        IsLowHalf(character))
        return replacement;
    rest.remove_prefix(more);
    return character;
}

char32_t TakeCharacter(const SQLWCHAR*& at, const SQLWCHAR* end) {
    const char32_t unit = *at++;
    if (!IsHighHalf(unit))
        return IsLowHalf(unit) ? replacement : unit;
    if (at == end || !IsLowHalf(*at))
        return replacement;
    return 0x10000 + ((unit - 0xD800) << 10) + (*at++ - 0xDC00u);
}

char* PutUtf8(char* to, char32_t character) {
    const auto put = [&to](char32_t byte) { *to++ = static_cast<char>(byte); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | (character >> 6));
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | (character >> 12));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | (character >> 18));
        put(0x80 | ((character >> 12) & 0x3F));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    }
    return to;
}

/// Most texts are ASCII only: four characters at a time.
char* PutAsciiRun(char* to, const SQLWCHAR*& at, const SQLWCHAR* end) {
    constexpr std::uint64_t beyondAscii = 0xFF80FF80FF80FF80;
    for (std::uint64_t four = 0; end - at >= 4; at += 4) {
        std::memcpy(&four, at, sizeof four);
        if ((four & beyondAscii) != 0)
            break;
        for (int i = 0; i < 4; ++i)
            *to++ = static_cast<char>(at[i]);
    }
    return to;
}

} // namespace

OdbcText ToOdbc(std::string_view utf8) {
    OdbcText text;
    text.reserve(utf8.size() + 1);
    while (!utf8.empty()) {
        const char32_t character = TakeCharacter(utf8);
        if (character < 0x10000) {
            text.push_back(static_cast<SQLWCHAR>(character));
        } else {
            text.push_back(static_cast<SQLWCHAR>(0xD800 + ((character - 0x10000) >> 10)));
            text.push_back(static_cast<SQLWCHAR>(0xDC00 + (character & 0x3FF)));
        }
    }
    text.push_back(0);
    return text;
}

void AppendUtf8(std::string& utf8, const SQLWCHAR* text, std::size_t length) {
    constexpr std::size_t bytesOfUnit = 3;
    const std::size_t before = utf8.size();
    utf8.resize(before + length * bytesOfUnit);
    char* const begin = utf8.data() + before;
    char* to = begin;
    const SQLWCHAR* const end = text + length;
    while (text != end) {
        to = PutAsciiRun(to, text, end);
        for (int i = 0; i < 4 && text != end; ++i)
            to = PutUtf8(to, TakeCharacter(text, end));
    }
    utf8.resize(before + static_cast<std::size_t>(to - begin));
}

std::string FromOdbc(const SQLWCHAR* text, std::size_t length) {
    std::string utf8;
    AppendUtf8(utf8, text, length);
    return utf8;
}

} // namespace Quillane
