// The rights of the two roles. A statement pasted into a box of the station cannot harm the rest of
// the database.

#include "database/SqlServerSite.h"

#include "data/Common.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "setup/DatabaseScripts.h"
#include "setup/SchemaUpgrade.h"
#include "signin/UserLogin.h"
#include "station/SystemStatements.h"

#include <iostream>

namespace Quillane {

namespace {

/// The text of the refusal; empty if the statement ran.
std::string RefusalOf(Connection& connection, const std::string& statement) {
    try {
        connection.Execute(statement);
        return {};
    } catch (const Failure& failure) {
        return failure.Description();
    }
}

bool IsAboutRights(const std::string& words) {
    const std::string capitals = UpperCase(words);
    return capitals.find("PERMISSION") != capitals.npos ||
           capitals.find("MUST BE OWNER") != capitals.npos;
}

/// The text that completes a search for a party's name.
std::string SearchedName(const std::string& pasted) {
    return searchStatement + " And dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%" +
           pasted + "%' Order By Arrivals.ArrivalId desc";
}

const std::vector<std::string>& RefusedToStations() {
    static const std::vector<std::string> statements{
        // Tables of dbo, which a station can use only through its views
        "Select * From dbo.Arrivals",
        "Select * From dbo.ArrivalsBody",
        "Select * From dbo.Parties",
        "Select * From dbo.PurchaseBody",
        "Select * From dbo.LaboratoryReports",
        "Select * From dbo.PortSettings",
        "Select * From dbo.Project_Registry",
        "Select * From dbo.StationUsers",
        "Select PasswordHash From dbo.StationUsers",
        "Update dbo.Arrivals Set IsPosted = 0",
        "Delete From dbo.ArrivalsBody",
        "Update dbo.Project_Registry Set value = 'x' Where registrykey = 'FiscalYear'",
        "Select * From dbo.Payroll",
        "Select * From dbo.Sales",
        "Select * From dbo.SaleRecoveryBody",
        "Select Count(*) From Arrivals; Select Salary From dbo.Payroll",
        "Exec (N'Select Salary From dbo.Payroll')",
        "Exec sp_executesql N'Select Salary From dbo.Payroll'",
        SearchedName("' Union All Select EmployeeNo, Null, 'x', 'x' From dbo.Payroll --"),
        SearchedName("' Union All Select 1, Null, UserName, PasswordHash From dbo.StationUsers --"),
        // Other columns of the tables that the functions read
        "Select CreditLimit From dbo.Parties",
        "Select IsEditable From dbo.ChartOfAccounts",
        "Update dbo.ChartOfAccounts Set AccountName = 'x'",
        // The books' own figures and what refers to an arrival
        "Update Arrivals Set ArrivalID = ArrivalID",
        "Update ArrivalsBody Set NetWeight = 1",
        "Insert Into PurchaseBody (ArrivalId) Select ArrivalId From PurchaseBody Where 1 = 0",
        "Update PurchaseBody Set ArrivalId = 1031",
        "Delete From PurchaseBody",
        "Delete From LaboratoryReports",
        // The mill's lists
        "Insert Into ChartOfAccounts (AccountNo, AccountName, IsEditable) Values ('1', 'Mine', 1)",
        "Update Parties Set IsSeller = 1",
        "Delete From Cities Where CityId = 99",
        "Update Commodities Set IsPurchaseable = 1",
        "Delete From BagsTypes",
        // The station's own tables
        "Delete From StationUsers",
        "Update StationUsers Set UserLevel = 1",
        "Delete From dbo.StationUsers",
        "Insert Into dbo.StationUsers (UserName, PasswordHash, UserLevel) Values ('me', '', 1)",
        "Update dbo.StationUsers Set UserLevel = 1",
        "Update Station.SignedInUser Set userlevel = 1",
        "Insert Into PortSettings (RegistryKey, RegistryValue) Values ('PortName', '9')",
        "Update PortSettings Set RegistryKey = 'PortName' Where RegistryKey = 'PortName'",
        "Delete From PortSettings",
        "Insert Into Project_Registry (registrykey, value) Select registrykey, value From "
        "Project_Registry Where 1 = 0",
        "Update Project_Registry Set registrykey = 'CompanyName' Where registrykey = 'CompanyName'",
        "Delete From Project_Registry",
        "Update StationSchema Set SchemaVersion = 99",
        // The schema
        "Truncate Table dbo.ArrivalsBody",
        "Drop Table dbo.Payroll",
        "Drop View Station.Arrivals",
        "Drop Trigger dbo.StationGuardOfArrivals",
        "Alter Table dbo.Arrivals Add Mine int",
        "Create Table dbo.Loot (Id int)",
        "Create Table Station.Loot (Id int)",
        "Create View dbo.Loot As Select * From dbo.Payroll",
        "Create View Station.Payroll As Select * From dbo.Payroll",
        "Create Procedure dbo.Loot As Select * From dbo.Payroll",
        "Create Procedure Station.Loot As Select * From dbo.Payroll",
        "Create Index Mine On dbo.Arrivals (PermitNo)",
        "Drop Function dbo.FunGetPartyName",
        SearchedName("'; Drop Table dbo.Payroll --"),
        // Rights
        "Grant Select On dbo.Payroll To StationOperator",
        "Alter Role StationReader Add Member StationOperator",
        "Create Role Mine",
        "Exec master..xp_cmdshell 'dir'",
        "Exec sp_configure 'xp_cmdshell', 1",
    };
    return statements;
}

/// Names that no view of a station has, or computed columns: invalid for any rights.
const std::vector<std::string>& UnknownToStations() {
    static const std::vector<std::string> statements{
        "Select CreditLimit From Parties",
        "Select Quantity From PurchaseBody",
        "Select PurchaseLineId From PurchaseBody",
        "Select Moisture From LaboratoryReports",
        "Select ContractDate From PContracts",
        "Select PasswordHash From StationUsers",
        "Select * From Payroll",
        "Select * From Sales",
        "Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId, IsPosted, NoOfBags) "
        "Values (3000, '2026-11-20T00:00:00', 1, '6010001', 0, 5)",
        "Update Arrivals Set NoOfBags = 1, BagWeight = 1 Where ArrivalID = 1034",
        "Update Arrivals Set TareWeight = 0 Where ArrivalID = 1036",
    };
    return statements;
}

/// What the guards refuse to a user of another level than 1, by row: 1036 is posted.
const std::vector<std::string>& GuardedRows() {
    static const std::vector<std::string> statements{
        "Update Arrivals Set SellerId = '6010002', IsPosted = 0 Where ArrivalID = 1036",
        "Update Arrivals Set IsPosted = 0 Where ArrivalID = 1036",
        "Update Arrivals Set IsPosted = 0",
        "Delete From ArrivalsBody Where ArrivalId = 1036",
        "Delete From ArrivalsBody",
        "Insert Into ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, "
        "TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, NetWeight) Values "
        "(1036, 1, 1, 1, 1, 0, 0, 1, 0, 0, 1)",
        "Delete From Arrivals Where ArrivalID = 2000",
        SearchedName("'; Delete From ArrivalsBody Where ArrivalId = 1036 --"),
    };
    return statements;
}

const std::vector<std::string>& RefusedToReaders() {
    static const std::vector<std::string> statements{
        "Select * From Payroll",
        "Select * From StationUsers",
        "Select * From PortSettings",
        "Select * From Project_Registry",
        "Select * From PurchaseBody",
        "Select CreditLimit From Parties",
        "Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) Values "
        "(1, '2026-11-20T00:00:00', 1, '6010001')",
        "Update Arrivals Set IsPosted=0 where arrivalid=1034",
        "Delete From ArrivalsBody",
        "Delete From arrivals where arrivalid=99",
        "Update PortSettings set RegistryValue='2' where registrykey = 'PortName'",
        "Update Project_Registry set value ='MINE' Where registrykey ='CompanyName'",
        "Create Table dbo.Loot (Id int)",
        "Drop Table Payroll",
    };
    return statements;
}

} // namespace

class SqlServerRoles : public SqlServerSite {
protected:
    void SetUp() override {
        SqlServerSite::SetUp();
        if (!Con)
            return;
        SetUpStation();
        for (const char* statement :
             {"Create Table Payroll (EmployeeNo int Not Null Primary Key, Salary money Not Null)",
              "Insert Into Payroll Values (1, 40000)",
              "Alter Table Parties Add CreditLimit money Null"})
            Con->Execute(statement);
    }

