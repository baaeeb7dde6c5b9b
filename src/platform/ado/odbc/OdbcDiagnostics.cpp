#include "platform/ado/odbc/OdbcDiagnostics.h"

#include "platform/ado/odbc/OdbcText.h"

#include <algorithm>

namespace Quillane {

namespace {

/// Some drivers hand on what a server has only to say in the class of a success.
bool IsWarning(const OdbcDiagnostic& diagnostic) {
    return diagnostic.state.starts_with("01") || diagnostic.state.starts_with("00");
}

int Rank(const OdbcDiagnostic& diagnostic) {
    if (IsWarning(diagnostic))
        return 2;
    return diagnostic.native != 0 ? 0 : 1;
}

/// The states of a connection that was there. The others of their class are of one that is refused,
/// which a living connection tells too, when a statement asks for an unknown database. 57P is what
/// a PostgreSQL server says that is going down.
bool IsOfBrokenWay(const OdbcDiagnostic& diagnostic) {
    constexpr std::string_view states[] = {"08S", "08003", "08006", "08007", "57P"};
    return std::any_of(std::begin(states), std::end(states),
                       [&](std::string_view state) { return diagnostic.state.starts_with(state); });
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

bool HasFailed(const std::vector<OdbcDiagnostic>& diagnostics) {
    return !std::ranges::all_of(diagnostics, IsWarning);
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

OdbcFailure::OdbcFailure(const std::vector<OdbcDiagnostic>& diagnostics)
    : Failure(FailureNumber::Database,
              diagnostics.empty() ? "The database driver failed without a word."
                                  : DescriptionOf(diagnostics),
              FailureSource::Database),
      tellsOfBrokenWay_(std::any_of(diagnostics.begin(), diagnostics.end(), IsOfBrokenWay)),
      tellsOfTimeout_(
          std::any_of(diagnostics.begin(), diagnostics.end(),
                      [](const OdbcDiagnostic& told) { return told.state.starts_with("HYT"); })) {}

void FailInWordsOfDriver(const OdbcHandle& handle) {
    throw OdbcFailure(OdbcDiagnosticsOf(handle));
}

} // namespace Quillane
