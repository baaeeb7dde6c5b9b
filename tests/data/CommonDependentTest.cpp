#include "data/Common.h"

#include "station/OpenedDatabase.h"
#include "support/BoxAnswers.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;

using Statements = std::vector<std::string>;

/// An additional schema: the table Loads and two tables that refer to it.
class DependentTable : public testing::Test {
protected:
    void SetUp() override {
        for (const char* statement :
             {"Create Table Loads (LoadID Integer Primary Key)",
              "Create Table Bills (LoadID Integer References Loads (LoadID))",
              "Create Table Checks (CheckedLoad Integer References Loads (LoadID))",
              "Insert Into Loads (LoadID) Values (12), (13)"})
            database.Run(statement);
    }

    std::string Find(std::string_view table, std::string_view given,
                     std::string_view exclusions = "") {
        criteria = given;
        return DeclaredName(GetDependentTable(table, criteria, exclusions));
    }

    static std::string KeysOf(const std::string& table) {
        return "EXEC sp_fkeys @pktable_name = N'" + table + "'";
    }

    OpenedDatabase database;
    BoxAnswers boxes;
    std::string criteria;
};

TEST_F(DependentTable, NoForeignKeyMeansNoTableAndNoQuery) {
    EXPECT_EQ(Find("Bills", "LoadID=12"), "");
    EXPECT_EQ(database.statements, Statements{KeysOf("Bills")});
}

TEST_F(DependentTable, TablesAreSearchedInOrderUntilARowIsFound) {
    EXPECT_EQ(Find("Loads", "LoadID=12"), "");
    EXPECT_EQ(database.statements,
              (Statements{KeysOf("Loads"), "Select TOP 1 * From Bills Where LoadID=12",
                          "Select TOP 1 * From Checks Where CheckedLoad=12"}));
    database.Run("Insert Into Bills (LoadID) Values (12)");
    database.Run("Insert Into Checks (CheckedLoad) Values (12)");
    database.statements.clear();
    EXPECT_EQ(Find("Loads", "LoadID=12"), "Bills");
    EXPECT_EQ(database.statements,
              (Statements{KeysOf("Loads"), "Select TOP 1 * From Bills Where LoadID=12"}));
}

TEST_F(DependentTable, RowOfAnotherRecordDoesNotCount) {
    database.Run("Insert Into Bills (LoadID) Values (13)");
    database.Run("Insert Into Checks (CheckedLoad) Values (12)");
    EXPECT_EQ(Find("Loads", "LoadID=12"), "Checks");
}

TEST_F(DependentTable, BlanksAreRemovedFromTheCallersCriteria) {
    Find("Loads", " LoadID = 12 ", "Checks");
    EXPECT_EQ(criteria, "LoadID=12");
    EXPECT_EQ(database.statements.at(1), "Select TOP 1 * From Bills Where LoadID=12");
}

TEST_F(DependentTable, ForeignColumnNameReplacesTheKeyName) {
    Find("Loads", "LoadID=12", "Bills");
    EXPECT_EQ(database.statements.at(1), "Select TOP 1 * From Checks Where CheckedLoad=12");
}

TEST_F(DependentTable, EveryOccurrenceOfTheKeyNameIsReplaced) {
    Find("Loads", "(LoadID=12)OR(LoadID=13)", "Bills");
    EXPECT_EQ(database.statements.at(1),
              "Select TOP 1 * From Checks Where (CheckedLoad=12)OR(CheckedLoad=13)");
}

TEST_F(DependentTable, KeyNameInAnotherCaseIsNotReplaced) {
    boxes.Expect(Critical(EngineWords("no such column: LOADID"), "Database"));
    EXPECT_EQ(Find("Loads", "LOADID=12"), "");
    EXPECT_EQ(database.statements,
              (Statements{KeysOf("Loads"), "Select TOP 1 * From Bills Where LOADID=12",
                          "Select TOP 1 * From Checks Where LOADID=12"}));
}

TEST_F(DependentTable, FailureGivesNoTable) {
    database.Run("Insert Into Checks (CheckedLoad) Values (12)");
    boxes.Expect(Critical(EngineWords("no such column: Weight"), "Database"));
    // The query of Bills fails, so Checks is not searched.
    EXPECT_EQ(Find("Loads", "Weight=12"), "");
    EXPECT_EQ(database.statements.size(), 2U);
}

TEST_F(DependentTable, QuotesInTheCriteriaAreNotChanged) {
    Find("Loads", "LoadID='12'", "Checks");
    EXPECT_EQ(database.statements.at(1), "Select TOP 1 * From Bills Where LoadID='12'");
    boxes.Expect(Critical(EngineWords("no such column: twelve"), "Database"));
    EXPECT_EQ(Find("Loads", "LoadID=twelve", "Checks"), "");
}

// ---- exclusions ----

struct Exclusion {
    std::string names;
    std::vector<std::string> probed;

    friend void PrintTo(const Exclusion& exclusion, std::ostream* out) { *out << exclusion.names; }
};

