#include "setup/SchemaUpgrade.h"

#include "data/Catalogue.h"
#include "platform/ado/Transaction.h"
#include "platform/forms/core/Text.h"
#include "platform/host/PrivateFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "setup/DatabaseScripts.h"
#include "setup/ScriptBatches.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

#include <array>
#include <vector>

namespace Quillane {

namespace {

/// The statements of a script. SQLite finds their ends, so a semicolon in a text or a comment does
/// not end one.
std::vector<std::string> Statements(std::string_view script) {
    std::vector<std::string> statements;
    std::string text;
    for (const char character : script) {
        text += character;
        if (character == ';' && sqlite3_complete(text.c_str())) {
            statements.push_back(text.substr(0, text.size() - 1));
            text.clear();
        }
    }
    return statements;
}

void WriteVersion(Connection& connection, double version) {
    connection.Execute("Delete From StationSchema");
    connection.Execute("Insert Into StationSchema (SchemaVersion) Values (" + NumberText(version) +
                       ")");
}

void RunStep(Connection& connection, const SchemaStep& step) {
    Transaction transaction(connection);
    for (const std::string& statement : Statements(step.script))
        connection.Execute(statement);
    WriteVersion(connection, step.version);
    transaction.Commit();
}

double VersionInTable(Connection& connection) {
    const Recordset rows = connection.Execute("Select SchemaVersion From StationSchema");
    if (rows.RecordCount() == 0)
        return 0;
    if (rows.RecordCount() > 1)
        return UnreadableSchemaVersion;
    try {
        const double version = rows.Fields(0).Number();
        return version >= 0 ? version : UnreadableSchemaVersion;
    } catch (const Failure&) {
        return UnreadableSchemaVersion;
    }
}

/// Locks out the other stations until the transaction ends; they then find the step done.
bool IsStillMissing(Connection& connection, double version) {
    connection.Execute("EXEC sp_getapplock @Resource = N'StationSchema', @LockMode = N'Exclusive'");
    return connection.Execute("Select OBJECT_ID(N'dbo.StationSchema')").Fields(0).IsNull() ||
           VersionInTable(connection) < version;
}

void RunSqlServerStep(Connection& connection, const SchemaStep& step, bool isLast) {
    Transaction transaction(connection);
    if (IsStillMissing(connection, step.version)) {
        RunScript(connection, step.script);
        if (isLast)
            RenewRights(connection);
        WriteVersion(connection, step.version);
    }
    transaction.Commit();
}

std::string NameOfCopy(const std::string& file, double toVersion) {
    const QFileInfo info(ToQt(file));
    const QString base =
        info.path() + "/" + info.completeBaseName() + "-before-" + ToQt(NumberText(toVersion));
    QString name = base + ".db";
    for (int number = 2; QFile::exists(name); ++number)
        name = base + "-" + QString::number(number) + ".db";
    return FromQt(name);
}

} // namespace

std::span<const SchemaStep> SchemaSteps() {
    static const std::array steps{SchemaStep{1, DatabaseScripts::EmbeddedUpgradeTo1},
                                  SchemaStep{2, DatabaseScripts::EmbeddedUpgradeTo2}};
    return steps;
}

std::span<const SchemaStep> SqlServerSchemaSteps() {
    static const std::array steps{SchemaStep{1, DatabaseScripts::SqlServerUpgradeTo1},
                                  SchemaStep{2, DatabaseScripts::SqlServerUpgradeTo2}};
    return steps;
}

double SchemaVersionOfProgram() {
    return SchemaSteps().back().version;
}

double ReadSchemaVersion(Connection& connection) {
    return TableExists(connection, "StationSchema") ? VersionInTable(connection) : 0;
}

void RunSchemaSteps(Connection& connection, double from, std::span<const SchemaStep> steps) {
    for (const SchemaStep& step : steps)
        if (step.version > from)
            RunStep(connection, step);
}

void RunSqlServerSchemaSteps(Connection& connection, double from,
                             std::span<const SchemaStep> steps) {
    for (const SchemaStep& step : steps)
        if (step.version > from)
            RunSqlServerStep(connection, step, &step == &steps.back());
}

void RenewRights(Connection& connection) {
    RunScript(connection, DatabaseScripts::SqlServerRoles);
    const Recordset own = connection.Execute("Select OBJECT_ID(N'dbo.StationKeyOfArrivals'), "
                                             "OBJECT_ID(N'dbo.StationKeyOfArrivalsBody')");
    if (!own.Fields(0).IsNull() && !own.Fields(1).IsNull())
        RunScript(connection, DatabaseScripts::SqlServerGuards);
}

bool MayChangeSchema(Connection& connection) {
    const Recordset answer =
        connection.Execute("Select HAS_PERMS_BY_NAME(DB_NAME(), N'DATABASE', N'CONTROL')");
    return !answer.Fields(0).IsNull() && answer.Fields(0).Number() == 1;
}

std::string CopyBeforeUpgrade(Connection& connection, const std::string& file, double toVersion) {
    const std::string name = NameOfCopy(file, toVersion);
    // The copy gets its name when it is complete, so an incomplete one is never used.
    const std::string unfinished = file + ".copy";
    QFile::remove(ToQt(unfinished));
    MakePrivateFile(unfinished);
    connection.Execute("VACUUM INTO '" + Doubled(unfinished, '\'') + "'");
    FlushToDisk(unfinished);
    QFile copy(ToQt(unfinished));
    if (!copy.rename(ToQt(name)))
        throw Failure(FailureNumber::PathAccess, FromQt(copy.errorString()) + ": " + name);
    return name;
}

} // namespace Quillane
