// What the two roles may do, and what they may not: the rest of the database is safe from a text
// that was pasted into a box of the station.

#include "database/SqlServerSite.h"

#include "data/Common.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "setup/EmbeddedScripts.h"
#include "signin/UserLogin.h"
#include "station/SystemStatements.h"

#include <iostream>

namespace Quillane {

namespace {

/// The words of the refusal; empty where the statement ran.
std::string RefusalOf(Connection& connection, const std::string& statement) {
    try {
        connection.Execute(statement);
        return {};
    } catch (const Failure& failure) {
        return failure.Description();
    }
}

bool TellsOfRights(const std::string& words) {
    const std::string capitals = UpperCase(words);
    return capitals.find("PERMISSION") != capitals.npos ||
           capitals.find("MUST BE OWNER") != capitals.npos;
}

/// The pasted end of a search for a party's name.
std::string SearchedName(const std::string& pasted) {
    return searchStatement + " And dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%" +
           pasted + "%' Order By Arrivals.ArrivalId desc";
}

const std::vector<std::string>& RefusedToStations() {
    static const std::vector<std::string> statements{
        // Other tables, and columns that no statement of a station reads
        "Select * From Payroll",
        "Select * From Sales",
        "Select * From SaleRecoveryBody",
        "Select ContractDate From PContracts",
        "Select CreditLimit From Parties",
        "Select * From Parties",
        "Select Count(*) From Arrivals; Select Salary From Payroll",
        "Exec (N'Select Salary From dbo.Payroll')",
        "Exec sp_executesql N'Select Salary From dbo.Payroll'",
        SearchedName("' Union All Select EmployeeNo, Null, 'x', 'x' From Payroll --"),
        // The books' own figures and what hangs on an arrival
        "Update Arrivals Set NoOfBags = 1, BagWeight = 1 Where ArrivalID = 1034",
        "Update Arrivals Set TareWeight = 0 Where ArrivalID = 1036",
        "Update Arrivals Set ArrivalID = ArrivalID",
        "Update ArrivalsBody Set NetWeight = 1",
        "Update PurchaseBody Set Rate = 0",
        "Insert Into PurchaseBody (PurchaseId) Values (1)",
        "Delete From PurchaseBody",
        "Delete From LaboratoryReports",
        // The mill's lists
        "Insert Into ChartOfAccounts (AccountNo, AccountName) Values ('1', 'Mine')",
        "Update Parties Set IsSeller = 1",
        "Delete From Cities Where CityId = 99",
        "Update Commodities Set IsPurchaseable = 1",
        // The station's own tables
        "Delete From StationUsers",
        "Insert Into StationUsers (UserName, PasswordHash, UserLevel) Values ('me', '', 1)",
        "Update StationUsers Set UserLevel = 1",
        "Insert Into PortSettings (RegistryKey, RegistryValue) Values ('PortName', '9')",
        "Update PortSettings Set RegistryKey = 'x'",
        "Delete From PortSettings",
        "Insert Into Project_Registry (registrykey, value) Values ('x', 'y')",
        "Delete From Project_Registry",
        "Update StationSchema Set SchemaVersion = 99",
        // The schema
        "Truncate Table ArrivalsBody",
        "Drop Table ArrivalsBody",
        "Alter Table Arrivals Add Mine int",
        "Create Table Loot (Id int)",
        "Create Table dbo.Loot (Id int)",
        "Create View dbo.Loot As Select * From dbo.Payroll",
        "Create Procedure dbo.Loot As Select * From dbo.Payroll",
        "Create Index Mine On Arrivals (PermitNo)",
        "Drop Function dbo.FunGetPartyName",
        SearchedName("'; Drop Table PurchaseBody --"),
        // Rights
        "Grant Select On Payroll To StationOperator",
        "Alter Role StationReader Add Member StationOperator",
        "Create Role Mine",
        "Exec master..xp_cmdshell 'dir'",
        "Exec sp_configure 'xp_cmdshell', 1",
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
        "Drop Table ArrivalsBody",
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

    /// The owner may run the statement, so that a refusal is one of rights. One that this server
    /// does not know at all is told and passed over.
    bool OwnerMay(const std::string& statement) {
        Con->BeginTrans();
        const std::string refusal = RefusalOf(*Con, statement);
        Con->RollbackTrans();
        if (!refusal.empty())
            std::cout << "[ NOT HERE ] " << statement << "\n             " << refusal << "\n";
        return refusal.empty();
    }

    /// How many of them this server could show to be refused.
    int ExpectRefused(RoleMember& member, const std::vector<std::string>& statements) {
        const auto catalogue = CatalogueOf(*Con);
        const auto contents = ContentsOf(*Con);
        int refused = 0;
        for (const std::string& statement : statements) {
            if (!OwnerMay(statement))
                continue;
            const std::string words = RefusalOf(*member.connection, statement);
            EXPECT_TRUE(TellsOfRights(words)) << statement << "\n" << words;
            refused += TellsOfRights(words) ? 1 : 0;
        }
        EXPECT_EQ(CatalogueOf(*Con), catalogue);
        EXPECT_EQ(ContentsOf(*Con), contents);
        return refused;
    }
};

TEST_F(SqlServerRoles, AStationRunsEveryQuery) {
    RoleMember station(*Con, *database, "StationOperator");
    for (const SystemQuery& query : SystemQueries()) {
        // Nothing in our schema ties this table to an arrival, so no station asks for its rows.
        if (query.text.find("SaleRecoveryBody") != query.text.npos)
            continue;
        EXPECT_EQ(station.connection->Execute(query.text).RecordCount(), query.rows) << query.text;
    }
    for (const char* query :
         {"Select SchemaVersion From StationSchema",
          "Select UserName, PasswordHash, UserLevel From StationUsers",
          "Select Count(*) From StationUsers", "Select registrykey, value From Project_Registry",
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

TEST_F(SqlServerRoles, AStationSignsItsUsersIn) {
    RoleMember station(*Con, *database, "StationOperator");
    UserLoginObject login;
    login.SetConnection(*station.connection);
    EXPECT_EQ(login.SignIn("Nadia", "grain"), UserLoginObject::Attempt::SignedIn);
}

// Row by row, as saving and removing write.
TEST_F(SqlServerRoles, AStationWritesWeighments) {
    RoleMember station(*Con, *database, "StationOperator");
    Connection& connection = *station.connection;
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
    line.Delete();
    connection.Execute("Delete From arrivals where arrivalid=2000");
    connection.CommitTrans();
    EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID = 2000"), "0");
}

TEST_F(SqlServerRoles, AStationMayDoNothingElse) {
    RoleMember station(*Con, *database, "StationOperator");
    EXPECT_GE(ExpectRefused(station, RefusedToStations()), 30);
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

TEST_F(SqlServerRoles, ATableThatRefersToArrivalsLaterIsSeenOnceTheScriptRanAgain) {
    Con->Execute("Create Table GateSamples (SampleNo int Not Null Primary Key, "
                 "TakenFrom int Not Null References Arrivals (ArrivalID))");
    Con->Execute("Insert Into GateSamples Values (1, 1034)");
    RunScript(*Con, EmbeddedScripts::SqlServerRoles);
    RoleMember station(*Con, *database, "StationOperator");
    Con.swap(station.connection);
    std::string criteria = "ArrivalID = 1034";
    EXPECT_EQ(UpperCase(GetDependentTable("Arrivals", criteria, "ArrivalsBody")), "GATESAMPLES");
    Con.swap(station.connection);
}

} // namespace Quillane
