#pragma once

#include <span>
#include <string>
#include <string_view>

namespace Quillane {

class Connection;

/// A step of the schema: its script, and the version after it.
struct SchemaStep {
    double version;
    std::string_view script;
};

/// All steps of an embedded database, in order.
std::span<const SchemaStep> SchemaSteps();

/// The same for a database on SQL Server.
std::span<const SchemaStep> SqlServerSchemaSteps();

/// The schema version of this program: that of the last step.
double SchemaVersionOfProgram();

/// The value for a schema version that cannot be read.
inline constexpr double UnreadableSchemaVersion = -1;

/// The schema version of the database; 0 if the table or its row is missing.
double ReadSchemaVersion(Connection& connection);

/// Runs the steps after version `from` in order. Each step and the writing of its version are one
/// transaction. A failure is rolled back and ends the upgrade; earlier steps stay.
void RunSchemaSteps(Connection& connection, double from, std::span<const SchemaStep> steps);

/// The same on SQL Server, in batches. The last step also updates the rights of the roles. Of
/// several stations that start at the same time one runs the steps; the others wait for it.
void RunSqlServerSchemaSteps(Connection& connection, double from,
                             std::span<const SchemaStep> steps);

/// Updates the roles on SQL Server, their views and their rights. Adds the triggers of guards.sql
/// to the two tables of weighments if the set-up has created both. Requires: the rights of the
/// database's owner.
void RenewRights(Connection& connection);

/// True if the user of the connection may run these steps on SQL Server. The role of stations may
/// not.
bool MayChangeSchema(Connection& connection);

/// Copies an embedded database in its folder before a change of its schema, and flushes the copy to
/// the disk. Returns the path of the copy: "<name>-before-<version>.db", with a number added if
/// that file exists.
std::string CopyBeforeUpgrade(Connection& connection, const std::string& file, double toVersion);

} // namespace Quillane
