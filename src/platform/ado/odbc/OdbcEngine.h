#pragma once

#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcDialect.h"
#include "platform/ado/odbc/OdbcHandle.h"
#include "platform/ado/odbc/OdbcNames.h"
#include "platform/ado/odbc/OdbcRows.h"

#include <map>
#include <string>

namespace Quillane {

class Failure;

/// A database server with an ODBC driver, such as SQL Server. Statements are sent unchanged. If SQL
/// Server finds no keys because a name is that of a view, the keys of the table with that name in
/// dbo are looked up. Of a text with several statements the first result with columns is kept. The
/// others are read to their ends, so that no unread rows block the connection; a failure in one of
/// them is the failure of the whole text.
///
/// A failure has the text of every diagnostic record. After a failure inside a transaction the
/// engine asks the server whether the transaction is still open; if the server does not answer, the
/// transaction counts as ended.
class OdbcEngine : public Engine {
public:
    OdbcEngine(const ConnectionAttributes& connection, const SignIn& signIn);

    long Run(std::string_view statement, std::span<const Value> parameters,
             ResultSet& result) override;
    void ReadBlocks(std::string_view query, const BlockReader& take) override;
    /// By arrays of parameters.
    void RunForEach(std::string_view statement, const ResultSet& rows) override;
    void Begin() override;
    void Commit() override;
    /// If the server refuses, the connection is closed, which ends the transaction too.
    void Rollback() override;
    bool InTransaction() override { return inTransaction_; }
    /// Reads the catalogue once for each table.
    std::vector<std::string> KeyColumns(std::string_view table) override;
    std::string ColumnInStatement(std::string_view column) override;
    /// Reads the types of the columns once for each table.
    RowMatch KeylessMatch(std::string_view table, std::span<const std::string> columns,
                          std::span<const Value> values) override;
    std::string DefaultDatabase() override;

private:
    long Execute(std::string_view statement, std::span<const Value> parameters, ResultSet& result);
    void RunPlain(const std::string& statement);
    long ReadResults(const OdbcHandle& statement, ResultSet& result);
    OdbcHandle NewStatement();
    OdbcHandle TakeStatement();
    void ReadKeysOfViewedTable(std::string_view statement, ResultSet& result);
    bool IsView(const std::string& name);
    std::vector<std::string> LookUpKey(std::string_view table);
    std::string CacheKey(std::string_view table) const;
    const std::vector<OdbcColumn>& ColumnsOf(const std::string& table);
    void CloseConnection();
    bool DriverReportsDead() const;
    bool TransactionIsOpen();
    /// Throws the failure with the state of the connection added to its description, and with
    /// `ifUnanswered` if the server's answer is missing.
    [[noreturn]] void FailAfter(const Failure& failure, const std::string& ifUnanswered = {});

    OdbcHandle environment_;
    OdbcHandle connection_;
    OdbcDialect dialect_;
    OdbcNames names_;
    int commandSeconds_;
    OdbcBlock block_;
    OdbcHandle idle_;            ///< the statement handle for the next text; empty after a failure
    bool inTransaction_ = false; ///< on the server
    bool isLost_ = false;        ///< the connection to the server; it stays lost
    std::map<std::string, std::vector<std::string>> keys_;
    std::map<std::string, std::vector<OdbcColumn>> columns_;
};

} // namespace Quillane
