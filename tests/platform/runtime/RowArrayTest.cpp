#include "platform/runtime/RowArray.h"

#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

/// Each cell holds "row.column".
RowArray Numbered(int rows, int columns) {
    RowArray array;
    array.ReDim(rows - 1, columns - 1);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            array.Set(row, column, std::to_string(row) + "." + std::to_string(column));
    return array;
}

TEST(RowArray, StartsWithoutRowsAndColumns) {
    const RowArray array;
    EXPECT_EQ(array.RowCount(), 0);
    EXPECT_EQ(array.ColumnCount(), 0);
    EXPECT_EQ(FailureNumberOf([&] { array.Get(0, 0); }), 9);
}

TEST(RowArray, CountsRowsAndColumnsFromZero) {
    const RowArray array = Numbered(3, 2);
    EXPECT_EQ(array.RowCount(), 3);
    EXPECT_EQ(array.ColumnCount(), 2);
    EXPECT_EQ(array.Get(0, 0), "0.0");
    EXPECT_EQ(array.Get(2, 1), "2.1");
}

TEST(RowArray, FailsOnACellOutsideItsBounds) {
    RowArray array = Numbered(3, 2);
    EXPECT_EQ(FailureNumberOf([&] { array.Get(3, 0); }), 9);
    EXPECT_EQ(FailureNumberOf([&] { array.Get(0, 2); }), 9);
    EXPECT_EQ(FailureNumberOf([&] { array.Get(-1, 0); }), 9);
    EXPECT_EQ(FailureNumberOf([&] { array.Get(0, -1); }), 9);
    EXPECT_EQ(FailureNumberOf([&] { array.Set(3, 0, ""); }), 9);
    EXPECT_EQ(FailureNumberOf([&] { array.DeleteRow(3); }), 9);
    EXPECT_EQ(FailureNumberOf([&] { array.ReDim(-2, 1); }), 9);
    EXPECT_EQ(array.RowCount(), 3);
}

TEST(RowArray, KeepsWhatLiesWithinBothOldAndNewBounds) {
    RowArray array = Numbered(2, 2);
    array.ReDim(2, 2);
    EXPECT_EQ(array.Get(1, 1), "1.1");
    EXPECT_EQ(array.Get(1, 2), "");
    EXPECT_EQ(array.Get(2, 0), "");
    array.ReDim(0, 1);
    EXPECT_EQ(array.RowCount(), 1);
    EXPECT_EQ(array.Get(0, 1), "0.1");
    array.ReDim(1, 1);
    EXPECT_EQ(array.Get(1, 1), "") << "what was cut off does not come back";
}

TEST(RowArray, TakesAnUpperBoundOfMinusOneAsNone) {
    RowArray array = Numbered(2, 2);
    array.ReDim(-1, 1);
    EXPECT_EQ(array.RowCount(), 0);
    EXPECT_EQ(array.ColumnCount(), 2);
    array.AppendRow();
    EXPECT_EQ(array.Get(0, 1), "");
}

TEST(RowArray, ClearsToNothing) {
    RowArray array = Numbered(2, 2);
    array.Clear();
    EXPECT_EQ(array.RowCount(), 0);
    EXPECT_EQ(array.ColumnCount(), 0);
}

TEST(RowArray, AppendsAndDeletesRows) {
    RowArray array = Numbered(3, 2);
    array.DeleteRow(1);
    EXPECT_EQ(array.RowCount(), 2);
    EXPECT_EQ(array.Get(0, 1), "0.1");
    EXPECT_EQ(array.Get(1, 0), "2.0");
    array.AppendRow();
    EXPECT_EQ(array.Get(2, 0), "");
    array.Set(2, 0, "new");
    EXPECT_EQ(array.Get(2, 0), "new");
    EXPECT_EQ(array.Get(1, 1), "2.1");
}

} // namespace
} // namespace Quillane
