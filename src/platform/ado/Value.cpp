#include "platform/ado/Value.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

namespace Quillane {

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

/// Engines omit a zero before the point. The general form has it, and has no zeros at the end.
std::string DecimalText(std::string digits) {
    const std::size_t first = digits.starts_with('-') || digits.starts_with('+') ? 1 : 0;
    if (digits.compare(first, 1, ".") == 0)
        digits.insert(first, 1, '0');
    if (digits.find('.') != std::string::npos) {
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.ends_with('.'))
            digits.pop_back();
    }
    return digits == "-0" ? "0" : digits;
}

} // namespace

std::string Value::Text() const {
    return std::visit(
        Overloaded{
            [](std::monostate) -> std::string { Fail(FailureNumber::InvalidUseOfNull); },
            [](std::int64_t whole) { return std::to_string(whole); },
            [](double number) { return NumberText(number); },
            [](const Decimal& decimal) { return DecimalText(decimal.digits); },
            [](const std::string& text) { return text; },
            [](Date date) { return DateLiteral(date); },
        },
        held_);
}

std::string Value::TextOrEmpty() const {
    return IsNull() ? std::string() : Text();
}

double Value::Number() const {
    return std::visit(
        Overloaded{
            [](std::monostate) -> double { Fail(FailureNumber::InvalidUseOfNull); },
            [](std::int64_t whole) { return static_cast<double>(whole); },
            [](double number) { return number; },
            [](const Decimal& decimal) { return ToDouble(DecimalText(decimal.digits)); },
            [](const std::string& text) { return ToDouble(text); },
            [](Date) -> double { Fail(FailureNumber::TypeMismatch); },
        },
        held_);
}

std::int32_t Value::Long() const {
    return ToLong(Number());
}

Date Value::AsDate() const {
    if (IsNull())
        Fail(FailureNumber::InvalidUseOfNull);
    if (const auto* date = std::get_if<Date>(&held_))
        return *date;
    if (const auto* text = std::get_if<std::string>(&held_))
        return ParseDate(*text);
    Fail(FailureNumber::TypeMismatch);
}

} // namespace Quillane
