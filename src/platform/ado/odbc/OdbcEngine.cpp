#include "platform/ado/odbc/OdbcEngine.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/odbc/OdbcCatalogue.h"
#include "platform/ado/odbc/OdbcConnect.h"
#include "platform/ado/odbc/OdbcDiagnostics.h"
#include "platform/ado/odbc/OdbcParameterBlock.h"
#include "platform/ado/odbc/OdbcParameters.h"
#include "platform/ado/odbc/OdbcText.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Quillane {

OdbcEngine::OdbcEngine(const ConnectionAttributes& connection, const SignIn& signIn)
    : environment_(OdbcEnvironment()), connection_(ConnectByOdbc(environment_, connection, signIn)),
      dialect_(OdbcDialectOf(OdbcInformation(connection_, SQL_DBMS_NAME))),
      names_(connection_, dialect_.server == OdbcDialect::Server::TSql),
      commandSeconds_(signIn.commandTimeoutSeconds) {
    if (!dialect_.setUp.empty())
        RunPlain(dialect_.setUp);
}

OdbcHandle OdbcEngine::NewStatement() {
    OdbcHandle statement(SQL_HANDLE_STMT, connection_);
    const auto seconds = static_cast<std::uintptr_t>(std::max(commandSeconds_, 0));
    // A driver without this limit works without it.
    static_cast<void>(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT,
                                      reinterpret_cast<SQLPOINTER>(seconds), SQL_IS_UINTEGER));
    block_.Attach(statement);
    return statement;
}

// Allocating and freeing a handle takes a tenth of the time of a small query.
OdbcHandle OdbcEngine::TakeStatement() {
    return idle_.Get() == nullptr ? NewStatement() : std::exchange(idle_, {});
}

long OdbcEngine::Run(std::string_view statement, std::span<const Value> parameters,
                     ResultSet& result) {
    try {
        const long changed = Execute(statement, parameters, result);
        if (dialect_.server == OdbcDialect::Server::TSql && result.RowCount() == 0)
            ReadKeysOfViewedTable(statement, result);
        return changed;
    } catch (const Failure& failure) {
        // The statement is closed, so the connection can run another one.
        FailAfter(failure);
    }
}

long OdbcEngine::Execute(std::string_view text, std::span<const Value> parameters,
                         ResultSet& result) {
    OdbcHandle statement = TakeStatement();
    const OdbcParameters bound(statement, parameters);
    OdbcText odbcText = ToOdbc(text);
    statement.Check(SQLExecDirectW(statement.Get(), odbcText.data(),
                                   static_cast<SQLINTEGER>(odbcText.size() - 1)));
    const long changed = ReadResults(statement, result);
    if (statement.Clear())
        idle_ = std::move(statement);
    return changed;
}

void OdbcEngine::ReadBlocks(std::string_view query, const BlockReader& take) {
    try {
        const OdbcHandle statement = NewStatement();
        OdbcText text = ToOdbc(query);
        statement.Check(
            SQLExecDirectW(statement.Get(), text.data(), static_cast<SQLINTEGER>(text.size() - 1)));
        SQLSMALLINT columns = 0;
        statement.Check(SQLNumResultCols(statement.Get(), &columns));
        ReadOdbcBlocks(statement, columns, block_, take);
    } catch (const Failure& failure) {
        FailAfter(failure);
    }
}

void OdbcEngine::RunForEach(std::string_view statement, const ResultSet& rows) {
    try {
        for (int first = 0; first < rows.RowCount();) {
            const OdbcHandle handle = NewStatement();
            OdbcParameterBlock block(handle, rows, first);
            block.Execute(statement);
            first += block.RowCount();
        }
    } catch (const Failure& failure) {
        FailAfter(failure);
    }
}

// A trigger may report row counts before the statement that fired it. The last count is that of the
// statement.
long OdbcEngine::ReadResults(const OdbcHandle& statement, ResultSet& result) {
    long changed = -1;
    SQLRETURN outcome = SQL_SUCCESS;
    while (outcome != SQL_NO_DATA) {
        SQLSMALLINT columns = 0;
        statement.Check(SQLNumResultCols(statement.Get(), &columns));
        if (columns == 0) {
            SQLLEN count = -1;
            if (SQL_SUCCEEDED(SQLRowCount(statement.Get(), &count)) && count >= 0)
                changed = static_cast<long>(count);
        } else if (result.FieldCount() == 0) {
            ReadOdbcRows(statement, columns, block_, result);
        }
        outcome = SQLMoreResults(statement.Get());
        statement.Check(outcome);
    }
    return changed;
}

void OdbcEngine::RunPlain(const std::string& statement) {
    ResultSet nothing;
    Execute(statement, {}, nothing);
}

// A driver that cannot answer has no connection.
bool OdbcEngine::DriverReportsDead() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN outcome = SQLGetConnectAttrW(connection_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead,
                                                 sizeof dead, nullptr);
    return !SQL_SUCCEEDED(outcome) || dead == SQL_CD_TRUE;
}

bool OdbcEngine::TransactionIsOpen() {
    if (dialect_.openTransactions.empty())
        return false;
    try {
        ResultSet count;
        Execute(dialect_.openTransactions, {}, count);
        return count.RowCount() == 1 && count.At(0, 0).Number() > 0;
    } catch (const Failure&) {
        return false;
    }
}

