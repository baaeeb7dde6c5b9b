#pragma once

#include "data/Con.h"
#include "database/SchemaLines.h"
#include "platform/ado/Connection.h"
#include "servers/SqlServerDatabase.h"
#include "setup/EmbeddedSchema.h"
#include "setup/SqlServerDatabaseSetup.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Quillane {

/// The rows of a query, each with its fields joined by bars.
std::vector<std::string> RowsOf(Connection& connection, std::string_view query);

/// Every column, object, index, role and function text of the database. Objects are listed with
/// their numbers, so that an object that was created again is reported as another one.
std::vector<std::string> CatalogueOf(Connection& connection);

/// The schema in the server's catalogue, in capitals: not every server keeps the case of names.
SchemaLines LinesOfServer(Connection& connection);
SchemaLines InCapitals(const SchemaLines& lines);

/// Every row of every table, with the table's name before it.
std::vector<std::string> ContentsOf(Connection& connection);

NewDatabase ParticularsOfServer();

/// A new database. Waits while the server is creating another one.
std::unique_ptr<SqlServerDatabase> MakeDatabase();

/// `Con`, opened by the owner of a new database on the SQL Server that tests/sqlserver.local names.
class SqlServerSite : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void SetUpStation() { SetUpSqlServerDatabase(*Con, ParticularsOfServer()); }
    /// Creates the tables of a mill with untidy-site.sql of this folder.
    void MakeUntidySite();
    std::string Ask(std::string_view query) { return Con->Execute(query).Fields(0).Text(); }

    std::unique_ptr<SqlServerDatabase> database;
};

/// A user who is signed in to the test's database with only one role. Requires: the owner's
/// connection outlives it.
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
