#include "office/daybook/Days.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <string>

namespace Quillane::Office {

namespace {

constexpr std::size_t length = std::string_view("2026-11-20").size();

/// Converts dd/MM/yyyy to YYYY-MM-DD; returns any other text unchanged.
std::string YearFirst(std::string_view text) {
    if (text.size() != length || text[2] != '/' || text[5] != '/')
        return std::string(text);
    return std::string(text.substr(6)) + "-" + std::string(text.substr(3, 2)) + "-" +
           std::string(text.substr(0, 2));
}

} // namespace

std::optional<Date> ReadDay(std::string_view text) {
    if (EqualIgnoringCase(text, "today"))
        return Today();
    if (EqualIgnoringCase(text, "yesterday"))
        return AddDays(Today(), -1);
    const std::string day = YearFirst(text);
    if (day.size() != length)
        return std::nullopt;
    try {
        return ParseDate(day);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

std::optional<SumsBy> SumsNamed(std::string_view text) {
    if (EqualIgnoringCase(text, "day"))
        return SumsBy::Day;
    if (EqualIgnoringCase(text, "party"))
        return SumsBy::Party;
    if (EqualIgnoringCase(text, "commodity"))
        return SumsBy::Commodity;
    return std::nullopt;
}

} // namespace Quillane::Office