// Not every driver marks a lost connection as dead, and none restores it. After the first sign of
// one, every failure is reported as a lost connection.
void OdbcEngine::FailAfter(const Failure& failure, const std::string& ifUnanswered) {
    const auto* odbc = dynamic_cast<const OdbcFailure*>(&failure);
    isLost_ = isLost_ || (odbc && odbc->IsLostConnection()) || DriverReportsDead();
    if (inTransaction_)
        inTransaction_ = !isLost_ && TransactionIsOpen();
    std::string description = failure.Description();
    if (isLost_)
        description += "\nThe connection to the database server is lost. "
                       "Restart the program to reconnect.";
    if (isLost_ || (odbc && odbc->IsTimeout() && !inTransaction_))
        description += ifUnanswered;
    if (const auto* database = dynamic_cast<const DatabaseFailure*>(&failure))
        throw DatabaseFailure(description, database->Codes());
    throw Failure(failure.Number(), description, failure.Source());
}

void OdbcEngine::Begin() {
    try {
        RunPlain(dialect_.begin);
    } catch (const Failure& failure) {
        FailAfter(failure);
    }
    inTransaction_ = true;
}

// The server may have received the commit, with only its answer missing.
void OdbcEngine::Commit() {
    try {
        RunPlain(dialect_.commit);
    } catch (const Failure& failure) {
        FailAfter(failure, "\nThe save or removal may or may not have completed. "
                           "Check the record before repeating it.");
    }
    inTransaction_ = false;
}

void OdbcEngine::Rollback() {
    inTransaction_ = false;
    if (isLost_)
        return;
    try {
        RunPlain(dialect_.rollback);
    } catch (const Failure&) {
        CloseConnection();
    }
}

void OdbcEngine::CloseConnection() {
    idle_ = {};
    SQLDisconnect(connection_.Get());
    isLost_ = true;
}

// Statements spell the name of a table in several cases. SQL Server ignores the case.
std::string OdbcEngine::CacheKey(std::string_view table) const {
    return dialect_.server == OdbcDialect::Server::TSql ? UpperCase(table) : std::string(table);
}

std::vector<std::string> OdbcEngine::KeyColumns(std::string_view table) {
    const std::string cacheKey = CacheKey(table);
    const auto known = keys_.find(cacheKey);
    if (known != keys_.end())
        return known->second;
    try {
        return keys_.emplace(cacheKey, LookUpKey(table)).first->second;
    } catch (const Failure& failure) {
        FailAfter(failure);
    }
}

// If the name is not that of a view, the empty first answer stays.
void OdbcEngine::ReadKeysOfViewedTable(std::string_view statement, ResultSet& result) {
    const std::string question = ForeignKeysOfViewedTable(statement);
    if (question.empty())
        return;
    ResultSet keys;
    Execute(question, {}, keys);
    if (keys.FieldCount() > 0)
        result = std::move(keys);
}

bool OdbcEngine::IsView(const std::string& name) {
    ResultSet view;
    Execute(ViewQuestion(name), {}, view);
    return view.RowCount() == 1;
}

std::vector<std::string> OdbcEngine::LookUpKey(std::string_view table) {
    OdbcTable named = names_.Table(table);
    std::vector<std::string> key = OdbcPrimaryKey(NewStatement(), named, block_);
    const bool mayBeView = key.empty() && named.schema.empty();
    if (mayBeView && dialect_.server == OdbcDialect::Server::TSql && IsView(named.name)) {
        named.schema = "dbo";
        key = OdbcPrimaryKey(NewStatement(), named, block_);
    }
    return key;
}

std::string OdbcEngine::ColumnInStatement(std::string_view column) {
    return names_.ColumnInStatement(column);
}

const std::vector<OdbcColumn>& OdbcEngine::ColumnsOf(const std::string& table) {
    const std::string cacheKey = CacheKey(table);
    const auto known = columns_.find(cacheKey);
    if (known != columns_.end())
        return known->second;
    try {
        return columns_.emplace(cacheKey, OdbcColumnsOfTable(NewStatement(), table)).first->second;
    } catch (const Failure& failure) {
        FailAfter(failure);
    }
}

RowMatch OdbcEngine::KeylessMatch(std::string_view table, std::span<const std::string> columns,
                                  std::span<const Value> values) {
    const std::vector<OdbcColumn>& described = ColumnsOf(std::string(table));
    std::vector<OdbcMatchedColumn> matched;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto column =
            std::find_if(described.begin(), described.end(), [&](const OdbcColumn& candidate) {
                return EqualIgnoringCase(candidate.name, columns[i]);
            });
        matched.push_back({ColumnInStatement(columns[i]),
                           column == described.end() ? OdbcColumn{} : *column, values[i]});
    }
    return OdbcKeylessMatch(dialect_.server, table, matched);
}

std::string OdbcEngine::DefaultDatabase() {
    SQLWCHAR name[256] = {};
    SQLINTEGER bytes = 0;
    connection_.Check(
        SQLGetConnectAttrW(connection_.Get(), SQL_ATTR_CURRENT_CATALOG, name, sizeof name, &bytes));
    return FromOdbc(name, static_cast<std::size_t>(
                              std::find(std::begin(name), std::end(name), SQLWCHAR{0}) - name));
}

} // namespace Quillane
