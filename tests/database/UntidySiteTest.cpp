// A realistic accounting database of a mill: what set-up adds to it, and what it does not change.

#include "database/SqlServerSite.h"

#include "data/Common.h"
#include "platform/runtime/Text.h"
#include "setup/DatabaseScripts.h"
#include "setup/SchemaUpgrade.h"
#include "setup/ScriptBatches.h"
#include "station/SystemStatements.h"

#include <algorithm>

namespace Quillane {

namespace {

using Texts = std::vector<std::string>;

Texts OnlyIn(const Texts& lines, const Texts& others) {
    Texts only;
    std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(),
                        std::back_inserter(only));
    return only;
}

/// Tables and functions, in capitals.
Texts NamesOf(Connection& connection) {
    Texts names;
    for (const std::string& name :
         RowsOf(connection, "Select name From sys.objects Where is_ms_shipped = 0 And type In "
                            "('U', 'V', 'FN', 'IF', 'P', 'TR')"))
        names.push_back(UpperCase(name));
    std::sort(names.begin(), names.end());
    return names;
}

NewDatabase Particulars() {
    NewDatabase particulars = ParticularsOfServer();
    particulars.companyAddress = "14 Canal Road, Okara";
    return particulars;
}

/// This site has neither of the tables of these two statements.
bool IsOfOtherSites(const std::string& statement) {
    return statement.find("LaboratoryReports") != statement.npos ||
           statement.find("SaleRecoveryBody") != statement.npos;
}

/// The statement that shows the owner what a station sees, without the other columns and rows of
/// the settings.
std::string AsAStationSees(const std::string& statement) {
    if (statement == "Select * from PortSettings")
        return "Select REGISTRYKEY, REGISTRYVALUE From PORTSETTINGS";
    if (statement == "Select registrykey, value From Project_Registry")
        return statement + " Where registrykey Like 'Company%'";
    return statement;
}

/// Adds to both tables of settings another column that each row must fill.
void AddColumnsThatMustBeFilled(Connection& connection) {
    connection.Execute("Drop Table PROJECT_REGISTRY");
    connection.Execute("Drop Table PORTSETTINGS");
    connection.Execute("Create Table PROJECT_REGISTRY (REGISTRYKEY char(20) Not Null, "
                       "VALUE varchar(100) Null, BRANCH int Not Null)");
    connection.Execute("Create Table PORTSETTINGS (REGISTRYKEY char(20) Not Null, "
                       "REGISTRYVALUE varchar(50) Null, BRANCH int Not Null)");
    connection.Execute("Insert Into PROJECT_REGISTRY Values ('CompanyName', 'VELTRANE', 1), "
                       "('FiscalYear', '2026', 1)");
    connection.Execute("Insert Into PORTSETTINGS Values ('PortName', '2', 1), "
                       "('PortSettings', '2400,n,8,1', 1), ('DataDirection', 'Left', 1)");
}

} // namespace

class UntidySite : public SqlServerSite {
protected:
    void SetUp() override {
        SqlServerSite::SetUp();
        if (Con)
            MakeUntidySite();
    }
};

TEST_F(UntidySite, SetUpAddsWhatIsMissingAndChangesNothingElse) {
    const Texts names = NamesOf(*Con);
    const Texts catalogue = CatalogueOf(*Con);
    const Texts contents = ContentsOf(*Con);
    SetUpSqlServerDatabase(*Con, Particulars());

    EXPECT_EQ(OnlyIn(NamesOf(*Con), names), (Texts{"FUNGETCOMMODITY", "PCONTRACTS", "PRCENTERS",
                                                   "STATIONSCHEMA", "STATIONUSERS"}));
    EXPECT_EQ(OnlyIn(catalogue, CatalogueOf(*Con)), Texts{});
    EXPECT_EQ(OnlyIn(contents, ContentsOf(*Con)), Texts{});
    for (const std::string& row : OnlyIn(ContentsOf(*Con), contents))
        EXPECT_TRUE(row.starts_with("PORTSETTINGS: DataLength") ||
                    row.starts_with("PORTSETTINGS: IsReversed") ||
                    row.starts_with("PROJECT_REGISTRY: Company") ||
                    row.starts_with("STATIONSCHEMA: " + NumberText(SchemaVersionOfProgram())) ||
                    row.starts_with("STATIONUSERS: Nadia"))
            << row;
    EXPECT_EQ(Ask("Select Count(*) From PortSettings"), "5");
    EXPECT_EQ(Ask("Select Count(*) From Project_Registry"), "5");
    EXPECT_EQ(Ask("Select value From Project_Registry Where registrykey = 'CompanyName'"),
              "VELTRANE");
}

