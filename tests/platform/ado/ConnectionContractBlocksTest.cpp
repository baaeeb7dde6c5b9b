#include "platform/ado/ConnectionContract.h"

#include <string>

namespace Quillane {

namespace {

constexpr auto insertArrival =
    "Insert Into Arrivals (ArrivalID, ArrivalDate, DriverName, TareWeight) Values (?, ?, ?, ?)";

ResultSet NoArrivals() {
    ResultSet rows;
    rows.SetColumns({"ArrivalID", "ArrivalDate", "DriverName", "TareWeight"});
    return rows;
}

void AddArrival(ResultSet& rows, int id, std::string_view driver) {
    rows.BeginRow();
    rows.AddWhole(id);
    rows.AddDate(std::chrono::year(2026) / 11 / 20);
    rows.AddText(driver);
    rows.AddReal(id * 0.5);
}

TEST_P(ConnectionContract, RunsAStatementForEachRow) {
    ResultSet rows = NoArrivals();
    AddArrival(rows, 1, "Ali");
    AddArrival(rows, 2, "O'Brien \u0639\u0644\u06cc \U0001F69A");
    rows.BeginRow();
    rows.AddWhole(3);
    rows.AddNull();
    rows.AddNull();
    rows.AddWhole(4320);
    rows.BeginRow();
    rows.AddWhole(4);
    rows.AddDate(std::chrono::year(1999) / 12 / 31);
    rows.AddText("");
    rows.AddNull();
    connection.BeginTrans();
    connection.ExecuteForEach(insertArrival, rows);
    connection.CommitTrans();
    EXPECT_EQ(AllRows("Select ArrivalID, ArrivalDate, DriverName, TareWeight From Arrivals "
                      "Order By ArrivalID"),
              "1,2026-11-20T00:00:00,Ali,0.5;2,2026-11-20T00:00:00,O'Brien \u0639\u0644\u06cc "
              "\U0001F69A,1;3,-,-,4320;4,1999-12-31T00:00:00,,-");
    EXPECT_EQ(observed, std::vector<std::string>({"BeginTrans", insertArrival, "CommitTrans",
                                                  "Select ArrivalID, ArrivalDate, DriverName, "
                                                  "TareWeight From Arrivals Order By ArrivalID"}));
}

TEST_P(ConnectionContract, RunsAStatementForEachOfManyRows) {
    ResultSet rows = NoArrivals();
    for (int id = 1; id <= 1500; ++id)
        AddArrival(rows, id, "Driver " + std::to_string(id));
    connection.BeginTrans();
    connection.ExecuteForEach(insertArrival, rows);
    connection.CommitTrans();
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals Where TareWeight = ArrivalID * 0.5"), "1500");
    EXPECT_EQ(OneValue("Select DriverName From Arrivals Where ArrivalID = 1499"), "Driver 1499");
}

TEST_P(ConnectionContract, FailsIfOneOfManyRowsIsRefused) {
    ResultSet rows = NoArrivals();
    for (int id = 1; id <= 40; ++id)
        AddArrival(rows, id == 30 ? 12 : id, "Ali");
    connection.BeginTrans();
    EXPECT_NE(DatabaseFailureOf([&] { connection.ExecuteForEach(insertArrival, rows); }), "");
    connection.RollbackTrans();
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals"), "0");
}

TEST_P(ConnectionContract, ReturnsTheRowsOfAQueryInBlocks) {
    ResultSet rows = NoArrivals();
    for (int id = 1; id <= 700; ++id)
        AddArrival(rows, id, "Ali");
    connection.BeginTrans();
    connection.ExecuteForEach(insertArrival, rows);
    connection.CommitTrans();
    int count = 0;
    std::int64_t sum = 0;
    connection.ReadBlocks("Select ArrivalID, DriverName From Arrivals",
                          [&](const ResultSet& block) {
                              for (int row = 0; row < block.RowCount(); ++row) {
                                  EXPECT_EQ(block.CellAt(row, 1).text, "Ali");
                                  sum += block.CellAt(row, 0).whole;
                              }
                              count += block.RowCount();
                              return true;
                          });
    EXPECT_EQ(count, 700);
    EXPECT_EQ(sum, 700 * 701 / 2);
}

TEST_P(ConnectionContract, ReadingOfBlocksCanBeEndedEarly) {
    AddThreeArrivals();
    int blocks = 0;
    connection.ReadBlocks("Select * From Arrivals", [&](const ResultSet&) {
        ++blocks;
        return false;
    });
    EXPECT_EQ(blocks, 1);
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals"), "3");
    connection.ReadBlocks("Select * From Arrivals Where ArrivalID = 77", [&](const ResultSet&) {
        ADD_FAILURE() << "there is no row";
        return true;
    });
    EXPECT_NE(DatabaseFailureOf([&] {
                  connection.ReadBlocks("Select * From NoSuchTable",
                                        [](const ResultSet&) { return true; });
              }),
              "");
}

} // namespace

} // namespace Quillane
