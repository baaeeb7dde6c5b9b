// Every statement finds its rows by a key or an index, on both engines.

#include "database/SchemaLines.h"
#include "setup/DatabaseScripts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillane {

namespace {

struct LookUp {
    const char* statement;
    const char* table;
    const char* column;
};

constexpr LookUp lookUps[] = {
    {"Select IsNull(Max(ArrivalID),0)+1 From Arrivals", "Arrivals", "ArrivalID"},
    {"Select ... From Arrivals Where ArrivalID =", "Arrivals", "ArrivalID"},
    {"Update Arrivals Set IsPosted=0 where arrivalid=", "Arrivals", "ArrivalID"},
    {"Select * From ArrivalsBody where arrivalid=", "ArrivalsBody", "ArrivalId"},
    {"the delete of one line", "ArrivalsBody", "LineId"},
    {"select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody)",
     "PurchaseBody", "ArrivalId"},
    {"the search by days", "Arrivals", "ArrivalDate"},
    {"the search, the slip", "Parties", "PartyId"},
    {"the search, dbo.FunGetPartyName", "ChartOfAccounts", "AccountNo"},
    {"the party lists' order", "ChartOfAccounts", "AccountName"},
    {"the slip, dbo.FunGetPartyName", "Cities", "CityId"},
    {"dbo.FunGetCommodity", "Commodities", "CommodityId"},
    {"the slip", "BagsClasses", "BagsClassId"},
    {"the slip", "BagsTypes", "BagsTypeId"},
    {"the slip", "PContracts", "ContractId"},
    {"the slip", "PRCenters", "CenterId"},
    {"Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=", "LaboratoryReports",
     "SampleArrivalNo"},
    {"Select TOP 1 * From SaleRecoveryBody Where SaleId=", "SaleRecoveryBody", "SaleId"},
    {"Update PortSettings ... where registrykey =", "PortSettings", "RegistryKey"},
    {"Update Project_Registry ... Where registrykey =", "Project_Registry", "registrykey"},
};

bool IsLookedUp(const SchemaLines& lines, const std::string& table, const std::string& column) {
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
        for (const char* kind : {"key ", "unique ", "index "})
            for (const char* end : {")", ","})
                if (line.starts_with(kind + table + " (" + column + end))
                    return true;
        return false;
    });
}

/// The beginning of a link: "table (column".
std::string BeginningOf(const std::string& link) {
    return link.substr(5, link.find_first_of(",)") - 5);
}

} // namespace

TEST(Indexes, ServeEachStatement) {
    const SchemaLines embedded = LinesOfEmbeddedSchema(DatabaseScripts::EmbeddedSchema);
    const SchemaLines server = LinesOfSqlServerSchema(DatabaseScripts::SqlServerSchema);
    for (const LookUp& each : lookUps) {
        EXPECT_TRUE(IsLookedUp(embedded, each.table, each.column)) << each.statement;
        EXPECT_TRUE(IsLookedUp(server, each.table, each.column)) << each.statement;
    }
}

// Without such an index, removing an arrival would read all rows of a table that may refer to it.
TEST(Indexes, ServeEachForeignKey) {
    const SchemaLines lines = LinesOfSqlServerSchema(DatabaseScripts::SqlServerSchema);
    int links = 0;
    for (const std::string& line : lines) {
        if (!line.starts_with("link "))
            continue;
        ++links;
        const std::string beginning = BeginningOf(line);
        const std::size_t columns = beginning.find(" (");
        EXPECT_TRUE(IsLookedUp(lines, beginning.substr(0, columns), beginning.substr(columns + 2)))
            << line;
    }
    EXPECT_EQ(links, 13);
}

// The search reads its date range only from this index.
TEST(Indexes, TheDateIndexIncludesTheColumnsOfTheSearch) {
    const std::string schema = DatabaseScripts::SqlServerSchema;
    EXPECT_NE(schema.find("ON dbo.Arrivals (ArrivalDate) INCLUDE (CommodityId, SellerId);"),
              schema.npos);
}

} // namespace Quillane