    /// True if the owner may run the statement, so that a station's refusal is due to its rights. A
    /// statement that this server does not support is printed and skipped.
    bool OwnerMay(const std::string& statement) {
        Con->BeginTrans();
        const std::string refusal = RefusalOf(*Con, statement);
        Con->RollbackTrans();
        if (!refusal.empty())
            std::cout << "[ UNSUPPORTED ] " << statement << "\n             " << refusal << "\n";
        return refusal.empty();
    }

    using IsRefusal = bool (*)(const std::string& words);
    /// The number of statements that this server refuses.
    int ExpectRefused(RoleMember& member, const std::vector<std::string>& statements,
                      IsRefusal isRefusal = IsAboutRights) {
        const auto catalogue = CatalogueOf(*Con);
        const auto contents = ContentsOf(*Con);
        int refused = 0;
        for (const std::string& statement : statements) {
            if (!OwnerMay(statement))
                continue;
            const std::string words = RefusalOf(*member.connection, statement);
            EXPECT_TRUE(isRefusal(words)) << statement << "\n" << words;
            refused += isRefusal(words) ? 1 : 0;
        }
        EXPECT_EQ(CatalogueOf(*Con), catalogue);
        EXPECT_EQ(ContentsOf(*Con), contents);
        return refused;
    }

