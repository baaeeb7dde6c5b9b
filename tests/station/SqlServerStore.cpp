#include "station/StationStore.h"

#include "platform/runtime/Failure.h"
#include "servers/SqlServerDatabase.h"
#include "setup/DatabaseScripts.h"
#include "setup/SqlServerDatabaseSetup.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

namespace Quillane {

namespace {

/// The tables of the schema, each after those that refer to it.
constexpr const char* tables[] = {
    "SaleRecoveryBody", "Sales",        "LaboratoryReports", "PurchaseBody", "ArrivalsBody",
    "Arrivals",         "PContracts",   "PRCenters",         "BagsTypes",    "BagsClasses",
    "Commodities",      "Parties",      "ChartOfAccounts",   "Cities",       "PortSettings",
    "Project_Registry", "StationUsers", "StationSchema"};

/// Functions bound to tables: while they exist, the tables cannot be renamed.
constexpr std::pair<const char*, const char*> functionsOfTables[] = {
    {"FunGetPartyName", "ChartOfAccounts"},
    {"FunGetPartyName", "Parties"},
    {"FunGetPartyName", "Cities"},
    {"FunGetCommodity", "Commodities"}};

/// The database of all tests of the program.
class Site {
public:
    Site() { owner.Open(database.ConnectionString()); }

    std::vector<std::string> Objects() {
        std::vector<std::string> names;
        Recordset found = owner.Execute(
            "Select name From sys.objects Where is_ms_shipped = 0 Order By name, type");
        for (; !found.Eof(); found.MoveNext())
            names.push_back(found.Fields(0).Text());
        return names;
    }

    SqlServerDatabase database;
    Connection owner; ///< a session that is not the station's
    std::vector<std::string> objects;
};

std::unique_ptr<Site> site;

void MakeFunctions(Connection& connection) {
    for (const std::string& batch : ScriptBatches(DatabaseScripts::SqlServerSchema))
        if (batch.find("CREATE FUNCTION") != std::string::npos)
            connection.Execute(batch);
}

std::string Emptying() {
    std::string statements;
    for (const char* table : tables)
        statements += "DELETE FROM " + std::string(table) + ";";
    return statements;
}

/// False if there is no site, if its objects have changed, or if it cannot be emptied.
bool CanBeUsedAgain(const NewDatabase& particulars) {
    try {
        if (!site || site->Objects() != site->objects)
            return false;
        site->owner.Execute(Emptying());
        SetUpSqlServerDatabase(site->owner, particulars);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void PrepareSite(const NewDatabase& particulars) {
    if (CanBeUsedAgain(particulars))
        return;
    site.reset();
    site = std::make_unique<Site>();
    SetUpSqlServerDatabase(site->owner, particulars);
    site->objects = site->Objects();
}

/// The value as the embedded database returns it.
Value Cell(const Value& value) {
    if (std::holds_alternative<Date>(value.Raw()))
        return value.Text();
    const bool isNumber = std::holds_alternative<Value::Decimal>(value.Raw());
    if (!isNumber)
        return value;
    const double number = value.Number();
    if (std::trunc(number) == number)
        return static_cast<std::int64_t>(number);
    return number;
}

class SqlServerStore : public StationDatabase::Store {
public:
    explicit SqlServerStore(const NewDatabase& particulars) { PrepareSite(particulars); }

    // Without the driver's name, which the program adds itself.
    std::string ConfigText() const override {
        const std::string text = site->database.ConnectionString();
        return text.substr(text.find(';') + 1);
    }
    void Run(const std::string& statements) override {
        try {
            site->owner.Execute(statements);
        } catch (const Failure& failure) {
            ADD_FAILURE() << failure.Description() << "\n" << statements;
        }
    }
    std::vector<StationDatabase::Row> Rows(const std::string& query) override {
        std::vector<StationDatabase::Row> rows;
        Recordset found = site->owner.Execute(query);
        for (; !found.Eof(); found.MoveNext()) {
            StationDatabase::Row& cells = rows.emplace_back();
            for (int field = 0; field < found.FieldCount(); ++field)
                cells.push_back(Cell(found.Fields(field)));
        }
        return rows;
    }
    void Rename(const std::string& table, const std::string& name) override {
        for (const auto& [function, bound] : functionsOfTables)
            if (table == bound)
                Run("DROP FUNCTION dbo." + std::string(function));
        Run("EXEC sp_rename 'dbo." + table + "', '" + name + "', 'OBJECT'");
    }
    // The outer side of a join gives nullable columns without identity. The station's view of the
    // table is dropped too: these tests work as the owner, on the tables of dbo.
    void Loosen(const std::string& table) override {
        DropLinks(table);
        Run("IF OBJECT_ID('Station." + table + "') IS NOT NULL DROP VIEW Station." + table);
        Rename(table, "Strict");
        Run("SELECT Strict.* INTO dbo." + table +
            " FROM (SELECT 1 AS One) AS Always LEFT OUTER JOIN dbo.Strict ON 1 = 1");
        Run("DROP TABLE dbo.Strict");
        MakeFunctions(site->owner);
    }
    // A refusal that leaves the transaction open undoes nothing; the refused client rolls back.
    void Refuse(const StationDatabase::Refusal& refusal) override {
        const std::string rows = refusal.write == "INSERT" ? "inserted" : "deleted";
        Run("CREATE TRIGGER Closed ON dbo." + refusal.table + " AFTER " + refusal.write +
            " AS IF EXISTS (SELECT 1 FROM " + rows +
            (refusal.condition.empty() ? "" : " WHERE " + refusal.condition) +
            ") BEGIN RAISERROR('" + refusal.words + "', 16, 1);" +
            (refusal.endsTransaction ? " ROLLBACK TRANSACTION;" : "") + " END");
    }

private:
    /// Foreign keys on and of a table.
    void DropLinks(const std::string& table) {
        const std::string id = "OBJECT_ID('dbo." + table + "')";
        for (const StationDatabase::Row& link :
             Rows("SELECT OBJECT_NAME(parent_object_id), name FROM sys.foreign_keys WHERE "
                  "parent_object_id = " +
                  id + " OR referenced_object_id = " + id))
            Run("ALTER TABLE dbo." + link[0].Text() + " DROP CONSTRAINT " + link[1].Text());
    }
};

/// Drops the database after the last test.
class ServerOfTests : public testing::Environment {
public:
    void TearDown() override { site.reset(); }
};

// NOLINTNEXTLINE(cert-err58-cpp)
testing::Environment* const serverOfTests =
    testing::AddGlobalTestEnvironment(new ServerOfTests); // owned by the test framework

} // namespace

std::unique_ptr<StationDatabase::Store> MakeSqlServerStore(const NewDatabase& particulars) {
    return std::make_unique<SqlServerStore>(particulars);
}

} // namespace Quillane
