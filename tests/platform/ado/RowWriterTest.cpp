#include "platform/ado/RowWriter.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

struct Case {
    std::string_view source;
    std::string_view table;
};

TEST(TableOfSource, IsFoundOnlyInAPlainSource) {
    const Case cases[] = {
        {"Select * from Arrivals Where ArrivalId=7", "Arrivals"},
        {" SELECT * FROM arrivalsbody", "arrivalsbody"},
        {"Select * From dbo.Arrivals Order By ArrivalID", "dbo.Arrivals"},
        {"Select * From [bag lines];", "[bag lines]"},
        {"Select /* all */ * From Arrivals -- here", "Arrivals"},
        {"Select ArrivalId From Arrivals", ""},
        {"Select *, 1 From Arrivals", ""},
        {"Select * From Arrivals A", ""},
        {"Select * From Arrivals, Parties", ""},
        {"Select * From Arrivals Inner Join Parties On 1=1", ""},
        {"Select * From (Select 1)", ""},
        {"Select * From Arrivals Union Select * From Arrivals", ""},
        {"Select * From dbo.", ""},
        {"EXEC sp_fkeys @pktable_name = N'T'", ""},
        {"", ""},
    };
    for (const Case& item : cases)
        EXPECT_EQ(TableOfSource(item.source), item.table) << item.source;
}

} // namespace

} // namespace Quillane
