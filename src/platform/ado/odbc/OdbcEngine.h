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

/// A database server behind an ODBC driver: SQL Server, or whatever else has a driver. Statements
/// go out as they are; where SQL Server finds no keys because a name means a view, it is asked for
/// those of the table of that name in dbo. Of a text with several statements the first result with
/// columns is kept; the others are read past, so that nothing unread ever stays behind on the
/// connection, and a failure in any of them is the failure of the whole.
///
/// A failure tells every diagnostic record of the driver. After one inside a transaction the server
/// is asked whether it has ended the transaction; where it cannot be asked, it counts as ended.
class OdbcEngine : public Engine {
public:
    OdbcEngine(const ConnectionString& connection, const SignIn& signIn);

    long Run(std::string_view statement, std::span<const Value> parameters,
             ResultSet& result) override;
    void ReadBlocks(std::string_view query, const BlockReader& take) override;
    /// By arrays of parameters.
    void RunForEach(std::string_view statement, const ResultSet& rows) override;
    void Begin() override;
    void Commit() override;
    /// Where the server refuses even this, the connection is left, which ends the transaction too.
    void Rollback() override;
    bool InTransaction() override { return inTransaction_; }
    /// Looked up in the catalogue once for each table.
    std::vector<std::string> KeyColumns(std::string_view table) override;
    std::string ColumnInStatement(std::string_view column) override;
    /// The columns' types are looked up once for each table.
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
    bool MeansView(const std::string& name);
    std::vector<std::string> LookUpKey(std::string_view table);
    std::string KnownAs(std::string_view table) const;
    const std::vector<OdbcColumn>& ColumnsOf(const std::string& table);
    void Leave();
    bool DriverCallsItDead() const;
    bool TransactionIsOpen();
    /// `whereUnanswered` is added to the words of a failure behind which nobody knows what the
    /// server has done: its answer is missing.
    [[noreturn]] void FailAfter(const Failure& failure, const std::string& whereUnanswered = {});

    OdbcHandle environment_;
    OdbcHandle connection_;
    OdbcDialect dialect_;
    OdbcNames names_;
    int commandSeconds_;
    OdbcBlock block_;
    OdbcHandle idle_;            ///< a statement to run the next text with; empty after a failure
    bool inTransaction_ = false; ///< as the server sees it
    bool isLost_ = false;        ///< the way to the server is broken, for good
    std::map<std::string, std::vector<std::string>> keys_;
    std::map<std::string, std::vector<OdbcColumn>> columns_;
};

} // namespace Quillane