    static void SignIn(RoleMember& station, const char* name, const char* password) {
        UserLoginObject login;
        login.SetConnection(*station.connection);
        ASSERT_EQ(login.SignIn(name, password), UserLoginObject::Attempt::SignedIn);
    }
};

TEST_F(SqlServerRoles, AStationRunsEveryQuery) {
    RoleMember station(*Con, *database, "StationOperator");
    for (const SystemQuery& query : SystemQueries()) {
        // This table does not refer to an arrival in our schema, so no station reads it.
        if (query.text.find("SaleRecoveryBody") != query.text.npos)
            continue;
        EXPECT_EQ(station.connection->Execute(query.text).RecordCount(), query.rows) << query.text;
    }
    for (const char* query :
         {"Select SchemaVersion From StationSchema", "Select Count(*) From StationUsers",
          "Select registrykey, value From Project_Registry",
          "Select value From Project_Registry Where registrykey ='CompanyName'"})
        EXPECT_GT(station.connection->Execute(query).RecordCount(), 0) << query;
}

TEST_F(SqlServerRoles, AStationWritesItsSettings) {
    RoleMember station(*Con, *database, "StationOperator");
    for (const char* key :
         {"PortName", "PortSettings", "DataDirection", "DataLength", "IsReversed"}) {
        const std::string where = " where registrykey = '" + std::string(key) + "'";
        station.connection->Execute("Update PortSettings set RegistryValue='7'" + where);
        EXPECT_EQ(Ask("Select RegistryValue From PortSettings" + where), "7");
    }
    station.connection->Execute(
        "Update Project_Registry set value ='BRELLIX' Where registrykey ='CompanyName'");
    EXPECT_EQ(Ask("Select value From Project_Registry Where registrykey ='CompanyName'"),
              "BRELLIX");
}

TEST_F(SqlServerRoles, AStationSignsUsersInAndSeesNoHash) {
    RoleMember station(*Con, *database, "StationOperator");
    UserLoginObject login;
    login.SetConnection(*station.connection);
    EXPECT_EQ(login.SignIn(" nadia ", "grain"), UserLoginObject::Attempt::SignedIn);
    EXPECT_EQ(login.UserName(), "Nadia");
    EXPECT_EQ(login.UserLevel(), 1);
    EXPECT_EQ(login.SignIn("Nadia", "Grain"), UserLoginObject::Attempt::Wrong);
    EXPECT_EQ(login.SignIn("it's nobody", "grain"), UserLoginObject::Attempt::Wrong);
    EXPECT_EQ(login.SignIn("gate", "gate"), UserLoginObject::Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), 2);
    const std::string hash = Ask("Select PasswordHash From StationUsers Where UserName = 'gate'");
    for (const char* query :
         {"Select * From SigningUser", "Select * From SignedInUser", "Select * From StationUsers"})
        for (const std::string& row : RowsOf(*station.connection, query))
            EXPECT_EQ(row.find(hash.substr(hash.rfind('$'))), row.npos) << query;
}

