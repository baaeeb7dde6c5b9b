#include "platform/ado/ConnectionContract.h"

#include "platform/ado/EmbeddedFolder.h"
#include "servers/PostgresServer.h"
#include "servers/SqlServerDatabase.h"
#include "support/SkipIfMissing.h"

namespace Quillane {

namespace {

class EmbeddedContractDatabase : public ContractDatabase {
public:
    std::string ConnectionString() const override {
        return std::string(EmbeddedFolder::connectionString);
    }
    EmbeddedSupport Support() const override { return folder_.Support(); }

private:
    EmbeddedFolder folder_;
};

class PostgresContractDatabase : public ContractDatabase {
public:
    std::string ConnectionString() const override { return database_.ConnectionString(); }

private:
    PostgresDatabase database_;
};

class SqlServerContractDatabase : public ContractDatabase {
public:
    std::string ConnectionString() const override { return database_.ConnectionString(); }

private:
    SqlServerDatabase database_;
};

ContractEngine Embedded() {
    ContractEngine engine;
    engine.name = "Embedded";
    engine.textType = "varchar(60) COLLATE QTEXT";
    engine.momentType = "datetime";
    engine.make = [] { return std::make_unique<EmbeddedContractDatabase>(); };
    return engine;
}

ContractEngine OdbcOnPostgres() {
    ContractEngine engine;
    engine.name = "Postgres";
    engine.textType = "varchar(60)";
    engine.momentType = "timestamp";
    engine.whyMissing = [] { return PostgresServer::WhyMissing(); };
    engine.make = [] { return std::make_unique<PostgresContractDatabase>(); };
    return engine;
}

ContractEngine OdbcOnSqlServer() {
    ContractEngine engine;
    engine.name = "SqlServer";
    engine.textType = "nvarchar(60)";
    engine.momentType = "datetime";
    engine.make = [] { return std::make_unique<SqlServerContractDatabase>(); };
    return engine;
}

} // namespace

std::vector<ContractEngine> ContractEngines() {
    return {Embedded(), OdbcOnPostgres(), OdbcOnSqlServer()};
}

std::vector<ContractEngine> TSqlContractEngines() {
    return {Embedded(), OdbcOnSqlServer()};
}

void ConnectionContract::SetUp() {
    const ContractEngine& engine = GetParam();
    SKIP_IF_MISSING(engine.whyMissing());
    database = engine.make();
    connection.SetEmbeddedSupport(database->Support());
    connection.Open(database->ConnectionString());
    Run("CREATE TABLE Arrivals (ArrivalID int NOT NULL PRIMARY KEY, ArrivalDate " +
        engine.momentType + " NULL, SellerId " + engine.textType + " NULL, DriverName " +
        engine.textType + " NULL, TareWeight float NULL, IsPosted int NOT NULL DEFAULT 5)");
    Run("CREATE TABLE ArrivalsBody (ArrivalId int NULL REFERENCES Arrivals (ArrivalID), NoOfBags "
        "float NULL, VehicleNo " +
        engine.textType + " NULL)");
    Run("CREATE TABLE BagsClasses (BagsClassId int NOT NULL, Variant " + engine.textType +
        " NOT NULL, BagsClass " + engine.textType + " NULL, PRIMARY KEY (BagsClassId, Variant))");
    connection.StatementObserver = [this](std::string_view text) { observed.emplace_back(text); };
}

void ConnectionContract::AddThreeArrivals() {
    Run("Insert Into Arrivals (ArrivalID, ArrivalDate, SellerId, DriverName, TareWeight) Values "
        "(1, '2026-11-20T00:00:00', '6001', 'Ali', 4320), "
        "(2, '2026-11-21T00:00:00', '6002', 'Bano', 4100.5), (3, Null, Null, 'Chand', Null)");
    Run("Insert Into ArrivalsBody (ArrivalId, NoOfBags, VehicleNo) Values (1, 30, 'LES-1'), "
        "(1, 10, ''), (2, 20, 'LES-2'), (2, 20, 'LES-2'), (3, 5, Null), (3, 6, Null)");
    observed.clear();
}

std::string ConnectionContract::AllRows(Recordset& rows) {
    std::string text;
    for (; !rows.Eof(); rows.MoveNext()) {
        text += text.empty() ? "" : ";";
        for (int field = 0; field < rows.FieldCount(); ++field) {
            const Value value = rows.Fields(field);
            text += (field > 0 ? "," : "") + (value.IsNull() ? "-" : value.Text());
        }
    }
    return text;
}

std::string ConnectionContract::AllRows(std::string_view statement) {
    Recordset rows = Reading(statement);
    return AllRows(rows);
}

Recordset ConnectionContract::Reading(std::string_view source) {
    Recordset rows;
    rows.Open(source, connection, adOpenStatic, adLockReadOnly);
    return rows;
}

Recordset ConnectionContract::Writing(std::string_view source) {
    Recordset rows;
    rows.Open(source, connection, adOpenStatic, adLockOptimistic);
    return rows;
}

} // namespace Quillane
