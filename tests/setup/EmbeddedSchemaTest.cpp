#include "setup/EmbeddedSchema.h"
#include "platform/runtime/Text.h"

#include "station/SampleDatabase.h"

#include "platform/runtime/Failure.h"
#include "signin/UserLogin.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <vector>

namespace Quillane {
namespace {

class Schema : public testing::Test {
protected:
    double Number(std::string_view query) { return database.Ask(query).Number(); }

    void ExpectRefused(std::string_view statement) {
        EXPECT_THROW(database.connection.Execute(statement), Failure) << statement;
    }

    SampleDatabase database;
};

// ---- tables, columns and relations ----

TEST_F(Schema, HasEveryColumnThatTheStationNames) {
    const std::map<std::string, std::vector<std::string>> tables{
        {"Arrivals",
         {"ArrivalId", "ArrivalDate", "PermitNo", "CenterId", "CommodityId", "SellerId",
          "contractid", "IsPosted", "NoOfBags", "BagWeight", "TareWeight"}},
        {"arrivalsbody",
         {"ArrivalId", "CommodityId", "BagsClassId", "BagsTypeId", "NoOfBags", "VehicleNo",
          "TareWeight", "ScaleDeduction", "BagWeight", "BagsDeduction", "OtherDeduction",
          "NetWeight", "DriverName", "BiltyNo", "VehicleNoText"}},
        {"Parties", {"PartyId", "CityId", "Address", "IsSeller", "IsBuyer", "IsBroker"}},
        {"ChartofAccounts", {"AccountNo", "AccountName", "IsEditable"}},
        {"Cities", {"CityID", "CityName"}},
        {"commodities", {"CommodityId", "IsPurchaseable", "IsSaleable", "IsWheatCommodity"}},
        {"bagsclasses", {"BagsClassid", "BagsClass"}},
        {"bagstypes", {"BagsTypeID", "BagsType"}},
        {"PContracts", {"ContractId", "PartyId"}},
        {"PRCenters", {"CenterId", "CenterName"}},
        {"purchasebody", {"ArrivalId"}},
        {"SaleRecoveryBody", {"SaleId"}},
        {"PortSettings", {"RegistryKey", "RegistryValue"}},
        {"Project_Registry", {"registrykey", "value"}},
        {"StationUsers", {"UserName", "PasswordHash", "UserLevel"}},
        {"StationSchema", {"SchemaVersion"}},
    };
    for (const auto& [table, columns] : tables) {
        const Recordset rows = database.connection.Execute(
            table == "StationUsers" ? std::string(ReadsUsers) : "Select * From " + table);
        for (const std::string& column : columns) {
            bool found = false;
            for (int field = 0; field < rows.FieldCount(); ++field)
                found = found || EqualIgnoringCase(rows.FieldName(field), column);
            EXPECT_TRUE(found) << table << "." << column;
        }
    }
}

TEST_F(Schema, ListsTheForeignKeysOnArrivals) {
    Recordset keys = database.connection.Execute("EXEC sp_fkeys @pktable_name = N'Arrivals'");
    std::map<std::string, std::string> found;
    for (; !keys.Eof(); keys.MoveNext()) {
        EXPECT_EQ(keys.Fields("PKCOLUMN_NAME").Text(), "ArrivalID");
        found[keys.Fields("FKTABLE_NAME").Text()] = keys.Fields("FKCOLUMN_NAME").Text();
    }
    const std::map<std::string, std::string> expected{{"ArrivalsBody", "ArrivalId"},
                                                      {"LaboratoryReports", "SampleArrivalNo"},
                                                      {"PurchaseBody", "ArrivalId"}};
    EXPECT_EQ(found, expected);
}

TEST_F(Schema, RefusesReferencesToMissingRows) {
    const std::string arrival = "Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, "
                                "SellerId) Values ";
    ExpectRefused(arrival + "(2000, '2026-11-20T00:00:00', 99, '6010001')");
    ExpectRefused(arrival + "(2000, '2026-11-20T00:00:00', 1, '6999999')");
    ExpectRefused(arrival + "(1031, '2026-11-20T00:00:00', 1, '6010001')");
    ExpectRefused(arrival + "(2000, '20/11/2026', 1, '6010001')");
    ExpectRefused("Insert Into ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
                  "NoOfBags, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, "
                  "NetWeight) Values (2000, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1)");
    ExpectRefused("Delete From Arrivals Where ArrivalID = 1031");
    ExpectRefused("Delete From Parties Where PartyId = '6010001'");
    ExpectRefused("Delete From Commodities Where CommodityId = 1");
    database.connection.Execute(arrival + "(2000, '2026-11-20T00:00:00', '1', '6010001')");
    EXPECT_EQ(Number("Select Count(*) From Arrivals Where ArrivalId = 2000"), 1);
}

TEST_F(Schema, AcceptsABagLineWithoutClassAndType) {
    database.connection.Execute(
        "Insert Into ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, "
        "TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, NetWeight) Values "
        "(1031, '1', '0', '0', 1, 1, 1, 1, 1, 1, 1)");
    EXPECT_EQ(Number("Select Count(*) From ArrivalsBody Where BagsClassId = 0"), 1);
}

TEST_F(Schema, LeavesTheFiguresOfTheBooksEmpty) {
    EXPECT_EQ(Number("Select Count(*) From Arrivals Where ArrivalID <> 1036 And NoOfBags Is Null "
                     "And BagWeight Is Null And TareWeight Is Null"),
              11);
}

// ---- sample rows ----

TEST_F(Schema, HasVariedSampleRows) {
    struct Case {
        const char* from;
        int atLeast;
    };
    constexpr Case cases[] = {
        {"Parties Where PartyId Like '6%'", 38},
        {"Parties Where PartyId Not Like '6%'", 2},
        {"Parties Where IsSeller = 1", 20},
        {"Parties Where IsBuyer = 1", 8},
        {"Parties Where IsBroker = 1", 4},
        {"Parties Where CityId Is Null", 2},
        {"ChartOfAccounts Where IsEditable = 0 And AccountNo Like '6%'", 3},
        {"(Select Distinct CityId From Parties)", 8},
        {"(Select Distinct IsPurchaseable, IsSaleable, IsWheatCommodity From Commodities)", 8},
        {"BagsClasses", 3},
        {"BagsTypes", 4},
        {"Arrivals", 10},
        {"(Select ArrivalId From ArrivalsBody Group By ArrivalId Having Count(*) > 1)", 3},
        {"PurchaseBody Where ArrivalId In (Select ArrivalID From Arrivals)", 1},
        {"Arrivals Where NoOfBags * BagWeight <> 0 And TareWeight <> 0", 1},
        {"StationUsers Where UserLevel = 2", 1},
        {"SaleRecoveryBody", 1},
        {"PortSettings", 5},
    };
    for (const Case& each : cases)
        EXPECT_GE(Number(std::string("Select Count(*) From ") + each.from), each.atLeast)
            << each.from;
    EXPECT_EQ(Number("Select IsNull(Max(ArrivalID),0)+1 From Arrivals"), 1043);
}

TEST_F(Schema, SplitsTheSampleWeighmentsAsSavingDoes) {
    Recordset arrivals = database.connection.Execute("Select ArrivalID From Arrivals");
    for (; !arrivals.Eof(); arrivals.MoveNext()) {
        const std::string id = arrivals.Fields(0).Text();
        Recordset lines = database.connection.Execute(
            "Select * From ArrivalsBody Where ArrivalId=" + id + " Order By LineId");
        ASSERT_GT(lines.RecordCount(), 0) << id;
        double gross = 0, deduction = 0, net = 0;
        for (int line = 0; !lines.Eof(); lines.MoveNext(), ++line) {
            const double bags = lines.Fields("NoOfBags").Number();
            gross += bags * lines.Fields("BagWeight").Number();
            deduction += lines.Fields("OtherDeduction").Number();
            net += lines.Fields("NetWeight").Number();
            EXPECT_EQ(lines.Fields("TareWeight").Number() > 0, line == 0) << id;
            EXPECT_EQ(lines.Fields("VehicleNo").Text().empty(), line > 0) << id;
            EXPECT_LE(lines.Fields("VehicleNoText").Text().size(), 10U) << id;
        }
        EXPECT_NEAR(gross, std::round(gross), 1e-6) << id;
        EXPECT_NEAR(gross - deduction, net, 1e-6) << id;
    }
}

TEST_F(Schema, DatesItsSamplesWithinTheLastYear) {
    EXPECT_EQ(Number("Select Count(*) From Arrivals Where ArrivalDate Between "
                     "strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', '-365 days') And "
                     "strftime('%Y-%m-%dT00:00:00', 'now', 'localtime')"),
              12);
}

// ---- making and judging files ----

TEST(CreateEmbeddedDatabase, AddsNoSampleRowsUnlessWanted) {
    NewDatabase particulars = SampleParticulars();
    particulars.sampleRows = false;
    SampleDatabase database(particulars);
    for (const char* table : {"Parties", "Arrivals", "Commodities", "PurchaseBody"})
        EXPECT_EQ(database.Ask(std::string("Select Count(*) From ") + table).Number(), 0) << table;
    EXPECT_EQ(database.Ask("Select Count(*) From StationUsers").Number(), 1);
    EXPECT_EQ(database.Ask("Select UserLevel From StationUsers").Number(), 1);
    EXPECT_EQ(database.Ask("Select Count(*) From PortSettings").Number(), 5);
    EXPECT_EQ(database.Ask("Select SchemaVersion From StationSchema").Number(), 2);
    EXPECT_EQ(database.Ask("Select IsNull(Max(ArrivalID),0)+1 From Arrivals").Number(), 1);
}

TEST(CreateEmbeddedDatabase, AcceptsAnyTextForTheParticulars) {
    NewDatabase particulars = SampleParticulars();
    particulars.companyAddress = "O'Dwyer Road; -- \"ملتان\"";
    particulars.userName = "gate"; // the sample user's own name
    SampleDatabase database(particulars);
    EXPECT_EQ(database
                  .Ask("Select value From Project_Registry Where registrykey = "
                       "'CompanyAddress'")
                  .Text(),
              particulars.companyAddress);
    EXPECT_EQ(database.Ask("Select Count(*) From StationUsers").Number(), 1);
}

TEST(CreateEmbeddedDatabase, DoesNotChangeAnExistingFile) {
    const FreshFolder folder;
    folder.Write("Account1.db", "must not be lost");
    EXPECT_THROW(CreateEmbeddedDatabase(folder.File("Account1.db"), SampleParticulars()), Failure);
    EXPECT_EQ(folder.Read("Account1.db"), "must not be lost");
    EXPECT_FALSE(folder.Has("Account1.db.new"));
}

TEST(CreateEmbeddedDatabase, ReplacesTheFileOfAnInterruptedSetUp) {
    const FreshFolder folder;
    folder.Write("Account1.db.new", "half a database");
    CreateEmbeddedDatabase(folder.File("Account1.db"), SampleParticulars());
    EXPECT_FALSE(folder.Has("Account1.db.new"));
    EXPECT_EQ(LookAtEmbeddedDatabase(folder.File("Account1.db")).kind,
              EmbeddedDatabase::Kind::OfStations);
}

// The engine would apply the journal of the former database to the new one.
TEST(CreateEmbeddedDatabase, RefusesTheJournalOfAnEarlierDatabase) {
    for (const char* journal : {"Account1.db-wal", "Account1.db-journal"}) {
        const FreshFolder folder;
        folder.Write(journal, "the last weighments of a database that was moved away");
        try {
            CreateEmbeddedDatabase(folder.File("Account1.db"), SampleParticulars());
            ADD_FAILURE() << journal;
        } catch (const Failure& failure) {
            EXPECT_NE(failure.Description().find(folder.File(journal)), std::string::npos)
                << failure.Description();
        }
        EXPECT_TRUE(folder.Has(journal));
        EXPECT_FALSE(folder.Has("Account1.db"));
    }
}

TEST(CreateEmbeddedDatabase, FailsInAMissingFolder) {
    const FreshFolder folder;
    EXPECT_THROW(CreateEmbeddedDatabase(folder.File("gone/Account1.db"), SampleParticulars()),
                 Failure);
}

TEST(LookAtEmbeddedDatabase, ReportsTheKindOfFile) {
    const FreshFolder folder;
    folder.Write("text.db", std::string(5000, 'x'));
    folder.Write("empty.db", "");
    std::filesystem::create_directory(folder.File("folder.db"));
    CreateEmbeddedDatabase(folder.File("ours.db"), SampleParticulars());
    using Kind = EmbeddedDatabase::Kind;
    EXPECT_EQ(LookAtEmbeddedDatabase(folder.File("none.db")).kind, Kind::None);
    EXPECT_EQ(LookAtEmbeddedDatabase(folder.File("text.db")).kind, Kind::Unknown);
    EXPECT_EQ(LookAtEmbeddedDatabase(folder.File("empty.db")).kind, Kind::Foreign);
    EXPECT_EQ(LookAtEmbeddedDatabase(folder.File("folder.db")).kind, Kind::NoAccess);
    const EmbeddedDatabase ours = LookAtEmbeddedDatabase(folder.File("ours.db"));
    EXPECT_EQ(ours.kind, Kind::OfStations);
    EXPECT_EQ(ours.companyName, "Veltrane Flour Mills");
    EXPECT_EQ(ours.arrivals, 12);
    EXPECT_EQ(ours.users, 2);
}

} // namespace
} // namespace Quillane