TEST_F(SqlServerRoles, ASessionHasNoLevelWithoutThePassword) {
    RoleMember station(*Con, *database, "StationOperator");
    Connection& connection = *station.connection;
    const auto provedAs = [&](const std::string& proof) {
        connection.Execute("Exec sp_set_session_context @key = N'StationUser', @value = N'Nadia'");
        connection.Execute("Exec sp_set_session_context @key = N'StationProof', @value = " + proof);
        return connection.Execute("Select userlevel From SignedInUser").RecordCount();
    };
    const std::string hash = Ask("Select PasswordHash From StationUsers Where UserName = 'Nadia'");
    EXPECT_EQ(provedAs("N''"), 0);
    EXPECT_EQ(provedAs("N'%'"), 0);
    EXPECT_EQ(provedAs("N'" + UpperCase(hash) + "'"), 0);
    EXPECT_EQ(provedAs("1"), 0);
    EXPECT_EQ(provedAs("N'" + hash + "'"), 1);
}

TEST_F(SqlServerRoles, ASecondSignInReplacesTheLevelOfTheFirst) {
    RoleMember station(*Con, *database, "StationOperator");
    const std::string change = "Update Arrivals Set IsPosted=0 where arrivalid=1036";
    SignIn(station, "Nadia", "grain");
    EXPECT_EQ(RefusalOf(*station.connection, change), "");
    UserLoginObject login;
    login.SetConnection(*station.connection);
    EXPECT_EQ(login.SignIn("gate", "wrong"), UserLoginObject::Attempt::Wrong);
    EXPECT_NE(RefusalOf(*station.connection, change), "");
    SignIn(station, "gate", "gate");
    EXPECT_NE(RefusalOf(*station.connection, change), "");
}

// Row by row, as saving and removing write.
TEST_F(SqlServerRoles, AStationWritesWeighments) {
    RoleMember station(*Con, *database, "StationOperator");
    SignIn(station, "Nadia", "grain");
    Connection& connection = *station.connection;
    std::vector<std::string> observed;
    connection.StatementObserver = [&](std::string_view text) { observed.emplace_back(text); };
    connection.BeginTrans();
    Recordset header;
    header.Open("Select * from Arrivals Where ArrivalId=2000", connection, adOpenDynamic,
                adLockOptimistic);
    header.AddNew();
    header.Collect("ArrivalId", 2000.0);
    header.Collect("ArrivalDate", Value("2026-11-20T00:00:00").AsDate());
    for (const char* column : {"PermitNo", "CenterId", "contractid"})
        header.Collect(column, Value());
    header.Collect("CommodityId", "1");
    header.Collect("SellerId", "6010001");
    header.Collect("IsPosted", 0);
    header.Update();
    Recordset line;
    line.Open("Select * From ArrivalsBody where arrivalid=2000", connection, adOpenStatic,
              adLockOptimistic);
    line.AddNew();
    line.Collect("ArrivalId", 2000.0);
    for (const char* column :
         {"CommodityId", "BagsClassId", "BagsTypeId", "NoOfBags", "TareWeight", "ScaleDeduction",
          "BagWeight", "BagsDeduction", "OtherDeduction", "NetWeight"})
        line.Collect(column, 1);
    line.Update();
    connection.Execute("Update Arrivals Set IsPosted=0 where arrivalid=2000");
    connection.CommitTrans();
    EXPECT_EQ(Ask("Select Count(*) From ArrivalsBody Where ArrivalId = 2000"), "1");

    connection.BeginTrans();
    header.Close();
    header.Open("Select * from Arrivals Where ArrivalId=2000", connection, adOpenDynamic,
                adLockOptimistic);
    header.Collect("SellerId", "6010002");
    header.Collect("ArrivalDate", Value("2026-11-21T00:00:00").AsDate());
    for (const char* column : {"PermitNo", "CenterId", "contractid"})
        header.Collect(column, Value());
    header.Update();
    line.Close();
    line.Open("Select * From arrivalsbody where arrivalid=2000", connection, adOpenStatic,
              adLockOptimistic);
    observed.clear();
    line.Delete();
    ASSERT_EQ(observed.size(), 1U);
    EXPECT_EQ(UpperCase(observed[0]), "DELETE FROM ARRIVALSBODY WHERE LINEID = ?");
    connection.Execute("Delete From arrivals where arrivalid=2000");
    connection.CommitTrans();
    EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID = 2000"), "0");
}

