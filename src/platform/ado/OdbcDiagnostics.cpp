#include "platform/ado/OdbcDiagnostics.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/OdbcText.h"

#include <algorithm>

namespace Quillane {

namespace {

int Rank(const OdbcDiagnostic& diagnostic) {
    if (diagnostic.state.starts_with("01"))
        return 2;
    return diagnostic.native != 0 ? 0 : 1;
}

/// Drivers end their words with line ends and zeros of their own.
std::string Trimmed(std::string words) {
    constexpr std::string_view blanks(" \t\r\n\0", 5);
    words.erase(words.find_last_not_of(blanks) + 1);
    return words;
}

bool TakeRecord(const OdbcHandle& handle, SQLSMALLINT number, OdbcDiagnostic& diagnostic) {
    SQLWCHAR state[6] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    OdbcText words(1024);
    const auto read = [&] {
        return SQLGetDiagRecW(handle.Kind(), handle.Get(), number, state, &native, words.data(),
                              static_cast<SQLSMALLINT>(words.size()), &length);
    };
    SQLRETURN outcome = read();
    if (outcome == SQL_SUCCESS_WITH_INFO && static_cast<std::size_t>(length) >= words.size()) {
        words.resize(std::min<std::size_t>(static_cast<std::size_t>(length) + 1, 0x7FFF));
        outcome = read();
    }
    if (outcome != SQL_SUCCESS && outcome != SQL_SUCCESS_WITH_INFO)
        return false;
    const std::size_t held = std::min(static_cast<std::size_t>(length), words.size() - 1);
    diagnostic = {FromOdbc(state, 5), native, Trimmed(FromOdbc(words.data(), held))};
    return true;
}

} // namespace

std::vector<OdbcDiagnostic> OdbcDiagnosticsOf(const OdbcHandle& handle) {
    std::vector<OdbcDiagnostic> all;
    OdbcDiagnostic diagnostic;
    for (SQLSMALLINT number = 1; TakeRecord(handle, number, diagnostic); ++number)
        all.push_back(diagnostic);
    return all;
}

std::string DescriptionOf(std::vector<OdbcDiagnostic> diagnostics) {
    std::stable_sort(diagnostics.begin(), diagnostics.end(),
                     [](const auto& left, const auto& right) { return Rank(left) < Rank(right); });
    std::string description;
    std::vector<std::string> told;
    for (const OdbcDiagnostic& diagnostic : diagnostics) {
        if (std::find(told.begin(), told.end(), diagnostic.words) != told.end())
            continue;
        told.push_back(diagnostic.words);
        description += (description.empty() ? "" : "\n") + diagnostic.words;
    }
    return description;
}

void FailInWordsOfDriver(const OdbcHandle& handle) {
    const std::string description = DescriptionOf(OdbcDiagnosticsOf(handle));
    FailDatabase(description.empty() ? "The database driver failed without a word." : description);
}

} // namespace Quillane
