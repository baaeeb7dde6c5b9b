#pragma once

#include <span>
#include <string>
#include <string_view>

namespace Quillane {

class Connection;

/// One step of the schema: the number that it leads to, and its script.
struct SchemaStep {
    double version;
    std::string_view script;
};

/// All steps of an embedded database, in order.
std::span<const SchemaStep> SchemaSteps();

/// The same steps for a database on SQL Server.
std::span<const SchemaStep> SqlServerSchemaSteps();

/// What a program of this build works with: the number of the last step.
double SchemaVersionOfProgram();

/// Stands for a schema number that cannot be read.
inline constexpr double UnreadableSchemaVersion = -1;

/// The database's schema number; 0 where the table or its row is missing.
double ReadSchemaVersion(Connection& connection);

/// Runs, in order, the steps behind `from`, each in a transaction of its own together with writing
/// its number. The first failure is rolled back and ends it: the steps before it stay.
void RunSchemaSteps(Connection& connection, double from, std::span<const SchemaStep> steps);

/// The same on SQL Server, in batches. The last step also brings the rights of the roles up to
/// date. Stations that start at the same time wait for each other, and one of them runs the steps.
void RunSqlServerSchemaSteps(Connection& connection, double from,
                             std::span<const SchemaStep> steps);

/// Brings the roles on SQL Server, their views and their rights up to date. Adds the triggers of
/// guards.sql to the two tables of weighments where the set-up has created both. Needs the rights
/// of the database's owner.
void RenewRights(Connection& connection);

/// Whether whoever has signed in to SQL Server may run those steps. The role of stations may not.
bool MayChangeSchema(Connection& connection);

/// Copies an embedded database, beside its file and on the disk, before a change of its schema.
/// Returns the copy's path: "<name>-before-<version>.db", with a further number where there is one.
std::string CopyBeforeUpgrade(Connection& connection, const std::string& file, double toVersion);

} // namespace Quillane