TEST_F(SqlServerRoles, AStationMayDoNothingElse) {
    RoleMember station(*Con, *database, "StationOperator");
    SignIn(station, "Nadia", "grain");
    EXPECT_GE(ExpectRefused(station, RefusedToStations()), 50);
}

TEST_F(SqlServerRoles, AStationCannotNameAnythingBeyondItsViews) {
    RoleMember station(*Con, *database, "StationOperator");
    SignIn(station, "Nadia", "grain");
    EXPECT_EQ(ExpectRefused(station, UnknownToStations(),
                            [](const std::string& words) { return !words.empty(); }),
              static_cast<int>(UnknownToStations().size()));
}

TEST_F(SqlServerRoles, OnlyAUserOfLevelOneChangesAPostedLoadOrRemovesOne) {
    RoleMember station(*Con, *database, "StationOperator");
    Con->Execute("Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) Values "
                 "(2000, '2026-11-20T00:00:00', 1, '6010001')");
    const auto isAboutLevel = [](const std::string& words) {
        return words.find("of level 1") != words.npos;
    };
    const int guarded = static_cast<int>(GuardedRows().size());
    EXPECT_EQ(ExpectRefused(station, GuardedRows(), isAboutLevel), guarded)
        << "no user is signed in";
    SignIn(station, "gate", "gate");
    EXPECT_EQ(ExpectRefused(station, GuardedRows(), isAboutLevel), guarded);
    SignIn(station, "Nadia", "grain");
    for (const std::string& statement : GuardedRows()) {
        station.connection->BeginTrans();
        EXPECT_EQ(RefusalOf(*station.connection, statement), "") << statement;
        station.connection->RollbackTrans();
    }
}

TEST_F(SqlServerRoles, AUserOfAnyLevelChangesALoadThatIsNotPosted) {
    RoleMember station(*Con, *database, "StationOperator");
    SignIn(station, "gate", "gate");
    for (const char* statement :
         {"Update Arrivals Set SellerId = '6010002' Where ArrivalID = 1034",
          "Delete From ArrivalsBody Where ArrivalId = 1034",
          "Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId, IsPosted) Values "
          "(2001, '2026-11-20T00:00:00', 1, '6010001', 0)"})
        EXPECT_EQ(RefusalOf(*station.connection, statement), "") << statement;
}

TEST_F(SqlServerRoles, NoStationPostsALoad) {
    RoleMember station(*Con, *database, "StationOperator");
    for (const char* name : {"gate", "Nadia"}) {
        SignIn(station, name, std::string_view(name) == "gate" ? "gate" : "grain");
        const std::string words = RefusalOf(
            *station.connection, "Update Arrivals Set IsPosted = 1 Where ArrivalID = 1034");
        EXPECT_NE(words.find("A station does not post arrivals."), words.npos) << words;
    }
}

TEST_F(SqlServerRoles, TheGuardsApplyOnlyToStations) {
    RenewRights(*Con);
    for (const std::string& statement : GuardedRows())
        EXPECT_TRUE(OwnerMay(statement));
    EXPECT_TRUE(OwnerMay("Update Arrivals Set IsPosted = 1"));
}

