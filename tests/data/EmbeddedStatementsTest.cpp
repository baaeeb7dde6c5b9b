// Every statement of the system runs on the embedded schema and uses an index.

#include "station/SampleDatabase.h"
#include "station/SystemStatements.h"

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

namespace Quillane {

namespace {

/// The plan of a statement, one line for each step.
std::vector<std::string> PlanOf(SampleDatabase& database, const std::string& statement) {
    std::vector<std::string> plan;
    Recordset steps = database.connection.Execute("EXPLAIN QUERY PLAN " + statement);
    for (; !steps.Eof(); steps.MoveNext())
        plan.push_back(steps.Fields("detail").Text());
    return plan;
}

TEST(EmbeddedStatements, EveryQueryReturnsRows) {
    SampleDatabase database;
    for (const SystemQuery& query : SystemQueries())
        EXPECT_EQ(database.connection.Execute(query.text).RecordCount(), query.rows) << query.text;
}

TEST(EmbeddedStatements, EveryWriteChangesItsRow) {
    SampleDatabase database;
    struct Write {
        const char* statement;
        const char* question;
        const char* answer;
    };
    constexpr Write writes[] = {
        {"Update PortSettings set RegistryValue='2' where registrykey = 'PortName'",
         "Select RegistryValue From PortSettings Where RegistryKey = 'PORTNAME'", "2"},
        {"Update Project_Registry set value ='BRELLIX' Where registrykey ='CompanyName'",
         "Select value From Project_Registry Where registrykey = 'COMPANYNAME'", "BRELLIX"},
        {"Update Arrivals Set IsPosted=0 where arrivalid=1036",
         "Select IsPosted From Arrivals Where ArrivalID = 1036", "0"},
        {"Delete From ArrivalsBody Where arrivalid=1031",
         "Select Count(*) From ArrivalsBody Where ArrivalId = 1031", "0"},
        {"Delete From arrivals where arrivalid=1031",
         "Select Count(*) From Arrivals Where ArrivalID = 1031", "0"},
    };
    for (const Write& write : writes) {
        database.connection.Execute(write.statement);
        EXPECT_EQ(database.Ask(write.question).Text(), write.answer) << write.statement;
    }
}

TEST(EmbeddedStatements, OnlyTheRequestedArrivalsAreRead) {
    SampleDatabase database;
    const std::vector<std::string> lookUps{
        "Select Count(*) From Arrivals Where ArrivalID = 1034",
        "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where ArrivalID = 1036",
        "Select * from Arrivals Where ArrivalId=1034",
        "Select * From ArrivalsBody where arrivalid=1034",
        "Update Arrivals Set IsPosted=0 where arrivalid=1034",
        "Delete From arrivals where arrivalid=1034",
        "select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
        "arrivalid = 1035",
        "Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=1037",
        "Select TOP 1 * From PurchaseBody Where ArrivalId=1035",
        "Select TOP 1 * From SaleRecoveryBody Where SaleId=9001",
        "Select RegistryValue From PortSettings where registrykey = 'PortName'",
        loadStatement + "1034",
        searchStatement + " Order By Arrivals.ArrivalId desc",
    };
    for (const std::string& statement : lookUps)
        for (const std::string& step : PlanOf(database, statement))
            for (const char* table : {"A", "Arrivals", "ArrivalsBody", "PurchaseBody", "arrivals",
                                      "LaboratoryReports", "SaleRecoveryBody", "PortSettings"})
                // The search needs all ids in order, so this scan is intended.
                EXPECT_TRUE(step != std::string("SCAN ") + table ||
                            statement.starts_with(searchStatement))
                    << statement << "\n"
                    << step;
}

} // namespace
} // namespace Quillane
