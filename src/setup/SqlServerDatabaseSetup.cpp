#include "setup/SqlServerDatabaseSetup.h"

#include "platform/ado/Transaction.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "setup/CompanyParticulars.h"
#include "setup/DatabaseScripts.h"
#include "setup/SchemaMessages.h"
#include "setup/SchemaUpgrade.h"

namespace Quillane {

namespace {

/// Typed text is written through a recordset, not in a statement, so it may contain any character.
Recordset RowsToWrite(Connection& connection, const std::string& table) {
    Recordset rows;
    rows.Open("Select * From " + table, connection, adOpenStatic, adLockOptimistic);
    return rows;
}

/// Moves to the row with this key, or to the end.
void MoveToKey(Recordset& rows, std::string_view key) {
    while (!rows.Eof() && !EqualIgnoringCase(Trim(rows.Fields("registrykey").TextOrEmpty()), key))
        rows.MoveNext();
}

void AddParticular(Connection& connection, std::string_view key, const std::string& value,
                   bool replaces) {
    Recordset rows = RowsToWrite(connection, "Project_Registry");
    MoveToKey(rows, key);
    const std::string stored(rows.Eof() ? "" : Trim(rows.Fields("value").TextOrEmpty()));
    if (stored == value || (!stored.empty() && !replaces))
        return;
    if (rows.Eof()) {
        rows.AddNew();
        rows.Collect("registrykey", std::string(key));
    }
    rows.Collect("value", value);
    rows.Update();
}

/// A table of the site may have other required columns, or shorter ones. A row that it does not
/// accept is left out and reported.
void AddParticulars(Connection& connection, const NewDatabase& particulars,
                    std::vector<std::string>& rowsNotAdded) {
    for (const CompanyParticular& each : CompanyParticulars) {
        try {
            AddParticular(connection, each.key, particulars.*each.text,
                          particulars.replaceParticulars);
        } catch (const Failure&) {
            rowsNotAdded.push_back("Project_Registry: " + std::string(each.key));
        }
    }
}

/// The settings of the scale's line that the script could not add.
void NoteMissingSettings(Connection& connection, std::vector<std::string>& rowsNotAdded) {
    for (const std::string key :
         {"PortName", "PortSettings", "DataDirection", "DataLength", "IsReversed"}) {
        const Recordset rows = connection.Execute(
            "Select Count(*) From PortSettings Where RegistryKey = '" + key + "'");
        if (rows.Fields(0).Number() == 0)
            rowsNotAdded.push_back("PortSettings: " + key);
    }
}

void AddUser(Recordset& users, const std::string& name, const std::string& password, int level,
             HashCost cost) {
    users.AddNew();
    users.Collect("UserName", name);
    users.Collect("PasswordHash", HashPassword(password, cost));
    users.Collect("UserLevel", level);
    users.Update();
}

/// One transaction: an interrupted set-up must not leave the first user without the second.
void AddFirstUsers(Connection& connection, const NewDatabase& particulars, bool withSampleUser) {
    Transaction transaction(connection);
    Recordset users = RowsToWrite(connection, "StationUsers");
    if (users.RecordCount() == 0) {
        AddUser(users, particulars.userName, particulars.password, 1, particulars.hashCost);
        if (withSampleUser && !EqualIgnoringCase(particulars.userName, SampleUserName))
            AddUser(users, SampleUserName, SampleUserName, 2, particulars.hashCost);
    }
    transaction.Commit();
}

bool HasAccountsOrArrivals(Connection& connection) {
    return connection
               .Execute("Select (Select Count(*) From ChartOfAccounts) + "
                        "(Select Count(*) From Arrivals)")
               .Fields(0)
               .Number() > 0;
}

[[noreturn]] void FailOnVersion(const std::string& text) {
    throw Failure(FailureNumber::InvalidCall, text, FailureSource::Database);
}

/// Upgrades an older database. A database without a version is new, or its set-up was interrupted:
/// the script for a new one completes it.
void RunMissingSteps(Connection& connection) {
    const double version = ReadSchemaVersion(connection);
    if (version == UnreadableSchemaVersion)
        FailOnVersion(UnreadableSchemaText());
    if (version > SchemaVersionOfProgram())
        FailOnVersion(NewerSchemaText(version));
    if (version > 0)
        RunSqlServerSchemaSteps(connection, version, SqlServerSchemaSteps());
}

} // namespace

SetupOutcome SetUpSqlServerDatabase(Connection& connection, const NewDatabase& particulars,
                                    const ScriptProgress& progress) {
    SetupOutcome outcome;
    RunMissingSteps(connection);
    if (!RunScript(connection, DatabaseScripts::SqlServerSchema, progress))
        return outcome;
    const bool withSampleRows = particulars.sampleRows && !HasAccountsOrArrivals(connection);
    AddParticulars(connection, particulars, outcome.rowsNotAdded);
    NoteMissingSettings(connection, outcome.rowsNotAdded);
    if (!particulars.userName.empty())
        AddFirstUsers(connection, particulars, withSampleRows);
    // After the users: the next run finds these rows and adds nothing.
    if (withSampleRows)
        RunScript(connection, DatabaseScripts::SqlServerSampleRows);
    outcome.isFinished = true;
    return outcome;
}

} // namespace Quillane
