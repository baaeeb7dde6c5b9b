#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers and their texts. The number forms are not interchangeable; each function says which
/// one it reads or writes.
namespace Quillane {

/// The lenient reading of a text as a number. Blanks, tabs and line feeds are skipped wherever
/// they stand; it reads as long as the characters form a number (sign, digits, one point, an
/// exponent part) and ignores the rest. A text with no leading number gives 0. Never fails: what
/// is too large for a double reads as the largest one.
double Val(std::string_view text);

/// Rounds to a whole number, ties to the even neighbour.
double RoundWeight(double value);

/// A whole weight as plain digits with a leading minus if negative: 8117, -40, 0.
/// `value` must be whole; minus zero is shown as 0. What has grown beyond a double fails (6).
std::string WeightText(double value);

/// The general form with at most 15 significant digits and no trailing zeros: 205.5, 12540. From
/// 1E+15 on, and for very small numbers, the exponent form: 1.23456789012346E+15. What has grown
/// beyond a double fails (6).
std::string NumberText(double value);

/// Strict readings: the whole text must be one number (blanks around it are allowed), or the
/// conversion fails with a type mismatch (13); out of range is an overflow (6). A fraction is
/// rounded to a whole number, ties to even.
double ToDouble(std::string_view text);
std::int16_t ToInteger(std::string_view text);
std::int32_t ToLong(std::string_view text);

/// Rounds to a whole number, ties to even; out of range is an overflow (6).
std::int16_t ToInteger(double value);
std::int32_t ToLong(double value);

/// A division as the runtime does it: a zero divisor fails, with Overflow (6) for zero by zero and
/// Division by zero (11) otherwise.
double Divide(double dividend, double divisor);

/// A fixed-point amount of four decimals, counted in ten-thousandths.
struct Currency {
    std::int64_t tenThousandths = 0;

    Currency& operator+=(Currency other);
    double ToDouble() const { return static_cast<double>(tenThousandths) / 10000.0; }
    bool operator==(const Currency&) const = default;
};

/// Rounds to four decimals, ties to even; beyond 64 bits it is an overflow (6).
Currency ToCurrency(double value);

/// The amount rounded to a 16-bit whole number, ties to even; above 32767 an overflow (6).
std::int16_t ToInteger(Currency value);

/// Removes blanks (only blanks) from both ends.
std::string_view Trim(std::string_view text);

/// Capitals for ASCII letters; other characters stay.
std::string UpperCase(std::string_view text);

/// Compares without regard to the case of ASCII letters.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

} // namespace Quillane
