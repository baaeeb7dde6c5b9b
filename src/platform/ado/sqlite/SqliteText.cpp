#include "platform/ado/sqlite/SqliteText.h"

#include "platform/ado/LikePattern.h"
#include "platform/ado/TextOrder.h"

#include <sqlite3.h>

#include <memory>
#include <new>
#include <optional>
#include <string_view>

namespace Quillane {

namespace {

int Compare(void*, int leftLength, const void* left, int rightLength, const void* right) {
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftLength)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightLength)});
}

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (!text)
        return {};
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

std::optional<char32_t> EscapeCharacter(std::string_view text) {
    if (text.size() != 1)
        return std::nullopt;
    return static_cast<unsigned char>(text.front());
}

void Forget(void* pattern) {
    delete static_cast<LikePattern*>(pattern);
}

/// The pattern of `X Like Y`, parsed once if it is the same for every row.
bool FitsKeptPattern(sqlite3_context* context, sqlite3_value** arguments) {
    if (const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0)))
        return kept->Fits(TextOf(arguments[1]));
    auto pattern = std::make_unique<LikePattern>(TextOf(arguments[0]));
    const bool fits = pattern->Fits(TextOf(arguments[1]));
    sqlite3_set_auxdata(context, 0, pattern.release(), Forget);
    return fits;
}

// `X Like Y` arrives as like(Y, X), with an escape character as like(Y, X, Z).
void Like(sqlite3_context* context, int count, sqlite3_value** arguments) {
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL)
            return;
    try {
        if (count == 2)
            return sqlite3_result_int(context, FitsKeptPattern(context, arguments));
        const std::optional<char32_t> escape = EscapeCharacter(TextOf(arguments[2]));
        if (!escape)
            return sqlite3_result_error(context, "ESCAPE needs one character", -1);
        const LikePattern pattern(TextOf(arguments[0]), *escape);
        sqlite3_result_int(context, pattern.Fits(TextOf(arguments[1])));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

} // namespace

void RegisterTextComparison(sqlite3* database) {
    sqlite3_create_collation_v2(database, "QTEXT", SQLITE_UTF8, nullptr, Compare, nullptr);
    constexpr int traits = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const int count : {2, 3})
        sqlite3_create_function_v2(database, "like", count, traits, nullptr, Like, nullptr, nullptr,
                                   nullptr);
}

} // namespace Quillane