TEST_F(SqlServerRoles, SettingsOfOtherModulesAreNotVisible) {
    Con->Execute("Insert Into Project_Registry (registrykey, value) Values ('FiscalYear', '2026')");
    Con->Execute("Insert Into PortSettings (RegistryKey, RegistryValue) Values ('Camera', '7')");
    RoleMember station(*Con, *database, "StationOperator");
    for (const char* statement :
         {"Update Project_Registry Set value = 'x'",
          "Update Project_Registry set value ='x' Where registrykey ='FiscalYear'",
          "Update PortSettings Set RegistryValue = '8'",
          "Update PortSettings set RegistryValue='8' where registrykey = 'Camera'"})
        EXPECT_EQ(RefusalOf(*station.connection, statement), "") << statement;
    EXPECT_EQ(Ask("Select value From Project_Registry Where registrykey = 'FiscalYear'"), "2026");
    EXPECT_EQ(Ask("Select RegistryValue From PortSettings Where RegistryKey = 'Camera'"), "7");
    EXPECT_EQ(RowsOf(*station.connection, "Select registrykey From Project_Registry").size(), 4U);
    EXPECT_EQ(RowsOf(*station.connection, "Select * From PortSettings").size(), 5U);
}

TEST_F(SqlServerRoles, TablesThatReferToAnArrivalShowOnlyTheForeignKey) {
    RoleMember station(*Con, *database, "StationOperator");
    for (const char* table : {"PurchaseBody", "LaboratoryReports"})
        EXPECT_EQ(
            station.connection->Execute("Select TOP 1 * From " + std::string(table)).FieldCount(),
            1)
            << table;
}

TEST_F(SqlServerRoles, RunningTheScriptAgainSetsTheSchemaOfAnExistingMember) {
    RoleMember station(*Con, *database, "StationOperator", "dbo");
    EXPECT_NE(RefusalOf(*station.connection, "Select * from PortSettings"), "");
    RunScript(*Con, DatabaseScripts::SqlServerRoles);
    station.SignInAgain();
    EXPECT_EQ(station.connection->Execute("Select * from PortSettings").RecordCount(), 5);
}

TEST_F(SqlServerRoles, AReaderReadsWeighmentsAndNames) {
    RoleMember reader(*Con, *database, "StationReader");
    for (const std::string& query :
         {loadStatement + "1034", searchStatement + " Order By Arrivals.ArrivalId desc",
          partyJoin + " ORDER BY ChartOfAccounts.AccountName",
          std::string("Select * From Arrivals"), std::string("Select * From ArrivalsBody"),
          std::string("select commodityid as id, dbo.fungetcommodity(commodityid) as name from "
                      "commodities Where 1 = 1"),
          std::string("select BagsClassid as ID, BagsClass as Name from bagsclasses"),
          std::string("select BagsTypeID as ID, BagsType As Name from bagstypes")})
        EXPECT_GT(reader.connection->Execute(query).RecordCount(), 0) << query;
}

TEST_F(SqlServerRoles, AReaderMayDoNothingElse) {
    RoleMember reader(*Con, *database, "StationReader");
    EXPECT_GE(ExpectRefused(reader, RefusedToReaders()), 13);
}

TEST_F(SqlServerRoles, ANewTableThatRefersToArrivalsIsVisibleAfterRunningTheScriptAgain) {
    Con->Execute("Create Table GateSamples (SampleNo int Not Null Primary Key, "
                 "TakenFrom int Not Null References Arrivals (ArrivalID))");
    Con->Execute("Insert Into GateSamples Values (1, 1034)");
    RunScript(*Con, DatabaseScripts::SqlServerRoles);
    RoleMember station(*Con, *database, "StationOperator");
    Con.swap(station.connection);
    std::string criteria = "ArrivalID = 1034";
    EXPECT_EQ(UpperCase(GetDependentTable("Arrivals", criteria, "ArrivalsBody")), "GATESAMPLES");
    Con.swap(station.connection);
}

} // namespace Quillane
