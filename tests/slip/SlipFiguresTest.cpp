#include "slip/SlipFigures.h"

#include "platform/runtime/Failure.h"
#include "slip/SlipDatabase.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(SlipFigures, GiveALineByItsStoredRow) {
    SlipDatabase database;
    const auto rows = database.RowsOf(1042);
    rows->SetPosition(0);
    const SlipLine line = LineOf(*rows);
    EXPECT_EQ(line.bags, 60);
    EXPECT_DOUBLE_EQ(line.gross, 4870.2);
    EXPECT_DOUBLE_EQ(line.deduction, 10.2);
    EXPECT_DOUBLE_EQ(line.Net(), 4860);
}

TEST(SlipFigures, SumTheRows) {
    SlipDatabase database;
    const SlipTotals totals = TotalsOf(*database.RowsOf(1042));
    EXPECT_EQ(totals.bags, 100);
    EXPECT_DOUBLE_EQ(totals.gross, 8117);
    EXPECT_DOUBLE_EQ(totals.deduction, 17);
    EXPECT_DOUBLE_EQ(totals.Net(), 8100);
    EXPECT_EQ(totals.tare, 4320);
}

TEST(SlipFigures, TakeTheScaleDeductionOnce) {
    SlipDatabase database;
    database.AddArrival(1, "6001");
    database.AddLine(1, {.scaleDeduction = 103});
    database.AddLine(1, {.scaleDeduction = 103});
    EXPECT_EQ(TotalsOf(*database.RowsOf(1)).scaleDeduction, 103);
}

TEST(SlipFigures, CountADeductionForTheBags) {
    SlipDatabase database;
    database.AddArrival(1, "6001");
    database.AddLine(1, {.otherDeduction = 5});
    database.Run("Update ArrivalsBody Set BagsDeduction = 2 Where ArrivalId = 1");
    EXPECT_EQ(TotalsOf(*database.RowsOf(1)).deduction, 7);
}

TEST(SlipFigures, AreZeroWithoutRows) {
    SlipDatabase database;
    const SlipTotals totals = TotalsOf(*database.RowsOf(5));
    EXPECT_EQ(totals.bags, 0);
    EXPECT_EQ(totals.gross, 0);
    EXPECT_EQ(totals.scaleDeduction, 0);
}

TEST(SlipFigures, CountNullAsZero) {
    SlipDatabase database;
    Recordset rows;
    rows.Open(
        "Select Null As NoOfBags, 80 As BagWeight, Null As TareWeight, Null As BagsDeduction, "
        "Null As ScaleDeduction, 3 As OtherDeduction",
        database.connection);
    const SlipTotals totals = TotalsOf(rows);
    EXPECT_EQ(totals.gross, 0);
    EXPECT_EQ(totals.deduction, 3);
}

TEST(SlipFigures, FindTheVehicleWhereverItStands) {
    SlipDatabase database;
    database.AddArrival(1, "6001");
    database.AddLine(1, {.vehicle = ""});
    database.AddLine(1, {.vehicle = "  "});
    database.AddLine(1, {.vehicle = "LEB-4217"});
    database.AddLine(1, {.vehicle = "other"});
    EXPECT_EQ(FirstTextOf(*database.RowsOf(1), "vehicleno"), "LEB-4217");
    EXPECT_EQ(FirstTextOf(*database.RowsOf(1), "CenterName"), "");
    EXPECT_EQ(FirstTextOf(*database.RowsOf(5), "VehicleNo"), "");
}

TEST(SlipFigures, FailOnDataWithoutTheirColumns) {
    SlipDatabase database;
    Recordset rows;
    rows.Open("Select 1 As Other", database.connection);
    EXPECT_THROW(TotalsOf(rows), Failure);
    EXPECT_THROW(FirstTextOf(rows, "VehicleNo"), Failure);
}

TEST(SlipFigures, AreWrittenInTwoForms) {
    struct Case {
        double kilograms;
        const char* inColumn;
        const char* alone;
    };
    const Case cases[] = {{0, "0.00", "0"},
                          {81.17, "81.17", "81.17"},
                          {4860, "4860.00", "4860"},
                          {8117.000000001, "8117.00", "8117"},
                          {1159.5714285714, "1159.57", "1159.57"},
                          {-0.001, "0.00", "0"},
                          {-40.5, "-40.50", "-40.5"},
                          {1e9, "1000000000.00", "1000000000"}};
    for (const Case& each : cases) {
        EXPECT_EQ(ColumnKilograms(each.kilograms), each.inColumn);
        EXPECT_EQ(Kilograms(each.kilograms), each.alone);
    }
}

} // namespace
} // namespace Quillane