TEST_F(UntidySite, NoUserWithAKnownPasswordIsAdded) {
    ASSERT_TRUE(Particulars().sampleRows);
    SetUpSqlServerDatabase(*Con, Particulars());
    EXPECT_EQ(RowsOf(*Con, "Select UserName, UserLevel From StationUsers"), Texts{"Nadia|1"});
}

TEST_F(UntidySite, RowsThatItsTablesRefuseAreNamedAndLeftOut) {
    AddColumnsThatMustBeFilled(*Con);
    const SetupOutcome outcome = SetUpSqlServerDatabase(*Con, Particulars());
    EXPECT_TRUE(outcome.isFinished);
    EXPECT_EQ(outcome.rowsNotAdded,
              (Texts{"Project_Registry: CompanyAddress", "Project_Registry: CompanyPhone",
                     "Project_Registry: CompanyEmail", "PortSettings: DataLength",
                     "PortSettings: IsReversed"}));
    EXPECT_EQ(RowsOf(*Con, "Select UserName, UserLevel From StationUsers"), Texts{"Nadia|1"});
    EXPECT_EQ(Ask("Select Count(*) From PROJECT_REGISTRY"), "2");
    EXPECT_EQ(Ask("Select Count(*) From PORTSETTINGS"), "3");
}

TEST_F(UntidySite, ParticularsThatWereLeftEmptyGetNoRow) {
    AddColumnsThatMustBeFilled(*Con);
    Con->Execute("Insert Into PORTSETTINGS (REGISTRYKEY, REGISTRYVALUE, BRANCH) Values "
                 "('DataLength', '6', 1), ('IsReversed', '0', 1)");
    NewDatabase particulars = Particulars();
    particulars.companyAddress = particulars.companyPhone = particulars.companyEmail = "";
    EXPECT_EQ(SetUpSqlServerDatabase(*Con, particulars).rowsNotAdded, Texts{});
    EXPECT_EQ(RowsOf(*Con, "Select REGISTRYKEY, VALUE From PROJECT_REGISTRY").size(), 2U);
}

TEST_F(UntidySite, ACompanyNameThatCannotBeAddedIsNamedToo) {
    AddColumnsThatMustBeFilled(*Con);
    Con->Execute("Delete From PROJECT_REGISTRY");
    const Texts notAdded = SetUpSqlServerDatabase(*Con, Particulars()).rowsNotAdded;
    ASSERT_FALSE(notAdded.empty());
    EXPECT_EQ(notAdded.front(), "Project_Registry: CompanyName");
    EXPECT_EQ(ReadSchemaVersion(*Con), SchemaVersionOfProgram());
}

TEST_F(UntidySite, ReplacesItsParticularsIfWanted) {
    Con->Execute("Insert Into PROJECT_REGISTRY (REGISTRYKEY, VALUE) Values "
                 "('CompanyAddress', 'Mall Road'), ('CompanyPhone', '042')");
    NewDatabase particulars = Particulars();
    particulars.companyPhone = "";
    particulars.replaceParticulars = true;
    SetUpSqlServerDatabase(*Con, particulars);
    const std::string value = "Select VALUE From PROJECT_REGISTRY Where REGISTRYKEY = ";
    EXPECT_EQ(Ask(value + "'CompanyName'"), "Veltrane Flour Mills");
    EXPECT_EQ(Ask(value + "'CompanyAddress'"), "14 Canal Road, Okara");
    EXPECT_EQ(Ask(value + "'CompanyPhone'"), "");
    EXPECT_EQ(Ask(value + "'CompanyEmail'"), "gate@veltrane.example");
    EXPECT_EQ(Ask(value + "'FiscalYear'"), "2026");
}

TEST_F(UntidySite, ASecondSetUpChangesNothing) {
    SetUpSqlServerDatabase(*Con, Particulars());
    const Texts catalogue = CatalogueOf(*Con);
    const Texts contents = ContentsOf(*Con);
    SetUpSqlServerDatabase(*Con, Particulars());
    EXPECT_EQ(CatalogueOf(*Con), catalogue);
    EXPECT_EQ(ContentsOf(*Con), contents);
}

