#include "data/SqlServerSchema.h"

#include "data/EmbeddedScripts.h"
#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

#include <utility>

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

void AddParticular(Connection& connection, std::string_view key, const std::string& value) {
    Recordset rows = RowsToWrite(connection, "Project_Registry");
    MoveToKey(rows, key);
    if (rows.Eof()) {
        rows.AddNew();
        rows.Collect("registrykey", std::string(key));
    } else if (!Trim(rows.Fields("value").TextOrEmpty()).empty()) {
        return;
    }
    rows.Collect("value", value);
    rows.Update();
}

void AddParticulars(Connection& connection, const NewDatabase& particulars) {
    for (const auto& [key, value] : {std::pair{"CompanyName", &particulars.companyName},
                                     std::pair{"CompanyAddress", &particulars.companyAddress},
                                     std::pair{"CompanyPhone", &particulars.companyPhone},
                                     std::pair{"CompanyEmail", &particulars.companyEmail}})
        AddParticular(connection, key, *value);
}

void AddUser(Recordset& users, const std::string& name, const std::string& password, int level,
             HashCost cost) {
    users.AddNew();
    users.Collect("UserName", name);
    users.Collect("PasswordHash", HashPassword(password, cost));
    users.Collect("UserLevel", level);
    users.Update();
}

void AddFirstUsers(Connection& connection, const NewDatabase& particulars) {
    Recordset users = RowsToWrite(connection, "StationUsers");
    if (users.RecordCount() > 0)
        return;
    AddUser(users, particulars.userName, particulars.password, 1, particulars.hashCost);
    if (particulars.sampleRows && !EqualIgnoringCase(particulars.userName, SampleUserName))
        AddUser(users, SampleUserName, SampleUserName, 2, particulars.hashCost);
}

} // namespace

bool SetUpSqlServerDatabase(Connection& connection, const NewDatabase& particulars,
                            const ScriptProgress& progress) {
    if (!RunScript(connection, EmbeddedScripts::SqlServerSchema, progress))
        return false;
    if (particulars.sampleRows)
        RunScript(connection, EmbeddedScripts::SqlServerSampleRows);
    RunScript(connection, EmbeddedScripts::SqlServerRoles);
    AddParticulars(connection, particulars);
    AddFirstUsers(connection, particulars);
    return true;
}

} // namespace Quillane
