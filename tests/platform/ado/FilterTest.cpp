#include "platform/ado/Filter.h"

#include "support/FailureOf.h"

namespace Quillane {

namespace {

/// Rows 0 to 4; the last one contains only Nulls.
ResultSet Rows() {
    ResultSet rows;
    rows.SetColumns({"Id", "Weight", "Name", "Day", "Price", "Vehicle No"});
    const auto add = [&](int id, double weight, std::string_view name, std::string_view day,
                         std::string_view price, std::string_view vehicle) {
        rows.BeginRow();
        rows.AddWhole(id);
        rows.AddReal(weight);
        rows.AddText(name);
        rows.AddDate(ParseDate(day));
        rows.AddText(price, ResultSet::Kind::Decimal);
        rows.AddText(vehicle);
    };
    add(1, 99.5, "Ali", "2026-11-19", "30.000", "LES-1");
    add(2, 100, "O'Brien", "2026-11-20", ".5", "LES-2");
    add(10, 1000, "bano", "2026-11-21", "7", "");
    add(9, 0, "Müller  ", "2025-01-01", "-1", "50%");
    rows.AppendRow();
    return rows;
}

std::string Fitting(std::string_view criterion) {
    const ResultSet rows = Rows();
    const Filter filter = Filter::Parse(criterion, rows);
    std::string fitting;
    for (int row = 0; row < rows.RowCount(); ++row)
        if (filter.Fits(rows, row))
            fitting += std::to_string(row);
    return fitting;
}

struct Case {
    std::string_view criterion;
    std::string_view fitting;
};

TEST(Filter, ComparesEachKindInItsOwnWay) {
    const Case cases[] = {
        {"Id = 10", "2"},
        {"Id = '10'", "2"},
        {"id<>10", "013"},
        {"Id > 9", "2"},
        {"Id >= 9", "23"},
        {"Id < 2", "0"},
        {"Id <= 2", "01"},
        {"Id = -10", ""},
        {"Id = 1E+1", "2"},
        {"Weight > 99.4 AND Weight < 1E3", "01"},
        {"Price = 30", "0"},
        {"Price = '0.5'", "1"},
        {"Price < 0", "3"},
        {"Name = 'ALI'", "0"},
        {"name = 'ali   '", "0"},
        {"Name = 'mÜLLER'", "3"},
        {"Name = 'O''Brien'", "1"},
        {"Name > 'Ali' AND Name < 'N'", "23"},
        {"Day = '2026-11-20'", "1"},
        {"Day >= '2026-11-20T00:00:00'", "12"},
        {"[Vehicle No] = ''", "2"},
        {"\"Vehicle No\" <> ''", "013"},
    };
    for (const Case& item : cases)
        EXPECT_EQ(Fitting(item.criterion), item.fitting) << item.criterion;
}

TEST(Filter, MatchesPatterns) {
    const Case cases[] = {
        {"Name Like 'ali'", "0"},           {"Name LIKE '%B%'", "12"}, {"Name like '*i*'", "01"},
        {"[Vehicle No] Like 'les%'", "01"}, {"Id Like '1%'", "02"},    {"Day Like '2026%'", "012"},
    };
    for (const Case& item : cases)
        EXPECT_EQ(Fitting(item.criterion), item.fitting) << item.criterion;
}

TEST(Filter, MatchesANullOnlyIfAskedFor) {
    const Case cases[] = {
        {"Name = Null", "4"}, {"Name <> NULL", "0123"},  {"Name <> ''", "0123"},
        {"Id < 100", "0123"}, {"Name Like '%'", "0123"},
    };
    for (const Case& item : cases)
        EXPECT_EQ(Fitting(item.criterion), item.fitting) << item.criterion;
}

TEST(Filter, JoinsComparisonsAndBeforeOr) {
    const Case cases[] = {
        {"Id = 1 OR Id = 2 AND Name = 'Nobody'", "0"},
        {"(Id = 1 OR Id = 2) AND Name <> 'Ali'", "1"},
        {"Id = 1 or (Id = 2 and (Name = 'x' or Name Like 'O%'))", "01"},
        {"Name <> 'Ali' AND Name <> 'bano' AND (Id = 9)", "3"},
        {"Name <> '' ", "0123"},
        {"Name <> ''  AND (Name = 'Ali')", "0"},
    };
    for (const Case& item : cases)
        EXPECT_EQ(Fitting(item.criterion), item.fitting) << item.criterion;
}

TEST(Filter, RefusesATextThatIsNotAFilter) {
    for (const auto* criterion :
         {"", "Id", "Id =", "= 1", "Id = 1 AND", "Id = 1 Name = 'x'", "(Id = 1", "Id = 1)",
          "Id = 'never closed", "Id = Name", "Id ! 1", "Id = 1x", "Id = --1", "Id < Null",
          "Name Like Null", "Id = 1 XOR Id = 2", "Name = 'a' 'b'"})
        EXPECT_EQ(FailureNumberOf([&] { Fitting(criterion); }), FailureNumber::InvalidArgument)
            << criterion;
    EXPECT_EQ(FailureNumberOf([] { Fitting("Nothing = 1"); }), FailureNumber::ItemNotFound);
}

std::string Repeated(std::string_view text, int times) {
    std::string all;
    for (int time = 0; time < times; ++time)
        all += text;
    return all;
}

TEST(Filter, RefusesTooDeepParentheses) {
    const auto nested = [](int depth) {
        return Repeated("(", depth) + "Id = 1" + Repeated(")", depth);
    };
    EXPECT_EQ(Fitting(nested(100)), "0");
    for (const int depth : {101, 1'000'000})
        EXPECT_EQ(FailureNumberOf([&] { Fitting(nested(depth)); }), FailureNumber::InvalidArgument)
            << depth;
    EXPECT_EQ(FailureNumberOf([] { Fitting(Repeated("(", 1'000'000)); }),
              FailureNumber::InvalidArgument);
    EXPECT_EQ(Fitting(Repeated("(Id = 1) OR ", 200) + "(Id = 2)"), "01") << "one after the other";
}

TEST(Filter, AcceptsLongChains) {
    EXPECT_EQ(Fitting(Repeated("Id <> 1 AND ", 200'000) + "Id <> 2"), "23");
    EXPECT_EQ(Fitting(Repeated("Id = 1 OR ", 200'000) + "Id = 2"), "01");
    EXPECT_EQ(Fitting(Repeated("Id = 1 OR Id = 2 AND ", 100'000) + "Id <> 1"), "01");
}

TEST(Filter, IgnoresAByteOrderMark) {
    EXPECT_EQ(Fitting("\xEF\xBB\xBFId = 1"), "0");
}

TEST(Filter, ASingleComparisonHasNoAndOrOr) {
    const ResultSet rows = Rows();
    EXPECT_TRUE(Filter::ParseComparison("Name='o''brien'", rows).Fits(rows, 1));
    for (const auto* criterion : {"", "Id = 1 OR Id = 2", "(Id = 1)"})
        EXPECT_EQ(FailureNumberOf([&] { Filter::ParseComparison(criterion, rows); }),
                  FailureNumber::InvalidArgument)
            << criterion;
}

} // namespace

} // namespace Quillane
