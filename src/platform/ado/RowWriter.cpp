#include "platform/ado/RowWriter.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Session.h"
#include "platform/ado/SqlTokens.h"
#include "platform/runtime/Failure.h"

#include <algorithm>
#include <array>

namespace Quillane {

namespace {

bool IsName(const SqlToken& token) {
    return token.kind == SqlTokenKind::Word || token.kind == SqlTokenKind::QuotedName;
}

bool MayFollowTable(const SqlTokens& tokens, const SqlToken& token) {
    return token.kind == SqlTokenKind::End || tokens.IsWord(token, "where") ||
           tokens.IsWord(token, "order") || tokens.IsSymbol(token, ';');
}

} // namespace

std::string TableOfSource(std::string_view source) {
    SqlTokens tokens(source);
    if (!tokens.IsWord(tokens.Next(), "select") || !tokens.IsSymbol(tokens.Next(), '*') ||
        !tokens.IsWord(tokens.Next(), "from"))
        return {};
    const SqlToken first = tokens.Next();
    SqlToken last = first;
    if (!IsName(first))
        return {};
    SqlToken next = tokens.Next();
    while (tokens.IsSymbol(next, '.')) {
        last = tokens.Next();
        if (!IsName(last))
            return {};
        next = tokens.Next();
    }
    if (!MayFollowTable(tokens, next))
        return {};
    return std::string(source.substr(first.begin, last.end - first.begin));
}

Session& RowWriter::OpenSession() const {
    const std::shared_ptr<Session> session = session_.lock();
    if (!session)
        FailAccess(FailureNumber::ObjectClosed,
                   "The connection of this recordset is closed, so nothing can be written.");
    return *session;
}

void RowWriter::FindTable() {
    if (!table_.empty())
        return;
    const std::string table = TableOfSource(source_);
    if (table.empty())
        FailAccess(
            FailureNumber::NotUpdatable,
            "These rows cannot be written back, because they are not the rows of one table: " +
                source_);
    keyColumns_ = OpenSession().EngineInUse().KeyColumns(table);
    table_ = table;
}

std::string RowWriter::Column(const ResultSet& rows, int field) const {
    return OpenSession().EngineInUse().ColumnInStatement(rows.FieldName(field));
}

RowMatch RowWriter::MatchOf(const ResultSet& rows, int row) {
    FindTable();
    return keyColumns_.empty() ? MatchByAllColumns(rows, row) : MatchByKey(rows, row);
}

RowMatch RowWriter::MatchByKey(const ResultSet& rows, int row) const {
    RowMatch match;
    for (const std::string& name : keyColumns_) {
        const int field = rows.FieldNumber(name);
        if (field < 0)
            FailAccess(FailureNumber::NotUpdatable,
                       "The rows cannot be written back without their key column " + name + ".");
        match.condition += match.condition.empty() ? "" : " AND ";
        match.condition += Column(rows, field) + " = ?";
        match.parameters.push_back(rows.At(row, field));
    }
    return match;
}

RowMatch RowWriter::MatchByAllColumns(const ResultSet& rows, int row) const {
    std::vector<std::string> columns;
    std::vector<Value> values;
    for (int field = 0; field < rows.FieldCount(); ++field) {
        columns.push_back(rows.FieldName(field));
        values.push_back(rows.At(row, field));
    }
    return OpenSession().EngineInUse().KeylessMatch(table_, columns, values);
}

void RowWriter::Insert(const ResultSet& rows, const Assignments& assigned) {
    FindTable();
    if (assigned.empty())
        return Run("INSERT INTO " + table_ + " DEFAULT VALUES", {});
    std::string columns;
    std::string places;
    std::vector<Value> parameters;
    for (const auto& [field, value] : assigned) {
        columns += (columns.empty() ? "" : ", ") + Column(rows, field);
        places += places.empty() ? "?" : ", ?";
        parameters.push_back(value);
    }
    Run("INSERT INTO " + table_ + " (" + columns + ") VALUES (" + places + ")", parameters);
}

void RowWriter::Update(const ResultSet& rows, int row, const Assignments& assigned) {
    const RowMatch match = MatchOf(rows, row);
    std::string changes;
    std::vector<Value> parameters;
    for (const auto& [field, value] : assigned) {
        changes += (changes.empty() ? "" : ", ") + Column(rows, field) + " = ?";
        parameters.push_back(value);
    }
    parameters.insert(parameters.end(), match.parameters.begin(), match.parameters.end());
    Run("UPDATE " + match.limit + table_ + " SET " + changes + " WHERE " + match.condition,
        parameters);
}

void RowWriter::Delete(const ResultSet& rows, int row) {
    const RowMatch match = MatchOf(rows, row);
    Run("DELETE " + match.limit + "FROM " + table_ + " WHERE " + match.condition, match.parameters);
}

// The key, or the limit of the condition without a key, excludes a second row, so nothing has been
// changed if no row was found.
void RowWriter::Run(const std::string& statement, const std::vector<Value>& parameters) const {
    ResultSet nothing;
    if (OpenSession().Run(statement, parameters, nothing) != 1)
        FailDatabase("The row in " + table_ +
                     " cannot be found for writing: some of its values have been changed, or it "
                     "has been deleted, since it was read.");
}

} // namespace Quillane
