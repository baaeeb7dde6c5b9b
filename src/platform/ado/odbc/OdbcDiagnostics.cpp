#include "platform/ado/odbc/OdbcDiagnostics.h"

#include "platform/ado/odbc/OdbcText.h"

#include <algorithm>

namespace Quillane {

namespace {

/// Some drivers report a server's information with a state of the class "success".
bool IsWarning(const OdbcDiagnostic& diagnostic) {
    return diagnostic.state.starts_with("01") || diagnostic.state.starts_with("00");
}

int Rank(const OdbcDiagnostic& diagnostic) {
    if (IsWarning(diagnostic))
        return 2;
    return diagnostic.native != 0 ? 0 : 1;
}

/// States of a connection that was open. The other states of their class mean a refused connection;
/// an open connection reports them too if a statement names an unknown database. 57P is the state
/// of a PostgreSQL server that shuts down.
bool IsLostConnection(const OdbcDiagnostic& diagnostic) {
    constexpr std::string_view states[] = {"08S", "08003", "08006", "08007", "57P"};
    return std::any_of(std::begin(states), std::end(states),
                       [&](std::string_view state) { return diagnostic.state.starts_with(state); });
}

bool IsTimeout(const OdbcDiagnostic& diagnostic) {
    return diagnostic.state.starts_with("HYT");
}

/// Some drivers append line ends and zero bytes to their texts.
std::string Trimmed(std::string text) {
    constexpr std::string_view blanks(" \t\r\n\0", 5);
    text.erase(text.find_last_not_of(blanks) + 1);
    return text;
}

bool ReadRecord(const OdbcHandle& handle, SQLSMALLINT number, OdbcDiagnostic& diagnostic) {
    SQLWCHAR state[6] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    OdbcText text(1024);
    const auto read = [&] {
        return SQLGetDiagRecW(handle.Kind(), handle.Get(), number, state, &native, text.data(),
                              static_cast<SQLSMALLINT>(text.size()), &length);
    };
    SQLRETURN outcome = read();
    if (outcome == SQL_SUCCESS_WITH_INFO && static_cast<std::size_t>(length) >= text.size()) {
        text.resize(std::min<std::size_t>(static_cast<std::size_t>(length) + 1, 0x7FFF));
        outcome = read();
    }
    if (outcome != SQL_SUCCESS && outcome != SQL_SUCCESS_WITH_INFO)
        return false;
    const std::size_t held = std::min(static_cast<std::size_t>(length), text.size() - 1);
    diagnostic = {FromOdbc(state, 5), native, Trimmed(FromOdbc(text.data(), held))};
    return true;
}

} // namespace

std::vector<OdbcDiagnostic> OdbcDiagnosticsOf(const OdbcHandle& handle) {
    std::vector<OdbcDiagnostic> all;
    OdbcDiagnostic diagnostic;
    for (SQLSMALLINT number = 1; ReadRecord(handle, number, diagnostic); ++number)
        all.push_back(diagnostic);
    return all;
}

bool HasFailed(const std::vector<OdbcDiagnostic>& diagnostics) {
    return !std::ranges::all_of(diagnostics, IsWarning);
}

std::vector<OdbcDiagnostic> MostUsefulFirst(std::vector<OdbcDiagnostic> diagnostics) {
    std::stable_sort(diagnostics.begin(), diagnostics.end(),
                     [](const auto& left, const auto& right) { return Rank(left) < Rank(right); });
    return diagnostics;
}

std::string MessageOf(const std::vector<OdbcDiagnostic>& diagnostics) {
    std::string message;
    std::vector<std::string> shown;
    for (const OdbcDiagnostic& diagnostic : MostUsefulFirst(diagnostics)) {
        if (std::find(shown.begin(), shown.end(), diagnostic.text) != shown.end())
            continue;
        shown.push_back(diagnostic.text);
        message += (message.empty() ? "" : "\n") + diagnostic.text;
    }
    return message;
}

EngineCodes CodesOf(const std::vector<OdbcDiagnostic>& diagnostics) {
    if (diagnostics.empty())
        return {};
    const OdbcDiagnostic first = MostUsefulFirst(diagnostics).front();
    return {first.state, first.native};
}

OdbcFailure::OdbcFailure(const std::vector<OdbcDiagnostic>& diagnostics)
    : DatabaseFailure(diagnostics.empty() ? "The database driver failed without a message."
                                          : MessageOf(diagnostics),
                      CodesOf(diagnostics)),
      isLostConnection_(std::ranges::any_of(diagnostics, Quillane::IsLostConnection)),
      isTimeout_(std::ranges::any_of(diagnostics, Quillane::IsTimeout)) {}

void FailWithDiagnostics(const OdbcHandle& handle) {
    throw OdbcFailure(OdbcDiagnosticsOf(handle));
}

} // namespace Quillane