// A table with a trigger refuses some statements of the site's own programs.
TEST_F(UntidySite, GuardsAreInstalledOnlyByHandOnTablesOfTheSite) {
    const std::string guards = "Select Count(*) From sys.triggers Where name Like 'StationGuard%'";
    SetUpSqlServerDatabase(*Con, Particulars());
    RoleMember station(*Con, *database, "StationOperator");
    SetUpSqlServerDatabase(*Con, Particulars());
    EXPECT_EQ(Ask(guards), "0");
    RunScript(*Con, DatabaseScripts::SqlServerGuards);
    EXPECT_EQ(Ask(guards), "2");
}

TEST_F(UntidySite, TheSitesOwnFunctionStays) {
    SetUpSqlServerDatabase(*Con, Particulars());
    EXPECT_EQ(Ask("Select dbo.FunGetPartyName('601')"), "Zahid Traders (601)");
    EXPECT_EQ(Trim(Ask("Select dbo.FunGetCommodity(2)")), "Flour");
}

TEST_F(UntidySite, TheSiteMayStillChangeItsTables) {
    SetUpSqlServerDatabase(*Con, Particulars());
    Con->Execute("Alter Table COMMODITIES Add ShortName char(5) Null");
    Con->Execute("Alter Table COMMODITIES Alter Column COMMODITYNAME char(60)");
    EXPECT_EQ(Trim(Ask("Select dbo.FunGetCommodity(2)")), "Flour");
}

TEST_F(UntidySite, EveryStatementRunsForTheOwnerAndForAStation) {
    SetUpSqlServerDatabase(*Con, Particulars());
    RoleMember station(*Con, *database, "StationOperator");
    for (const SystemQuery& query : SystemQueries()) {
        if (IsOfOtherSites(query.text))
            continue;
        const Texts rows = RowsOf(*Con, AsAStationSees(query.text));
        EXPECT_EQ(RowsOf(*station.connection, query.text), rows) << query.text;
    }
    EXPECT_EQ(RowsOf(*Con, loadStatement + "11").size(), 3U);
    EXPECT_EQ(RowsOf(*Con, searchStatement + " Order By Arrivals.ArrivalId desc").size(), 5U);
    EXPECT_EQ(RowsOf(*Con, partyJoin + "WHERE     (Parties.IsSeller = 1) AND "
                                       "(ChartOfAccounts.IsEditable = 1) ORDER BY "
                                       "ChartOfAccounts.AccountName")
                  .size(),
              1U);
}

TEST_F(UntidySite, DependentsAreFoundByAnyColumnThatRefersToTheArrival) {
    struct Case {
        const char* arrival;
        const char* table;
    };
    constexpr Case cases[] = {{"11", ""},
                              {"12", "PURCHASEBODY"},
                              {"13", "GATESAMPLES"},
                              {"14", "FREIGHTCLAIMS"},
                              {"15", ""}};
    SetUpSqlServerDatabase(*Con, Particulars());
    RoleMember station(*Con, *database, "StationOperator");
    for (const bool asStation : {false, true}) {
        if (asStation)
            Con.swap(station.connection);
        for (const Case& each : cases) {
            std::string criteria = "ArrivalID=" + std::string(each.arrival);
            EXPECT_EQ(UpperCase(GetDependentTable("Arrivals", criteria, "ArrivalsBody")),
                      each.table)
                << each.arrival << (asStation ? " for a station" : " for the owner");
        }
    }
    Con.swap(station.connection);
}

TEST_F(UntidySite, AStationHasNoOtherRightsOnTheBooks) {
    SetUpSqlServerDatabase(*Con, Particulars());
    RoleMember station(*Con, *database, "StationOperator");
    for (const char* statement :
         {"Select * From Payroll", "Select CreditLimit From PARTIES",
          "Select OpeningBalance From chartofaccounts", "Select CostRate From COMMODITIES",
          "Update ARRIVALS Set BAGWEIGHT = 1", "Update ARRIVALS Set Notes = ''",
          "Update ARRIVALSBODY Set NETWEIGHT = 1", "Delete From FreightClaims",
          "Insert Into GateSamples (TakenFrom) Values (11)", "Update PARTIES Set ADDRESS = ''"}) {
        Con->Execute("Begin Transaction");
        EXPECT_NO_THROW(Con->Execute(statement)) << statement;
        Con->Execute("Rollback Transaction");
        EXPECT_ANY_THROW(station.connection->Execute(statement)) << statement;
    }
}

} // namespace Quillane
