#include "platform/ado/sqlite/SqliteText.h"

#include "platform/ado/TextOrder.h"

#include <sqlite3.h>

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

// `X Like Y` arrives as like(Y, X), with an escape character as like(Y, X, Z).
void Like(sqlite3_context* context, int count, sqlite3_value** arguments) {
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL)
            return;
    char32_t escape = 0;
    if (count == 3) {
        const std::string_view text = TextOf(arguments[2]);
        if (text.size() != 1)
            return sqlite3_result_error(context, "ESCAPE takes one character", -1);
        escape = static_cast<unsigned char>(text.front());
    }
    sqlite3_result_int(context, MatchesLike(TextOf(arguments[1]), TextOf(arguments[0]), escape));
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
