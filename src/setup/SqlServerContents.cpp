#include "setup/SqlServerContents.h"

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "setup/CompanyParticulars.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace Quillane {

namespace {

constexpr const char* neededTables[] = {
    "Arrivals",     "ArrivalsBody", "Parties",          "ChartOfAccounts", "Cities",
    "Commodities",  "BagsClasses",  "BagsTypes",        "PContracts",      "PRCenters",
    "PurchaseBody", "PortSettings", "Project_Registry", "StationUsers",    "StationSchema"};
constexpr const char* neededFunctions[] = {"FunGetPartyName", "FunGetCommodity"};

std::string IdOf(const char* name) {
    return " OBJECT_ID(N'dbo." + std::string(name) + "')";
}

// The name is used as in the statements of a station: a table of dbo, or the station's view of it.
bool MayBeRead(Connection& connection, const std::string& table) {
    try {
        connection.Execute("Select Count(*) From " + table + " Where 1 = 0");
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void FindMissing(Connection& connection, SqlServerContents& found) {
    for (const char* name : neededTables)
        if (!MayBeRead(connection, name))
            found.missing.emplace_back(name);
    std::string query;
    for (const char* name : neededFunctions)
        query += (query.empty() ? "Select" : ",") + IdOf(name);
    const Recordset ids = connection.Execute(query);
    int field = 0;
    for (const char* name : neededFunctions)
        if (ids.Fields(field++).IsNull())
            found.missing.emplace_back(name);
    found.isEmpty = found.missing.size() == std::size(neededTables) + std::size(neededFunctions);
}

bool IsThere(const SqlServerContents& found, std::string_view name) {
    return std::find(found.missing.begin(), found.missing.end(), name) == found.missing.end();
}

long CountOf(Connection& connection, const std::string& table) {
    return static_cast<long>(
        connection.Execute("Select Count(*) From " + table).Fields(0).Number());
}

void ReadContents(Connection& connection, SqlServerContents& found) {
    if (IsThere(found, "Arrivals"))
        found.arrivals = CountOf(connection, "Arrivals");
    if (IsThere(found, "StationUsers"))
        found.users = CountOf(connection, "StationUsers");
    if (!IsThere(found, "Project_Registry"))
        return;
    for (const CompanyParticular& each : CompanyParticulars) {
        const Recordset row =
            connection.Execute("Select value From Project_Registry Where registrykey ='" +
                               std::string(each.key) + "'");
        if (!row.Eof())
            found.company.*each.text = Trim(row.Fields("value").TextOrEmpty());
    }
}

} // namespace

SqlServerContents LookAtSqlServerDatabase(Connection& connection) {
    SqlServerContents found;
    FindMissing(connection, found);
    ReadContents(connection, found);
    const Recordset facts = connection.Execute(
        "Select CAST(DATABASEPROPERTYEX(DB_NAME(), 'Collation') AS nvarchar(128)), "
        "HAS_PERMS_BY_NAME(DB_NAME(), 'DATABASE', 'CONTROL')");
    found.collation = facts.Fields(0).TextOrEmpty();
    found.mayBeCreated = !facts.Fields(1).IsNull() && facts.Fields(1).Number() == 1;
    found.isComplete = found.missing.empty() && found.users > 0;
    return found;
}

} // namespace Quillane
