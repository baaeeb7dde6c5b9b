#include "scale/Decoding.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"

#include <cstddef>

namespace Quillane {

namespace {

std::size_t NextDigit(std::string_view text, std::size_t at) {
    while (at < text.size() && !IsDigit(text[at]))
        ++at;
    return at;
}

std::size_t NextSeparator(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

/// The digit run that is read. `trailingBlank`: more runs follow, and the text of the token then
/// ends with a blank.
struct WeightToken {
    std::string_view digits;
    bool trailingBlank = false;
};

/// Finds the first two digit runs of a text, and whether a third one follows. One pass is enough
/// for the steps of the rules: replace all other characters by blanks, drop the first run, take the
/// next one.
struct DigitRuns {
    explicit DigitRuns(std::string_view text) {
        const std::size_t first = NextDigit(text, 0);
        const std::size_t firstEnd = NextSeparator(text, first);
        const std::size_t second = NextDigit(text, firstEnd);
        const std::size_t secondEnd = NextSeparator(text, second);
        one = text.substr(first, firstEnd - first);
        two = text.substr(second, secondEnd - second);
        more = NextDigit(text, secondEnd) < text.size();
    }

    std::string_view one;
    std::string_view two;
    bool more = false;
};

WeightToken ExtractLiveToken(std::string_view rawText) {
    const DigitRuns runs(rawText);
    return {runs.two.empty() ? runs.one : runs.two, runs.more};
}

WeightToken ExtractTestToken(std::string_view rawText) {
    const DigitRuns runs(rawText);
    return runs.more ? WeightToken{runs.two, true} : WeightToken{};
}

std::string_view Cut(std::string_view digits, std::string_view direction, double length) {
    const double rounded = RoundWeight(length);
    if (rounded < 0)
        Fail(FailureNumber::InvalidCall);
    if (rounded >= static_cast<double>(digits.size()))
        return digits;
    const auto kept = static_cast<std::size_t>(rounded);
    return direction == "Right" ? digits.substr(digits.size() - kept) : digits.substr(0, kept);
}

std::string PlainNumber(std::string_view digits) {
    const std::size_t leadingZeros = digits.find_first_not_of('0');
    if (leadingZeros == std::string_view::npos)
        return "0";
    digits.remove_prefix(leadingZeros);
    // Numbers of up to fifteen digits are shown as these digits.
    return digits.size() <= 15 ? std::string(digits) : NumberText(Val(digits));
}

std::string Reversed(std::string_view text) {
    return {text.rbegin(), text.rend()};
}

} // namespace

std::optional<std::string> DecodeLiveWeight(std::string_view rawText, const LiveReading& reading) {
    if (rawText.empty())
        return std::nullopt;
    WeightToken token = ExtractLiveToken(rawText);
    if (reading.direction) {
        token = {Cut(token.digits, *reading.direction, reading.length)};
        // A reading of one digit is never shown.
        if (token.digits.size() < 2)
            return std::nullopt;
    }
    if (!reading.reversed)
        return PlainNumber(token.digits);
    std::string weight(token.trailingBlank ? 1 : 0, ' ');
    weight.append(token.digits.rbegin(), token.digits.rend());
    return weight;
}

TestWeight DecodeTestWeight(std::string_view rawText, std::string_view direction,
                            std::string_view lengthText, bool reversed) {
    const WeightToken token = ExtractTestToken(rawText);
    const std::string number = PlainNumber(Cut(token.digits, direction, Val(lengthText)));
    return {std::string(token.digits), reversed ? Reversed(number) : number};
}

} // namespace Quillane
