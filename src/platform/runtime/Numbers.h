#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Conversion between numbers and text. The number formats are not interchangeable: each function
/// states which format it reads or writes.
namespace Quillane {

/// Reads the number at the beginning of a text. Blanks, tabs and line feeds are skipped anywhere in
/// the text. Reading stops at the first character that cannot continue the number (sign, digits,
/// one decimal point, an exponent); the rest is ignored. A text without a leading number gives 0.
/// Never fails: a number that is too large for a double gives the largest double.
double Val(std::string_view text);

/// Rounds to a whole number; ties go to the even neighbour.
double RoundWeight(double value);

/// Formats a whole weight as plain digits with a leading minus if negative: 8117, -40, 0. Minus
/// zero gives 0. Requires: `value` is a whole number. Errors: overflow (6) if it is not finite.
std::string WeightText(double value);

/// Formats a number with at most 15 significant digits and no trailing zeros: 205.5, 12540. Numbers
/// from 1E+15 on and very small numbers get an exponent: 1.23456789012346E+15. Errors: overflow (6)
/// if the value is not finite.
std::string NumberText(double value);

/// Strict conversions: the whole text must be one number; blanks around it are allowed. The
/// integer conversions round a fraction to a whole number, ties to even. Errors: type mismatch (13)
/// if the text is not a number, overflow (6) if the number is out of range.
double ToDouble(std::string_view text);
std::int16_t ToInteger(std::string_view text);
std::int32_t ToLong(std::string_view text);

/// Rounds to a whole number, ties to even. Errors: overflow (6) if the number is out of range.
std::int16_t ToInteger(double value);
std::int32_t ToLong(double value);

/// Divides two numbers. Errors: overflow (6) for zero by zero, division by zero (11) for any other
/// zero divisor.
double Divide(double dividend, double divisor);

/// A fixed-point number with four decimals, stored in ten-thousandths.
struct Currency {
    std::int64_t tenThousandths = 0;

    Currency& operator+=(Currency other);
    double ToDouble() const { return static_cast<double>(tenThousandths) / 10000.0; }
    bool operator==(const Currency&) const = default;
};

/// Rounds to four decimals, ties to even. Errors: overflow (6) beyond 64 bits.
Currency ToCurrency(double value);

/// Rounds to a 16-bit whole number, ties to even. Errors: overflow (6) beyond 16 bits.
std::int16_t ToInteger(Currency value);

} // namespace Quillane
