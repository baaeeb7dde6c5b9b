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
    /// A decimal as the engine wrote it, kept exact: "30.000".
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

    /// The value as shown text. A number is in the general form (a decimal 30.000 shows as 30), a
    /// date is YYYY-MM-DDT00:00:00. Null fails (94).
    std::string Text() const;
    /// As Text, but Null gives the empty text.
    std::string TextOrEmpty() const;

    /// The value as a number; text is read strictly. Null fails (94), other text fails (13).
    double Number() const;
    /// Number, as a 32-bit whole number, ties to even; out of range fails (6).
    std::int32_t Long() const;
    /// A date, or text that begins YYYY-MM-DD. Null fails (94), other values fail (13).
    Date AsDate() const;

    using Held = std::variant<std::monostate, std::int64_t, double, Decimal, std::string, Date>;
    const Held& Raw() const { return held_; }

private:
    Held held_;
};

} // namespace Quillane
