#include "platform/ado/odbc/OdbcNames.h"

#include "platform/ado/SqlTokens.h"
#include "platform/ado/odbc/OdbcText.h"
#include "platform/runtime/Text.h"

#include <algorithm>

namespace Quillane {

namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

void AddWords(std::string_view list, std::vector<std::string>& words) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        words.push_back(UpperCase(Trim(list.substr(0, end))));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
}

std::string Lower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + 32);
    return text;
}

} // namespace

std::string OdbcInformation(const OdbcHandle& connection, SQLUSMALLINT kind) {
    OdbcText text(4096);
    SQLSMALLINT bytes = 0;
    connection.Check(SQLGetInfoW(connection.Get(), kind, text.data(),
                                 static_cast<SQLSMALLINT>(text.size() * sizeof(SQLWCHAR)), &bytes));
    const std::size_t length = static_cast<std::size_t>(std::max<int>(bytes, 0)) / sizeof(SQLWCHAR);
    return FromOdbc(text.data(), std::min(length, text.size() - 1));
}

OdbcNames::OdbcNames(const OdbcHandle& connection, bool usesBrackets)
    : openingQuote_("["), closingQuote_("]") {
    if (!usesBrackets) {
        const std::string quote = OdbcInformation(connection, SQL_IDENTIFIER_QUOTE_CHAR);
        openingQuote_ = Trim(quote).empty() ? "\"" : quote;
        closingQuote_ = openingQuote_;
    }
    SQLGetInfoW(connection.Get(), SQL_IDENTIFIER_CASE, &wordCase_, sizeof wordCase_, nullptr);
    AddWords(SQL_ODBC_KEYWORDS, reserved_);
    AddWords(OdbcInformation(connection, SQL_KEYWORDS), reserved_);
    std::sort(reserved_.begin(), reserved_.end());
}

bool OdbcNames::KeepsCase(char c) const {
    if (wordCase_ == SQL_IC_LOWER)
        return !(c >= 'A' && c <= 'Z');
    return wordCase_ != SQL_IC_UPPER || !(c >= 'a' && c <= 'z');
}

bool OdbcNames::IsReserved(std::string_view name) const {
    return std::binary_search(reserved_.begin(), reserved_.end(), UpperCase(name));
}

bool OdbcNames::IsPlain(std::string_view name) const {
    return !name.empty() && IsLetter(name.front()) &&
           std::all_of(name.begin(), name.end(),
                       [this](char c) { return (IsLetter(c) || IsDigit(c)) && KeepsCase(c); }) &&
           !IsReserved(name);
}

std::string OdbcNames::ColumnInStatement(std::string_view column) const {
    if (IsPlain(column))
        return std::string(column);
    std::string quoted = openingQuote_;
    for (const char c : column)
        quoted += c == closingQuote_.front() ? std::string(2, c) : std::string(1, c);
    return quoted + closingQuote_;
}

std::string OdbcNames::Spelled(std::string_view token) const {
    const std::string name = NameOf(token);
    if (name.size() != token.size() || wordCase_ == SQL_IC_MIXED || wordCase_ == SQL_IC_SENSITIVE)
        return name;
    return wordCase_ == SQL_IC_LOWER ? Lower(name) : UpperCase(name);
}

OdbcTable OdbcNames::Table(std::string_view named) const {
    std::vector<std::string> parts(1);
    SqlTokens tokens(named);
    for (SqlToken token = tokens.Next(); token.kind != SqlTokenKind::End; token = tokens.Next()) {
        if (tokens.IsSymbol(token, '.'))
            parts.emplace_back();
        else
            parts.back() += Spelled(tokens.TextOf(token));
    }
    const std::size_t count = parts.size();
    return {count > 2 ? parts[count - 3] : "", count > 1 ? parts[count - 2] : "", parts.back()};
}

} // namespace Quillane
