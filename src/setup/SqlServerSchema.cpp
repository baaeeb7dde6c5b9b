#include "setup/SqlServerSchema.h"

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "setup/CompanyParticulars.h"
#include "setup/EmbeddedScripts.h"
#include "setup/SchemaUpgrade.h"

namespace Quillane {

namespace {

/// A text typed at set-up goes by a row, not by a statement: it may hold whatever it likes.
Recordset RowsToWrite(Connection& connection, const std::string& table) {
    Recordset rows;
    rows.Open("Select * From " + table, connection, adOpenStatic, adLockOptimistic);
    return rows;
}

/// Stands on the row of that key afterwards, or at the end.
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

/// A table of the site's own may have further columns that must be filled, or be too narrow: the
/// row is then noted and left out.
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

/// All or none: a broken-off set-up must not leave the first user without the second.
void AddFirstUsers(Connection& connection, const NewDatabase& particulars, bool withSampleUser) {
    connection.BeginTrans();
    try {
        Recordset users = RowsToWrite(connection, "StationUsers");
        if (users.RecordCount() == 0) {
            AddUser(users, particulars.userName, particulars.password, 1, particulars.hashCost);
            if (withSampleUser && !EqualIgnoringCase(particulars.userName, SampleUserName))
                AddUser(users, SampleUserName, SampleUserName, 2, particulars.hashCost);
        }
        connection.CommitTrans();
    } catch (const Failure&) {
        connection.RollbackTrans();
        throw;
    }
}

bool HasRowsOfAMill(Connection& connection) {
    return connection
               .Execute("Select (Select Count(*) From ChartOfAccounts) + "
                        "(Select Count(*) From Arrivals)")
               .Fields(0)
               .Number() > 0;
}

[[noreturn]] void FailOnVersion(const std::string& text) {
    throw Failure(FailureNumber::InvalidCall, text + " The database is left as it is.",
                  FailureSource::Database);
}

/// Brings an older database up to date. One without a number is new, or its set-up was broken off:
/// the script for a new one does the rest.
void RunMissingSteps(Connection& connection) {
    const double version = ReadSchemaVersion(connection);
    if (version == UnreadableSchemaVersion)
        FailOnVersion("The schema number of the database cannot be read: the table StationSchema "
                      "must hold one row with a number.");
    if (version > SchemaVersionOfProgram())
        FailOnVersion("The database has the schema number " + NumberText(version) +
                      ", which is newer than this program (" +
                      NumberText(SchemaVersionOfProgram()) +
                      "). Please install the newer program.");
    if (version > 0)
        RunSqlServerSchemaSteps(connection, version, SqlServerSchemaSteps());
}

} // namespace

SetUpOutcome SetUpSqlServerDatabase(Connection& connection, const NewDatabase& particulars,
                                    const ScriptProgress& progress) {
    SetUpOutcome outcome;
    RunMissingSteps(connection);
    if (!RunScript(connection, EmbeddedScripts::SqlServerSchema, progress))
        return outcome;
    const bool withSampleRows = particulars.sampleRows && !HasRowsOfAMill(connection);
    AddParticulars(connection, particulars, outcome.rowsNotAdded);
    NoteMissingSettings(connection, outcome.rowsNotAdded);
    if (!particulars.userName.empty())
        AddFirstUsers(connection, particulars, withSampleRows);
    // Behind the users, since these rows are what tells the next run that there is nothing to do.
    if (withSampleRows)
        RunScript(connection, EmbeddedScripts::SqlServerSampleRows);
    outcome.isFinished = true;
    return outcome;
}

} // namespace Quillane