class Exclusions : public DependentTable, public testing::WithParamInterface<Exclusion> {};

TEST_P(Exclusions, ExactTableNamesAreExcluded) {
    Find("Loads", "LoadID=12", GetParam().names);
    std::vector<std::string> probed;
    for (const std::string& statement : database.statements)
        for (const char* table : {"Bills", "Checks"})
            if (statement.starts_with(std::string("Select TOP 1 * From ") + table + " "))
                probed.emplace_back(table);
    EXPECT_EQ(probed, GetParam().probed);
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryForm, Exclusions,
    testing::Values(Exclusion{"", {"Bills", "Checks"}}, Exclusion{"   ", {"Bills", "Checks"}},
                    Exclusion{"Bills", {"Checks"}}, Exclusion{"bills", {"Checks"}},
                    Exclusion{"Bills,Checks", {}},
                    // The blank is part of the second name.
                    Exclusion{"Bills, Checks", {"Checks"}}, Exclusion{"Bills,", {"Checks"}},
                    Exclusion{"Loads", {"Bills", "Checks"}}));

TEST_F(DependentTable, AllTablesExcludedMeansNoTableAndNoQuery) {
    EXPECT_EQ(Find("Loads", "LoadID=12", "Bills,Checks"), "");
    EXPECT_EQ(database.statements, Statements{KeysOf("Loads")});
}

// ---- keys of several columns, and the table that is searched by name ----

TEST_F(DependentTable, KeyOfTwoColumnsIsSearchedByTheLastMatchingColumn) {
    database.Run("Create Table Trips (Truck Integer, Day Integer, Primary Key (Truck, Day))");
    database.Run("Create Table Tolls (TollTruck Integer, TollDay Integer, "
                 "Foreign Key (TollTruck, TollDay) References Trips (Truck, Day))");
    boxes.Expect(Critical(EngineWords("unrecognized token: \"1ANDTollDay\""), "Database"));
    EXPECT_EQ(Find("Trips", "Truck=1 AND Day=2"), "");
    EXPECT_EQ(criteria, "Truck=1ANDDay=2");
    EXPECT_EQ(database.statements.at(1), "Select TOP 1 * From Tolls Where Truck=1ANDTollDay=2");
    database.statements.clear();
    EXPECT_EQ(Find("Trips", "Day=2"), "");
    EXPECT_EQ(database.statements,
              (Statements{KeysOf("Trips"), "Select TOP 1 * From Tolls Where TollDay=2",
                          "Select TOP 1 * From Tolls Where TollDay=2"}));
}

TEST_F(DependentTable, SaleRecoveryBodyHasAnotherKeyName) {
    SKIP_ON_SQL_SERVER("its catalogue may spell the table in another case");
    // If the database does not name the key columns, the criteria are unchanged; one name is
    // corrected.
    database.Run("Create Table Deals (Dealid Integer Primary Key)");
    database.Run("Drop Table SaleRecoveryBody");
    database.Run("Create Table SaleRecoveryBody (SaleId Integer References Deals (Dealid))");
    database.Run("Create Table ASaleBody (Salesid Integer References Deals (Dealid))");
    EXPECT_EQ(Find("Deals", "Salesid=12"), "");
    EXPECT_EQ(database.statements,
              (Statements{KeysOf("Deals"), "Select TOP 1 * From ASaleBody Where Salesid=12",
                          "Select TOP 1 * From SaleRecoveryBody Where SaleId=12"}));
}

// ---- the schema of the station ----

TEST_F(DependentTable, ArrivalIsFoundByTheForeignKeysOfTheSchema) {
    EXPECT_EQ(Find("Arrivals", "ArrivalID=12", "ArrivalsBody"), "");
    EXPECT_EQ(database.statements,
              (Statements{KeysOf("Arrivals"),
                          "Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=12",
                          "Select TOP 1 * From PurchaseBody Where ArrivalId=12"}));
    database.Run("Insert Into PurchaseBody (PurchaseId, ArrivalId) Values (1, 13)");
    EXPECT_EQ(Find("Arrivals", "ArrivalID=12", "ArrivalsBody"), "");
    EXPECT_EQ(Find("Arrivals", "ArrivalID=13", "ArrivalsBody"), "PurchaseBody");
    database.Run("Insert Into LaboratoryReports (SampleArrivalNo) Values (13)");
    EXPECT_EQ(Find("Arrivals", "ArrivalID=13", "ArrivalsBody"), "LaboratoryReports");
}

TEST_F(DependentTable, IsFoundInsideTheTransactionOfTheCaller) {
    Con->BeginTrans();
    database.Run("Insert Into PurchaseBody (PurchaseId, ArrivalId) Values (1, 12)");
    EXPECT_EQ(Find("Arrivals", "ArrivalID=12", "ArrivalsBody"), "PurchaseBody");
    Con->RollbackTrans();
    EXPECT_EQ(Find("Arrivals", "ArrivalID=12", "ArrivalsBody"), "");
}

} // namespace
} // namespace Quillane
