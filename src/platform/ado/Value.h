#pragma once

#include "platform/runtime/Date.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace Quillane {

/// One value of a field: Null, a whole number, a floating number, an exact decimal, text or a date.
/// Text is UTF-8.
class Value {
public:
    /// A decimal as the engine wrote it, with all digits: "30.000".
    struct Decimal {
        std::string digits;
        bool operator==(const Decimal&) const = default;
    };

    Value() = default; ///< Null
    Value(std::int64_t whole) : held_(whole) {}
    Value(int whole) : held_(static_cast<std::int64_t>(whole)) {}
    Value(double number) : held_(number) {}
    Value(std::string text) : held_(std::move(text)) {}
    Value(std::string_view text) : held_(std::string(text)) {}
    Value(const char* text) : held_(std::string(text)) {}
    Value(Date date) : held_(date) {}
    Value(Decimal decimal) : held_(std::move(decimal)) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(held_); }

    /// The value as text for the user. A number is in the general form, so that a decimal 30.000 is
    /// "30"; a date is YYYY-MM-DDT00:00:00. Errors: 94 for Null.
    std::string Text() const;
    /// Like Text, but empty for Null.
    std::string TextOrEmpty() const;

    /// The value as a number; text is read strictly. Errors: 94 for Null, 13 for other text.
    double Number() const;
    /// Like Number, as a 32-bit whole number, with ties rounded to even. Errors: 6 if out of range.
    std::int32_t Long() const;
    /// A date, or the date of a text that begins with YYYY-MM-DD. Errors: 94 for Null, 13 for other
    /// values.
    Date AsDate() const;

    using Held = std::variant<std::monostate, std::int64_t, double, Decimal, std::string, Date>;
    const Held& Raw() const { return held_; }

private:
    Held held_;
};

} // namespace Quillane
