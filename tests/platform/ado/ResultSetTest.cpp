#include "platform/ado/ResultSet.h"

#include "platform/runtime/Date.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

ResultSet OneRowOfEachKind() {
    ResultSet rows;
    rows.SetColumns({"Nothing", "Whole", "Real", "Exact", "Text", "Empty", "Day"});
    rows.BeginRow();
    rows.AddNull();
    rows.AddWhole(-9'007'199'254'740'993);
    rows.AddReal(0.1);
    rows.AddText("30.000", ResultSet::Kind::Decimal);
    rows.AddText("علی");
    rows.AddText("");
    rows.AddDate(ParseDate("1969-12-31"));
    rows.Finish();
    return rows;
}

TEST(ResultSet, ReturnsEachKindUnchanged) {
    const ResultSet rows = OneRowOfEachKind();
    EXPECT_TRUE(rows.At(0, 0).IsNull());
    EXPECT_EQ(std::get<std::int64_t>(rows.At(0, 1).Raw()), -9'007'199'254'740'993);
    EXPECT_EQ(std::get<double>(rows.At(0, 2).Raw()), 0.1);
    EXPECT_EQ(std::get<Value::Decimal>(rows.At(0, 3).Raw()).digits, "30.000");
    EXPECT_EQ(std::get<std::string>(rows.At(0, 4).Raw()), "علی");
    EXPECT_EQ(std::get<std::string>(rows.At(0, 5).Raw()), "");
    EXPECT_EQ(std::get<Date>(rows.At(0, 6).Raw()), ParseDate("1969-12-31"));
}

TEST(ResultSet, FindsAFieldInAnyCaseAndTheFirstOfTwo) {
    ResultSet rows;
    rows.SetColumns({"Id", "Name", "NAME"});
    EXPECT_EQ(rows.FieldNumber("ID"), 0);
    EXPECT_EQ(rows.FieldNumber("name"), 1);
    EXPECT_EQ(rows.FieldNumber("Nam"), -1);
}

TEST(ResultSet, ReplacesACellByOneOfAnyKind) {
    ResultSet rows = OneRowOfEachKind();
    const Value values[] = {Value(),
                            7,
                            2.5,
                            Value::Decimal{"1.50"},
                            "a longer text than before",
                            ParseDate("2026-11-20")};
    for (int field = 0; field < rows.FieldCount(); ++field)
        for (const Value& value : values) {
            rows.Set(0, field, value);
            EXPECT_EQ(rows.At(0, field).Raw(), value.Raw());
        }
}

TEST(ResultSet, AnAddedRowIsNullAndTheOthersDoNotChange) {
    ResultSet rows = OneRowOfEachKind();
    rows.AppendRow();
    EXPECT_EQ(rows.RowCount(), 2);
    for (int field = 0; field < rows.FieldCount(); ++field)
        EXPECT_TRUE(rows.At(1, field).IsNull());
    rows.Set(1, 4, "Bano");
    EXPECT_EQ(rows.At(0, 4).Text(), "علی");
    EXPECT_EQ(rows.At(1, 4).Text(), "Bano");
}

TEST(ResultSet, ReleasesUnusedMemoryWhenFinished) {
    ResultSet rows;
    rows.SetColumns({"Id", "Name"});
    for (int id = 0; id < 10'000; ++id) {
        rows.BeginRow();
        rows.AddWhole(id);
        rows.AddText("0123456789");
    }
    rows.Finish();
    EXPECT_LE(rows.BytesHeld(), 10'000U * (8 + 1 + 8 + 1 + 10));
    EXPECT_EQ(rows.At(9'999, 0).Long(), 9'999);
    EXPECT_EQ(rows.At(0, 1).Text(), "0123456789");
}

} // namespace

} // namespace Quillane
