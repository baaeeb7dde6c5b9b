#include "platform/runtime/Numbers.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <limits>
#include <system_error>

namespace Quillane {

namespace {

bool IsSkipped(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

/// Finds the longest number at the beginning of a text. Requires: the text has no blanks.
class NumberScanner {
public:
    explicit NumberScanner(std::string_view text) : text_(text) {}

    std::string_view Scan() {
        TakeSign();
        const std::size_t whole = TakeDigits();
        const std::size_t fraction = TakeFraction();
        if (whole + fraction == 0)
            return {};
        TakeExponent();
        return text_.substr(0, at_);
    }

private:
    void TakeSign() {
        if (at_ < text_.size() && (text_[at_] == '+' || text_[at_] == '-'))
            ++at_;
    }

    std::size_t TakeDigits() {
        const std::size_t start = at_;
        while (at_ < text_.size() && IsDigit(text_[at_]))
            ++at_;
        return at_ - start;
    }

    std::size_t TakeFraction() {
        if (at_ == text_.size() || text_[at_] != '.')
            return 0;
        ++at_;
        return TakeDigits();
    }

    // D is an older letter for the exponent of a double.
    void TakeExponent() {
        if (at_ == text_.size() || (LowerCase(text_[at_]) != 'e' && LowerCase(text_[at_]) != 'd'))
            return;
        const std::size_t before = at_++;
        TakeSign();
        if (TakeDigits() == 0)
            at_ = before;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

/// The position of the first significant digit: 1 for the last digit before the point, 0 for the
/// first one after it. Requires: the number has a digit other than 0, as every number beyond the
/// range of a double has.
long Magnitude(std::string_view mantissa, std::string_view exponent) {
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    const auto position = static_cast<long>(point) - static_cast<long>(first);
    if (!exponent.empty() && exponent.front() == '+')
        exponent.remove_prefix(1);
    long shift = 0;
    const auto [end, error] =
        std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
    constexpr long beyondAnyText = std::numeric_limits<long>::max() / 4;
    if (error == std::errc::result_out_of_range)
        return exponent.front() == '-' ? -beyondAnyText : beyondAnyText;
    return position + std::clamp(shift, -beyondAnyText, beyondAnyText);
}

struct Reading {
    double value = 0;
    bool tooLarge = false; ///< if so, the value is the largest double with this sign
};

/// Converts a number that NumberScanner has found.
Reading ReadNumber(std::string_view number) {
    if (number.empty())
        return {};
    if (number.front() == '+')
        number.remove_prefix(1);
    const std::size_t mark = std::min(number.find_first_of("eEdD"), number.size());
    if (mark < number.size() && LowerCase(number[mark]) == 'd') {
        std::string spelledWithE(number);
        spelledWithE[mark] = 'e';
        return ReadNumber(spelledWithE);
    }
    double value = 0;
    const char* const end = number.data() + number.size();
    if (std::from_chars(number.data(), end, value).ec != std::errc::result_out_of_range)
        return {value};
    // std::from_chars reports the same error for a number that is too large or too small.
    if (Magnitude(number.substr(0, mark), number.substr(std::min(mark + 1, number.size()))) <= 0)
        return {};
    constexpr double largest = std::numeric_limits<double>::max();
    return {number.front() == '-' ? -largest : largest, true};
}

template <typename Whole>
Whole ToWhole(double value) {
    const double whole = RoundWeight(value);
    if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max()))
        Fail(FailureNumber::Overflow);
    return static_cast<Whole>(whole);
}

void FailUnlessFinite(double value) {
    if (!std::isfinite(value))
        Fail(FailureNumber::Overflow);
}

/// Appends significant digits. The first of them counts ten to the power of `exponent`.
void AppendDigits(std::string& text, const std::string& digits, int exponent) {
    const auto count = static_cast<int>(digits.size());
    if (exponent >= 15 || (exponent < 0 && count - exponent > 16)) {
        text.append(digits, 0, 1);
        if (count > 1)
            text.append(".").append(digits, 1);
        std::array<char, 8> buffer{};
        std::snprintf(buffer.data(), buffer.size(), "E%+03d", exponent);
        text.append(buffer.data());
    } else if (exponent < 0) {
        text.append("0.").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
    } else if (count <= exponent + 1) {
        text.append(digits).append(static_cast<std::size_t>(exponent + 1 - count), '0');
    } else {
        const auto whole = static_cast<std::size_t>(exponent + 1);
        text.append(digits, 0, whole).append(".").append(digits, whole);
    }
}

} // namespace

double Val(std::string_view text) {
    if (std::none_of(text.begin(), text.end(), IsSkipped))
        return ReadNumber(NumberScanner(text).Scan()).value;
    std::string solid;
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(solid), IsSkipped);
    return ReadNumber(NumberScanner(solid).Scan()).value;
}

double RoundWeight(double value) {
    // The default rounding mode of the floating-point unit is ties to even.
    return std::nearbyint(value);
}

std::string WeightText(double value) {
    FailUnlessFinite(value);
    std::array<char, 400> buffer{};
    // Adding zero changes minus zero to zero.
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                            value + 0.0, std::chars_format::fixed, 0);
    return {buffer.data(), end};
}

std::string NumberText(double value) {
    FailUnlessFinite(value);
    if (value == 0)
        return "0";
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.14E", value);
    const std::string_view shown = buffer.data();
    const std::size_t mark = shown.find('E');
    const int exponent = std::stoi(std::string(shown.substr(mark + 1)));

    std::string digits;
    for (const char c : shown.substr(0, mark))
        if (IsDigit(c))
            digits += c;
    digits.erase(digits.find_last_not_of('0') + 1);

    std::string text = value < 0 ? "-" : "";
    AppendDigits(text, digits, exponent);
    return text;
}

double ToDouble(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const std::string_view number = NumberScanner(trimmed).Scan();
    if (number.empty() || number.size() != trimmed.size())
        Fail(FailureNumber::TypeMismatch);
    const Reading reading = ReadNumber(number);
    if (reading.tooLarge)
        Fail(FailureNumber::Overflow);
    return reading.value;
}

std::int16_t ToInteger(std::string_view text) {
    return ToInteger(ToDouble(text));
}
std::int32_t ToLong(std::string_view text) {
    return ToLong(ToDouble(text));
}
std::int16_t ToInteger(double value) {
    return ToWhole<std::int16_t>(value);
}
std::int32_t ToLong(double value) {
    return ToWhole<std::int32_t>(value);
}

double Divide(double dividend, double divisor) {
    if (divisor == 0)
        Fail(dividend == 0 ? FailureNumber::Overflow : FailureNumber::DivisionByZero);
    return dividend / divisor;
}

Currency& Currency::operator+=(Currency other) {
    if (__builtin_add_overflow(tenThousandths, other.tenThousandths, &tenThousandths))
        Fail(FailureNumber::Overflow);
    return *this;
}

Currency ToCurrency(double value) {
    const double scaled = RoundWeight(value * 10000.0);
    // The first double that a signed 64-bit number cannot hold.
    constexpr double limit = 9223372036854775808.0;
    if (!(scaled >= -limit && scaled < limit))
        Fail(FailureNumber::Overflow);
    return {static_cast<std::int64_t>(scaled)};
}

std::int16_t ToInteger(Currency value) {
    return ToInteger(value.ToDouble());
}

} // namespace Quillane
