#include "office/move/Digest.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

using Names = std::vector<std::string>;
using Value = Quillane::Value;

ResultSet Rows(const std::vector<std::vector<Value>>& rows) {
    ResultSet result;
    result.SetColumns({"Id", "Text"});
    for (const std::vector<Value>& row : rows) {
        result.AppendRow();
        for (std::size_t field = 0; field < row.size(); ++field)
            result.Set(result.RowCount() - 1, static_cast<int>(field), row[field]);
    }
    return result;
}

Digest Of(const std::vector<std::vector<Value>>& rows) {
    Digest digest;
    digest.Add(Rows(rows));
    return digest;
}

TEST(DigestOfRows, DoesNotDependOnTheirOrderOrBlocks) {
    Digest inBlocks = Of({{2, "b"}});
    inBlocks.Add(Rows({{1, "a"}}));
    EXPECT_EQ(inBlocks, Of({{1, "a"}, {2, "b"}}));
}

TEST(DigestOfRows, ComparesNumbersByTheirValue) {
    EXPECT_EQ(Of({{40, "a"}}), Of({{40.0, "a"}}));
    EXPECT_EQ(Of({{30.5, "a"}}), Of({{Value::Decimal{"30.5000"}, "a"}}));
    EXPECT_EQ(Of({{0.0, "a"}}), Of({{-0.0, "a"}}));
}

TEST(DigestOfRows, DistinguishesNullTextNumberAndDate) {
    const Date day = std::chrono::year(2026) / 11 / 20;
    const std::vector<Digest> all{Of({{1, Value()}}), Of({{1, ""}}),
                                  Of({{1, "0"}}),     Of({{1, 0}}),
                                  Of({{1, day}}),     Of({{1, "2026-11-20T00:00:00"}})};
    for (std::size_t left = 0; left < all.size(); ++left)
        for (std::size_t right = 0; right < left; ++right)
            EXPECT_FALSE(all[left] == all[right]) << left << ", " << right;
}

TEST(DigestOfRows, DifferenceNamesTheFirstColumnThatDiffers) {
    const Names names{"Id", "Text"};
    const Digest here = Of({{1, "a"}, {2, "b"}});
    EXPECT_EQ(here.DifferenceTo(here, names), "");
    EXPECT_EQ(here.DifferenceTo(Of({{1, "a"}}), names), "2 rows, there 1");
    EXPECT_EQ(here.DifferenceTo(Of({{1, "a"}, {2.25, "b"}}), names),
              "column Id: sum 3, there 3.25");
    EXPECT_EQ(here.DifferenceTo(Of({{1, "a"}, {2, Value()}}), names),
              "column Text: 2 values, there 1");
    EXPECT_EQ(here.DifferenceTo(Of({{1, "a"}, {2, "B"}}), names),
              "column Text: other values there");
}

TEST(DigestOfRows, DetectsValuesExchangedBetweenRows) {
    EXPECT_EQ(Of({{1, "a"}, {2, "b"}}).DifferenceTo(Of({{1, "b"}, {2, "a"}}), {"Id", "Text"}),
              "values of different rows are exchanged there");
}

} // namespace
} // namespace Quillane::Office
