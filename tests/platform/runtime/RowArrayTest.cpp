#include "platform/runtime/RowArray.h"

#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

/// Each cell contains "row.column".
RowArray Numbered(int rows, int columns) {
    RowArray array;
    array.ReDim(rows - 1, columns - 1);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            array.Set(row, column, std::to_string(row) + "." + std::to_string(column));
    return array;
}

TEST(RowArray, NewArrayIsEmpty) {
    const RowArray array;
    EXPECT_EQ(array.RowCount(), 0);
    EXPECT_EQ(array.ColumnCount(), 0);
    EXPECT_EQ(FailureNumberOf([&] { array.Get(0, 0); }), 9);
}

TEST(RowArray, RowsAndColumnsStartAtZero) {
    const RowArray array = Numbered(3, 2);
    EXPECT_EQ(array.RowCount(), 3);
    EXPECT_EQ(array.ColumnCount(), 2);
    EXPECT_EQ(array.Get(0, 0), "0.0");
    EXPECT_EQ(array.Get(2, 1), "2.1");
}

TEST(RowArray, CellOutsideTheBoundsFails) {
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

TEST(RowArray, ReDimKeepsCellsWithinOldAndNewBounds) {
    RowArray array = Numbered(2, 2);
    array.ReDim(2, 2);
    EXPECT_EQ(array.Get(1, 1), "1.1");
    EXPECT_EQ(array.Get(1, 2), "");
    EXPECT_EQ(array.Get(2, 0), "");
    array.ReDim(0, 1);
    EXPECT_EQ(array.RowCount(), 1);
    EXPECT_EQ(array.Get(0, 1), "0.1");
    array.ReDim(1, 1);
    EXPECT_EQ(array.Get(1, 1), "") << "a removed cell is not restored";
}

TEST(RowArray, UpperBoundOfMinusOneMeansNone) {
    RowArray array = Numbered(2, 2);
    array.ReDim(-1, 1);
    EXPECT_EQ(array.RowCount(), 0);
    EXPECT_EQ(array.ColumnCount(), 2);
    array.AppendRow();
    EXPECT_EQ(array.Get(0, 1), "");
}

TEST(RowArray, ClearRemovesRowsAndColumns) {
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
