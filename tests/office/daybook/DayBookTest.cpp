#include "office/daybook/DayBook.h"

#include "office/daybook/DayBookDatabase.h"

#include <gtest/gtest.h>

#include <numeric>

namespace Quillane::Office {
namespace {

TEST(DayBook, FiguresOfAnArrivalAddUpAsOnItsSlip) {
    // The load of 12540 kg, tare 4320, scale deduction 103, deduction 17: two lines of 60 and 40.
    DayBookDatabase database;
    database.AddArrival(20001, "2024-05-01", "6010001", 1,
                        {{.bags = 60,
                          .tare = 4320,
                          .scaleDeduction = 103,
                          .otherDeduction = 10.2,
                          .net = 4860,
                          .vehicle = "LEA-1"},
                         {.bags = 40, .scaleDeduction = 103, .otherDeduction = 6.8, .net = 3240}});
    DayBook book(database.connection, Year2024());
    std::vector<Arrival> arrivals;
    book.Visit = [&](const Arrival& arrival) { arrivals.push_back(arrival); };
    EXPECT_FALSE(book.ReadOn());
    ASSERT_EQ(arrivals.size(), 1U);
    EXPECT_EQ(arrivals[0].vehicle, "LEA-1");
    EXPECT_FALSE(arrivals[0].isInside);
    EXPECT_EQ(arrivals[0].figures, (Figures{.bags = 1'000'000,
                                            .firstWeight = 1'254'000,
                                            .tare = 432'000,
                                            .gross = 822'000,
                                            .deduction = 12'000,
                                            .net = 810'000}));
}

TEST(DayBook, TruckWithoutTareIsInsideAndNotInTheSums) {
    DayBookDatabase database;
    database.AddLoad(20001, "2024-05-01", 8000, 4000, 7990);
    database.AddLoad(20002, "2024-05-01", 12000, 0, 12000);
    const DayBook book = database.ReadAll(Year2024());
    const Sum& all = book.Sums().All();
    EXPECT_EQ(all.arrivals, 1);
    EXPECT_EQ(all.inside, 1);
    EXPECT_EQ(all.figures.net, 799'000);
    EXPECT_EQ(all.figures.bags, 1'000'000);
    const std::vector<Arrival> page = book.Page(0);
    ASSERT_EQ(page.size(), 2U);
    EXPECT_TRUE(page[1].isInside);
    EXPECT_EQ(page[1].figures.firstWeight, 1'200'000);
    EXPECT_EQ(page[1].figures.net, 0);
}

TEST(DayBook, ArrivalWithoutBagLinesHasNoFigures) {
    DayBookDatabase database;
    database.AddArrival(20001, "2024-05-01", "6010001", 1, {});
    const DayBook book = database.ReadAll(Year2024());
    EXPECT_EQ(book.Sums().All(), (Sum{.arrivals = 1}));
}

TEST(DayBook, PeriodIncludesBothDaysAndIsSortedByDayThenNumber) {
    DayBookDatabase database;
    for (const auto& [id, day] :
         std::initializer_list<std::pair<int, const char*>>{{20001, "2024-04-30"},
                                                            {20005, "2024-05-01"},
                                                            {20003, "2024-05-02"},
                                                            {20002, "2024-05-02"},
                                                            {20004, "2024-05-03"}})
        database.AddLoad(id, day, 8000, 4000, 8000);
    EXPECT_EQ(database.Ids({.from = DayOf(2024, 5, 1), .to = DayOf(2024, 5, 2)}),
              (std::vector{20005, 20002, 20003}));
}

TEST(DayBook, PagesFollowOneAnotherWithoutGapsWithinOneDay) {
    DayBookDatabase database;
    const int count = 2 * DayBook::PageRows;
    database.Together([&] {
        for (int id = 0; id < count; ++id)
            database.AddArrival(20000 + id, id % 2 == 0 ? "2024-05-01" : "2024-05-02", "6010001", 1,
                                {});
    });
    std::vector<int> expected;
    for (const int odd : {0, 1})
        for (int id = odd; id < count; id += 2)
            expected.push_back(20000 + id);
    DayBook book(database.connection, Year2024());
    EXPECT_TRUE(book.ReadOn());
    EXPECT_TRUE(book.ReadOn());
    EXPECT_FALSE(book.ReadOn());
    EXPECT_EQ(book.Count(), count);
    std::vector<int> shown;
    for (const int page : {0, 1})
        for (const Arrival& arrival : book.Page(page))
            shown.push_back(arrival.id);
    EXPECT_EQ(shown, expected);
}

TEST(DayBook, FiltersSelectArrivals) {
    DayBookDatabase database;
    const std::vector<LineRow> load{
        {.bags = 100, .bagWeight = 80, .tare = 4000, .net = 8000, .vehicle = "LEA-1234"}};
    database.AddArrival(20001, "2024-05-01", "6010001", 1, load);
    database.AddArrival(20002, "2024-05-01", "6010002", 1, load);
    database.AddArrival(20003, "2024-05-01", "6010001", 2, load);
    database.AddArrival(20004, "2024-05-01", "6010001", 1,
                        {{.bags = 100, .bagWeight = 80, .net = 8000, .vehicle = "mn%[5]_!''x"}});
    ArrivalFilter filter = Year2024();
    filter.party = "6010001";
    EXPECT_EQ(database.Ids(filter), (std::vector{20001, 20003, 20004}));
    filter.commodity = "1";
    EXPECT_EQ(database.Ids(filter), (std::vector{20001, 20004}));
    filter.vehicle = "ea-12";
    EXPECT_EQ(database.Ids(filter), (std::vector{20001}));
    filter.vehicle = "%[5]_!'X";
    EXPECT_EQ(database.Ids(filter), (std::vector{20004}));
    filter.vehicle = "%";
    EXPECT_EQ(database.Ids(filter), (std::vector{20004}));
    filter.vehicle = "";
    filter.onlyInside = true;
    EXPECT_EQ(database.Ids(filter), (std::vector{20004}));
}

TEST(DayBook, SumsAreSortedByDayAndByName) {
    DayBookDatabase database;
    database.AddLoad(20001, "2024-05-02", 8000, 4000, 8000);
    database.AddLoad(20002, "2024-05-01", 8000, 4000, 7000);
    database.AddLoad(20003, "2024-05-02", 8000, 4000, 6000);
    const DayBook book = database.ReadAll(Year2024());
    const std::vector<NamedSum> days = book.Sums().By(SumsBy::Day, book.Names());
    ASSERT_EQ(days.size(), 2U);
    EXPECT_EQ(days[0].name, "01/05/2024");
    EXPECT_EQ(days[0].sum.figures.net, 700'000);
    EXPECT_EQ(days[1].sum.figures.net, 1'400'000);
    EXPECT_EQ(days[1].sum.arrivals, 2);
    const std::vector<NamedSum> parties = book.Sums().By(SumsBy::Party, book.Names());
    ASSERT_EQ(parties.size(), 1U);
    EXPECT_EQ(parties[0].id, "6010001");
    EXPECT_EQ(parties[0].name,
              database.Rows("Select AccountName From ChartOfAccounts Where AccountNo = '6010001'")
                      .at(0)
                      .at(0)
                      .Text() +
                  "-" +
                  database
                      .Rows("Select CityName From Cities C Inner Join Parties P On P.CityId = "
                            "C.CityId Where P.PartyId = '6010001'")
                      .at(0)
                      .at(0)
                      .Text());
}

TEST(DayBook, SumsAreExactWhereFloatingPointIsNot) {
    DayBookSums sums;
    const Arrival tenth{.id = 1, .day = DayOf(2024, 1, 1), .figures = {.net = 10}}; // 0.10 kg
    for (int time = 0; time < 1'000'000; ++time)
        sums.Add(tenth);
    EXPECT_EQ(sums.All().figures.net, 10'000'000);
}

} // namespace
} // namespace Quillane::Office
