// Setting up a fresh database on SQL Server.

#include "database/SqlServerSite.h"

#include "data/EmbeddedFunctions.h"
#include "platform/runtime/Failure.h"
#include "setup/DatabaseScripts.h"
#include "setup/SchemaUpgrade.h"
#include "signin/UserLogin.h"

#include <algorithm>
#include <filesystem>

namespace Quillane {

namespace {

/// A new embedded database with the same particulars.
class EmbeddedDatabaseBeside {
public:
    EmbeddedDatabaseBeside() {
        std::string pattern = (std::filesystem::temp_directory_path() / "schema-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        CreateEmbeddedDatabase(folder_ + "/Account1.db", ParticularsOfServer());
        connection.SetEmbeddedSupport(
            {.folder = folder_, .registerFunctions = RegisterEmbeddedFunctions});
        connection.Open("Server=(embedded);Database=Account1");
    }
    ~EmbeddedDatabaseBeside() { std::filesystem::remove_all(folder_); }
    EmbeddedDatabaseBeside(const EmbeddedDatabaseBeside&) = delete;
    EmbeddedDatabaseBeside& operator=(const EmbeddedDatabaseBeside&) = delete;

    Connection connection;

private:
    std::string folder_;
};

std::string Shown(const Value& value) {
    if (value.IsNull())
        return "Null";
    try {
        return std::to_string(value.Number());
    } catch (const Failure&) {
        return value.Text();
    }
}

/// The rows of a table without its first `leftOut` columns. All numbers have one form, because a
/// decimal of one engine is a whole number of the other.
std::vector<std::string> NumbersAndTexts(Connection& connection, const std::string& table,
                                         int leftOut) {
    std::vector<std::string> rows;
    Recordset found = connection.Execute("Select * From " + table);
    for (; !found.Eof(); found.MoveNext()) {
        std::string row;
        for (int field = leftOut; field < found.FieldCount(); ++field)
            row += Shown(found.Fields(field)) + "|";
        rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// All rows except those of users, whose passwords get a new salt each time.
std::vector<std::string> ContentsWithoutUsers(Connection& connection) {
    std::vector<std::string> rows = ContentsOf(connection);
    std::erase_if(rows, [](const std::string& row) { return row.starts_with("STATIONUSERS"); });
    return rows;
}

void ExpectWholeSchema(Connection& connection) {
    const SchemaLines wanted = InCapitals(LinesOfEmbeddedSchema(DatabaseScripts::EmbeddedSchema));
    const SchemaLines made = LinesOfServer(connection);
    EXPECT_EQ(OnlyIn(wanted, made), SchemaLines{}) << "missing on the server";
    EXPECT_EQ(OnlyIn(made, wanted), SchemaLines{}) << "only on the server";
}

int BatchesOfSetUp() {
    return static_cast<int>(ScriptBatches(DatabaseScripts::SqlServerSchema).size());
}

} // namespace

class SqlServerSchema : public SqlServerSite {};

TEST_F(SqlServerSchema, HasTheSameSchemaAsTheEmbeddedDatabase) {
    SetUpStation();
    ExpectWholeSchema(*Con);
}

TEST_F(SqlServerSchema, HasTheSampleRowsOfTheEmbeddedDatabase) {
    SetUpStation();
    EmbeddedDatabaseBeside embedded;
    struct Table {
        const char* name;
        int numberedByServer; ///< leading columns that the server fills
    };
    constexpr Table tables[] = {
        {"Cities", 0},
        {"ChartOfAccounts", 0},
        {"Parties", 0},
        {"Commodities", 0},
        {"BagsClasses", 0},
        {"BagsTypes", 0},
        {"PRCenters", 0},
        {"PContracts", 0},
        {"Arrivals", 0},
        {"ArrivalsBody", 1},
        {"PortSettings", 0},
        {"PurchaseBody", 1},
        {"LaboratoryReports", 1},
        {"Sales", 0},
        {"SaleRecoveryBody", 1},
        {"StationSchema", 0},
    };
    for (const Table& table : tables) {
        const auto rows = NumbersAndTexts(*Con, table.name, table.numberedByServer);
        EXPECT_FALSE(rows.empty()) << table.name;
        EXPECT_EQ(rows, NumbersAndTexts(embedded.connection, table.name, table.numberedByServer))
            << table.name;
    }
}

TEST_F(SqlServerSchema, StoresTheCompanyAndTheUsers) {
    SetUpStation();
    EXPECT_EQ(RowsOf(*Con, "Select registrykey, value From Project_Registry Order By registrykey"),
              (std::vector<std::string>{"CompanyAddress|14 Canal Road, O'Kara; -- \"ملتان\"",
                                        "CompanyEmail|gate@veltrane.example",
                                        "CompanyName|Veltrane Flour Mills",
                                        "CompanyPhone|044 555 0147"}));
    UserLoginObject login;
    login.SetConnection(*Con);
    EXPECT_EQ(login.SignIn("nadia", "grain"), UserLoginObject::Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), 1);
    EXPECT_EQ(login.SignIn("gate", "gate"), UserLoginObject::Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), 2);
}

TEST_F(SqlServerSchema, AddsNoSampleRowsUnlessWanted) {
    NewDatabase particulars = ParticularsOfServer();
    particulars.sampleRows = false;
    SetUpSqlServerDatabase(*Con, particulars);
    for (const char* table : {"ChartOfAccounts", "Arrivals", "Parties", "Cities", "Commodities"})
        EXPECT_EQ(Ask("Select Count(*) From " + std::string(table)), "0") << table;
    EXPECT_EQ(RowsOf(*Con, "Select UserName, UserLevel From StationUsers"),
              std::vector<std::string>{"Nadia|1"});
    EXPECT_EQ(Ask("Select IsNull(Max(ArrivalID),0)+1 From Arrivals"), "1");
}

TEST_F(SqlServerSchema, ASecondRunChangesNothing) {
    SetUpStation();
    RenewRights(*Con);
    const auto catalogue = CatalogueOf(*Con);
    const auto contents = ContentsOf(*Con);
    NewDatabase others = ParticularsOfServer();
    others.companyName = "Brellix";
    others.companyPhone = "1";
    others.userName = "stranger";
    SetUpSqlServerDatabase(*Con, others);
    RenewRights(*Con);
    EXPECT_EQ(CatalogueOf(*Con), catalogue);
    EXPECT_EQ(ContentsOf(*Con), contents);
}

TEST_F(SqlServerSchema, SampleRowsAreAddedOnlyToAnEmptyDatabase) {
    NewDatabase particulars = ParticularsOfServer();
    particulars.sampleRows = false;
    SetUpSqlServerDatabase(*Con, particulars);
    Con->Execute("Insert Into ChartOfAccounts (AccountNo, AccountName) Values ('1', 'Cash')");
    const auto contents = ContentsOf(*Con);
    SetUpStation();
    EXPECT_EQ(ContentsOf(*Con), contents);
}

// ---- interruptions ----

TEST_F(SqlServerSchema, CancelledAtEachBatchIsCompletedByTheNextRun) {
    const auto other = MakeDatabase();
    Connection straight;
    straight.Open(other->ConnectionString());
    SetUpSqlServerDatabase(straight, ParticularsOfServer());

    const int batches = BatchesOfSetUp();
    ASSERT_GT(batches, 30);
    for (int allowed = 0; allowed < batches; ++allowed)
        ASSERT_FALSE(SetUpSqlServerDatabase(*Con, ParticularsOfServer(), [=](int done, int) {
            return done < allowed;
        })) << allowed;
    EXPECT_TRUE(SetUpSqlServerDatabase(*Con, ParticularsOfServer()));

    EXPECT_EQ(LinesOfServer(*Con), LinesOfServer(straight));
    EXPECT_EQ(ContentsWithoutUsers(*Con), ContentsWithoutUsers(straight));
    EXPECT_EQ(Ask("Select Count(*) From StationUsers"), "2");
}

TEST_F(SqlServerSchema, ALostConnectionAtAnyBatchIsCompletedByTheNextRun) {
    const int batches = BatchesOfSetUp();
    for (int lost = 1; lost < batches; lost += 13) {
        const auto fresh = MakeDatabase();
        Connection first;
        first.Open(fresh->ConnectionString());
        const std::string session = first.Execute("Select @@SPID").Fields(0).Text();
        const auto killAt = [&](int done, int) {
            if (done == lost)
                Con->Execute("KILL " + session);
            return true;
        };
        EXPECT_THROW(SetUpSqlServerDatabase(first, ParticularsOfServer(), killAt), Failure) << lost;
        Connection second;
        second.Open(fresh->ConnectionString());
        EXPECT_TRUE(SetUpSqlServerDatabase(second, ParticularsOfServer())) << lost;
        ExpectWholeSchema(second);
        EXPECT_EQ(second.Execute("Select Count(*) From Arrivals").Fields(0).Text(), "12") << lost;
    }
}

TEST_F(SqlServerSchema, SampleRowsAreAddedAllOrNone) {
    NewDatabase particulars = ParticularsOfServer();
    particulars.sampleRows = false;
    SetUpSqlServerDatabase(*Con, particulars);
    Con->Execute("Insert Into BagsTypes (BagsTypeId, BagsType) Values (9, '50 Kg')");
    const auto contents = ContentsOf(*Con);
    EXPECT_THROW(SetUpStation(), Failure);
    EXPECT_EQ(ContentsOf(*Con), contents);
    Con->Execute("Delete From BagsTypes");
    SetUpStation();
    EXPECT_EQ(Ask("Select Count(*) From Arrivals"), "12");
}

TEST_F(SqlServerSchema, ATableIsCreatedWithAllItsIndexesOrNotAtAll) {
    // The key's name is taken, so that Sales fails after the tables before it.
    Con->Execute("Create Table StationKeyOfSales (Id int)");
    EXPECT_THROW(SetUpStation(), Failure);
    EXPECT_EQ(Ask("Select Count(*) From INFORMATION_SCHEMA.TABLES Where TABLE_NAME = 'Sales'"),
              "0");
    EXPECT_EQ(ReadSchemaVersion(*Con), 0);
    Con->Execute("Drop Table StationKeyOfSales");
    SetUpStation();
    ExpectWholeSchema(*Con);
}

} // namespace Quillane
