#pragma once

#include "data/Con.h"
#include "database/SchemaLines.h"
#include "platform/ado/Connection.h"
#include "servers/SqlServerDatabase.h"
#include "setup/EmbeddedSchema.h"
#include "setup/SqlServerSchema.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Quillane {

/// Rows of a query, each as its fields joined by bars.
std::vector<std::string> RowsOf(Connection& connection, std::string_view query);

/// Every column, object, index, role and function's text of the database. Objects carry their
/// numbers: one that has been made anew is another one.
std::vector<std::string> CatalogueOf(Connection& connection);

/// What the server's catalogue says of the schema, in capitals: not every server keeps the case of
/// names.
SchemaLines LinesOfServer(Connection& connection);
SchemaLines InCapitals(const SchemaLines& lines);

/// Every row of every table, with the table's name in front.
std::vector<std::string> ContentsOf(Connection& connection);

NewDatabase ParticularsOfServer();

/// A fresh database; waits where the server is busy making another one.
std::unique_ptr<SqlServerDatabase> MakeDatabase();

/// `Con`, open on a fresh database of the SQL Server that the local file names, for its owner.
/// Skipped, out loud, where there is no such file.
class SqlServerSite : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void SetUpStation() { SetUpSqlServerDatabase(*Con, ParticularsOfServer()); }
    /// The mill's own tables, as untidy-site.sql in this folder makes them.
    void MakeUntidySite();
    std::string Ask(std::string_view query) { return Con->Execute(query).Fields(0).Text(); }

    std::unique_ptr<SqlServerDatabase> database;
};

/// Someone who signs in to the test's database with one role and nothing else. The owner's
/// connection must outlive it.
class RoleMember {
public:
    RoleMember(Connection& owner, const SqlServerDatabase& database, const std::string& role);
    RoleMember(Connection& owner, const SqlServerDatabase& database, const std::string& role,
               const std::string& defaultSchema);
    ~RoleMember();
    RoleMember(const RoleMember&) = delete;
    RoleMember& operator=(const RoleMember&) = delete;

    void SignInAgain();

    std::unique_ptr<Connection> connection;

private:
    void DropLogin();

    Connection& owner_;
    const SqlServerDatabase& database_;
    std::string name_;
};

} // namespace Quillane
