#pragma once

#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "scale/Decoding.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The decoding in its simplest form: passes over the whole text, one character code at a time. It
/// is slow, but easy to understand; the real decoding is compared with it.
namespace Quillane::DecodingReference {

inline std::string ReplaceAll(const std::string& text, std::string_view what,
                              std::string_view with) {
    std::string result;
    std::size_t at = 0;
    for (std::size_t found = text.find(what); found != std::string::npos;
         found = text.find(what, at)) {
        result.append(text, at, found - at).append(with);
        at = found + what.size();
    }
    return result.append(text, at);
}

/// 246 passes: each pass replaces a character code that is not a digit by a blank.
inline std::string SeparateDigits(std::string text) {
    for (int code = 0; code <= 255; ++code)
        if (code < '0' || code > '9')
            std::replace(text.begin(), text.end(), static_cast<char>(code), ' ');
    return text;
}

inline std::string TrimBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

inline std::string HalveBlanks(const std::string& text) {
    return ReplaceAll(text, "  ", " ");
}

/// `searchFrom` is the position, from 0, of the first character that is searched.
inline std::string DropFirstRun(const std::string& text, std::size_t searchFrom) {
    const std::size_t blank = text.find(' ', searchFrom);
    return blank == std::string::npos ? text : TrimBlanks(text.substr(blank));
}

inline std::string BeforeDropping(std::string_view rawText) {
    return HalveBlanks(TrimBlanks(SeparateDigits(std::string(rawText))));
}

/// Lengthens the token until it contains a blank. The two functions differ in the result if there
/// is none.
inline std::string WalkToBlank(const std::string& text, bool emptyAfterFruitlessRound) {
    std::string token;
    for (std::size_t length = 1; length <= text.size(); ++length) {
        token = text.substr(0, length);
        if (token.find(' ', 1) != std::string::npos)
            return token;
        if (emptyAfterFruitlessRound)
            token.clear();
    }
    return token;
}

inline std::string LiveToken(std::string_view rawText) {
    return WalkToBlank(DropFirstRun(BeforeDropping(rawText), 1), false);
}

inline std::string TestToken(std::string_view rawText) {
    return WalkToBlank(DropFirstRun(BeforeDropping(rawText), 0), true);
}

inline std::string Cut(const std::string& token, std::string_view direction, double length) {
    const std::string trimmed = TrimBlanks(token);
    const double rounded = RoundWeight(length);
    if (rounded < 0)
        Fail(FailureNumber::InvalidCall);
    const auto size = static_cast<double>(trimmed.size());
    const auto kept = static_cast<std::size_t>(std::min(rounded, size));
    return direction == "Right" ? trimmed.substr(trimmed.size() - kept) : trimmed.substr(0, kept);
}

inline std::string Reversed(const std::string& text) {
    return {text.rbegin(), text.rend()};
}

inline std::optional<std::string> DecodeLiveWeight(std::string_view rawText,
                                                   const LiveReading& reading) {
    if (rawText.empty())
        return std::nullopt;
    std::string token = LiveToken(rawText);
    if (reading.direction) {
        token = Cut(token, *reading.direction, reading.length);
        if (token.size() < 2)
            return std::nullopt;
    }
    return reading.reversed ? Reversed(token) : NumberText(Val(token));
}

inline TestWeight DecodeTestWeight(std::string_view rawText, std::string_view direction,
                                   std::string_view lengthText, bool reversed) {
    const std::string token = TestToken(rawText);
    const std::string number = NumberText(Val(Cut(token, direction, Val(lengthText))));
    return {TrimBlanks(token), reversed ? Reversed(number) : number};
}

} // namespace Quillane::DecodingReference
