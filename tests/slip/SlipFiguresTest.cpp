#include "slip/SlipFigures.h"

#include "platform/runtime/Failure.h"
#include "slip/SlipDatabase.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(SlipFigures, ComputeALineFromItsStoredRow) {
    SlipDatabase database;
    const SlipLines all = LinesOf(*database.RowsOf(1042));
    ASSERT_EQ(all.lines.size(), 2U);
    EXPECT_EQ(all.lines[0].gross, 4870.2);
    EXPECT_EQ(all.lines[0].deduction, 10.2);
    EXPECT_EQ(all.lines[0].Net(), 4860);
}

TEST(SlipFigures, SumTheRows) {
    SlipDatabase database;
    const SlipLines all = LinesOf(*database.RowsOf(1042));
    EXPECT_EQ(all.bags, 100);
    EXPECT_EQ(all.total.gross, 8117);
    EXPECT_EQ(all.total.deduction, 17);
    EXPECT_EQ(all.total.Net(), 8100);
    EXPECT_EQ(all.tare, 4320);
}

TEST(SlipFigures, CountTheScaleDeductionOnce) {
    SlipDatabase database;
    database.AddArrival(1, "6001");
    database.AddLine(1, {.scaleDeduction = 103});
    database.AddLine(1, {.scaleDeduction = 103});
    EXPECT_EQ(LinesOf(*database.RowsOf(1)).scaleDeduction, 103);
}

TEST(SlipFigures, IncludeADeductionForTheBags) {
    SlipDatabase database;
    database.AddArrival(1, "6001");
    database.AddLine(1, {.otherDeduction = 5});
    database.Run("Update ArrivalsBody Set BagsDeduction = 2 Where ArrivalId = 1");
    EXPECT_EQ(LinesOf(*database.RowsOf(1)).total.deduction, 7);
}

TEST(SlipFigures, AreZeroWithoutRows) {
    SlipDatabase database;
    const SlipLines all = LinesOf(*database.RowsOf(5));
    EXPECT_TRUE(all.lines.empty());
    EXPECT_EQ(all.bags, 0);
    EXPECT_EQ(all.total.gross, 0);
    EXPECT_EQ(all.scaleDeduction, 0);
}

TEST(SlipFigures, CountNullAsZero) {
    SlipDatabase database;
    Recordset rows;
    rows.Open(
        "Select Null As NoOfBags, 80 As BagWeight, Null As TareWeight, Null As BagsDeduction, "
        "Null As ScaleDeduction, 3 As OtherDeduction",
        database.connection);
    const SlipLines all = LinesOf(rows);
    EXPECT_EQ(all.total.gross, 0);
    EXPECT_EQ(all.total.deduction, 3);
}

TEST(SlipFigures, FindTheFirstAndTheLastTextOfAColumn) {
    SlipDatabase database;
    database.AddArrival(1, "6001");
    database.AddLine(1, {.vehicle = ""});
    database.AddLine(1, {.vehicle = "  "});
    database.AddLine(1, {.vehicle = "LEB-4217"});
    database.AddLine(1, {.vehicle = "other"});
    database.AddLine(1, {.vehicle = " "});
    database.AddLine(1, {.vehicle = ""});
    EXPECT_EQ(FirstTextOf(*database.RowsOf(1), "vehicleno"), "LEB-4217");
    EXPECT_EQ(LastTextOf(*database.RowsOf(1), "vehicleno"), " ");
    for (const auto textOf : {FirstTextOf, LastTextOf}) {
        EXPECT_EQ(textOf(*database.RowsOf(1), "CenterName"), "");
        EXPECT_EQ(textOf(*database.RowsOf(5), "VehicleNo"), "");
    }
}

TEST(SlipFigures, FailOnMissingColumns) {
    SlipDatabase database;
    Recordset rows;
    rows.Open("Select 1 As Other", database.connection);
    EXPECT_THROW(LinesOf(rows), Failure);
    EXPECT_THROW(FirstTextOf(rows, "VehicleNo"), Failure);
}

} // namespace
} // namespace Quillane
