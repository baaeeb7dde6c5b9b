#include "platform/ado/ConnectionContract.h"
#include "platform/runtime/Text.h"

#include <utility>

namespace Quillane {

namespace {

constexpr auto threeDrivers = "Select ArrivalID, DriverName From Arrivals Order By ArrivalID";

TEST_P(ConnectionContract, ARecordsetIsOpenBetweenOpenAndClose) {
    Recordset rows;
    EXPECT_EQ(rows.State(), adStateClosed);
    rows.Open(threeDrivers, connection);
    EXPECT_EQ(rows.State(), adStateOpen);
    EXPECT_EQ(FailureNumberOf([&] { rows.Open(threeDrivers, connection); }),
              FailureNumber::ObjectOpen);
    rows.Close();
    EXPECT_EQ(rows.State(), adStateClosed);
    rows.Open(threeDrivers, connection);
    EXPECT_EQ(rows.State(), adStateOpen);
}

TEST_P(ConnectionContract, ARecordsetThatFailedToOpenStaysClosed) {
    Recordset rows;
    DatabaseFailureOf([&] { rows.Open("Select * From NoSuchTable", connection); });
    EXPECT_EQ(rows.State(), adStateClosed);
    rows.Open("Update Arrivals Set IsPosted=0", connection);
    EXPECT_EQ(rows.State(), adStateClosed);
}

TEST_P(ConnectionContract, AClosedRecordsetRefusesEveryMemberButState) {
    Recordset rows;
    const std::vector<std::function<void()>> members = {
        [&] { rows.Close(); },
        [&] { rows.RecordCount(); },
        [&] { static_cast<void>(rows.Eof()); },
        [&] { rows.MoveFirst(); },
        [&] { rows.MoveNext(); },
        [&] { rows.MoveLast(); },
        [&] { static_cast<void>(rows.Position()); },
        [&] { rows.SetPosition(0); },
        [&] { rows.Fields("a"); },
        [&] { rows.Fields(0); },
        [&] { rows.FieldCount(); },
        [&] { static_cast<void>(rows.FieldName(0)); },
        [&] { rows.ValueAt(0, 0); },
        [&] { rows.SetFilter(""); },
        [&] { rows.Find("a = 'b'"); },
        [&] { rows.Clone(); },
        [&] { rows.AddNew(); },
        [&] { rows.Collect("a", 1); },
        [&] { rows.Update(); },
        [&] { rows.Delete(); },
    };
    for (const auto& member : members)
        EXPECT_EQ(FailureNumberOf(member), FailureNumber::ObjectClosed);
}

TEST_P(ConnectionContract, MovesThroughTheRowsFromTheFirstToTheEnd) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    EXPECT_EQ(rows.RecordCount(), 3);
    EXPECT_EQ(AllRows(rows), "1,Ali;2,Bano;3,Chand");
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.Position(), 3);
    EXPECT_EQ(FailureNumberOf([&] { rows.MoveNext(); }), FailureNumber::NoCurrentRecord);
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields("DriverName").Text(), "Ali");
    rows.MoveLast();
    EXPECT_EQ(rows.Fields("DriverName").Text(), "Chand");
    EXPECT_FALSE(rows.Eof());
    rows.SetPosition(1);
    EXPECT_EQ(rows.Fields("DriverName").Text(), "Bano");
    for (const int position : {-1, 4})
        EXPECT_EQ(FailureNumberOf([&] { rows.SetPosition(position); }),
                  FailureNumber::InvalidArgument);
}

TEST_P(ConnectionContract, WithoutRowsItIsAtTheEnd) {
    Recordset rows = Reading(threeDrivers);
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.FieldCount(), 2);
    rows.MoveFirst();
    rows.MoveLast();
    rows.Find("DriverName = 'Ali'");
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(FailureNumberOf([&] { rows.Fields(0); }), FailureNumber::NoCurrentRecord);
}

TEST_P(ConnectionContract, ReadsFieldsByNameInAnyCaseAndByNumber) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    EXPECT_EQ(rows.Fields("DRIVERNAME").Text(), "Ali");
    EXPECT_EQ(rows.Fields(1).Text(), "Ali");
    EXPECT_TRUE(EqualIgnoringCase(rows.FieldName(0), "ArrivalID")) << rows.FieldName(0);
    for (const int number : {-1, 2}) {
        EXPECT_EQ(FailureNumberOf([&] { rows.Fields(number); }), FailureNumber::ItemNotFound);
        EXPECT_EQ(FailureNumberOf([&] { static_cast<void>(rows.FieldName(number)); }),
                  FailureNumber::ItemNotFound);
    }
    const std::string words = DatabaseFailureOf([&] { rows.Fields("Driver"); });
    EXPECT_NE(words.find("Driver"), std::string::npos);
}

TEST_P(ConnectionContract, ReturnsEachKindOfValue) {
    AddThreeArrivals();
    Recordset rows = Reading("Select * From Arrivals Order By ArrivalID");
    EXPECT_EQ(rows.Fields("ArrivalID").Long(), 1);
    EXPECT_EQ(rows.Fields("ArrivalDate").AsDate(), ParseDate("2026-11-20"));
    EXPECT_EQ(rows.Fields("TareWeight").Text(), "4320");
    rows.MoveNext();
    EXPECT_EQ(rows.Fields("TareWeight").Number(), 4100.5);
    rows.MoveNext();
    EXPECT_TRUE(rows.Fields("SellerId").IsNull());
    EXPECT_EQ(rows.Fields("SellerId").TextOrEmpty(), "");
    EXPECT_EQ(FailureNumberOf([&] { rows.Fields("SellerId").Text(); }),
              FailureNumber::InvalidUseOfNull);
}

TEST_P(ConnectionContract, ShowsAnyRowToAGridWithoutMoving) {
    AddThreeArrivals();
    const Recordset rows = Reading(threeDrivers);
    EXPECT_EQ(rows.ValueAt(2, 1).Text(), "Chand");
    EXPECT_EQ(rows.Position(), 0);
    EXPECT_EQ(FailureNumberOf([&] { rows.ValueAt(3, 1); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumberOf([&] { rows.ValueAt(0, 2); }), FailureNumber::ItemNotFound);
}

TEST_P(ConnectionContract, ACopyDoesNotSeeLaterChanges) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    Run("Update Arrivals Set DriverName='Zia'");
    Run("Insert Into Arrivals (ArrivalID) Values (4)");
    EXPECT_EQ(AllRows(rows), "1,Ali;2,Bano;3,Chand");
}

TEST_P(ConnectionContract, ACopyCanBeReadAfterTheConnectionHasClosed) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * From Arrivals");
    connection.Close();
    EXPECT_EQ(rows.Fields("DriverName").Text(), "Ali");
    rows.Collect("DriverName", "Zia");
    EXPECT_EQ(FailureNumberOf([&] { rows.Update(); }), FailureNumber::ObjectClosed);
}

TEST_P(ConnectionContract, AFilterShowsTheMatchingRowsAndMovesToTheFirst) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    rows.MoveLast();
    rows.SetFilter("drivername <> 'ALI'");
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.Position(), 0);
    EXPECT_EQ(AllRows(rows), "2,Bano;3,Chand");
    rows.SetFilter("DriverName = 'Nobody'");
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_TRUE(rows.Eof());
    rows.SetFilter("");
    EXPECT_EQ(AllRows(rows), "1,Ali;2,Bano;3,Chand");
}

TEST_P(ConnectionContract, AnInvalidFilterKeepsTheOldOne) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    rows.SetFilter("ArrivalID > 1");
    EXPECT_EQ(FailureNumberOf([&] { rows.SetFilter("ArrivalID >"); }),
              FailureNumber::InvalidArgument);
    EXPECT_EQ(FailureNumberOf([&] { rows.SetFilter("Nothing = 1"); }), FailureNumber::ItemNotFound);
    EXPECT_EQ(rows.RecordCount(), 2);
}

TEST_P(ConnectionContract, FindStartsAtTheFirstRowEachTime) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    rows.Find("DriverName='chand'");
    EXPECT_EQ(rows.Position(), 2);
    rows.Find("DriverName='Ali'");
    EXPECT_EQ(rows.Position(), 0);
    rows.Find("DriverName='Al'");
    EXPECT_TRUE(rows.Eof());
    rows.Find("DriverName=''''");
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(FailureNumberOf([&] { rows.Find("DriverName='Ali' OR ArrivalID=2"); }),
              FailureNumber::InvalidArgument);
}

TEST_P(ConnectionContract, FindSearchesOnlyTheShownRows) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    rows.SetFilter("ArrivalID > 1");
    rows.Find("DriverName='Ali'");
    EXPECT_TRUE(rows.Eof());
    rows.Find("DriverName='Bano'");
    EXPECT_EQ(rows.Position(), 0);
}

TEST_P(ConnectionContract, ACloneHasItsOwnFilterAndCurrentRow) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    rows.SetFilter("ArrivalID = 3");
    Recordset clone = rows.Clone();
    EXPECT_EQ(AllRows(clone), "1,Ali;2,Bano;3,Chand");
    clone.SetFilter("ArrivalID < 3");
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Fields("DriverName").Text(), "Chand");
    rows.Close();
    EXPECT_EQ(AllRows(clone), "1,Ali;2,Bano");
}

TEST_P(ConnectionContract, ARecordsetCanBeMoved) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    rows.MoveNext();
    Recordset other = std::move(rows);
    EXPECT_EQ(other.Fields("DriverName").Text(), "Bano");
}

TEST_P(ConnectionContract, ReportsEachMoveOfTheCurrentRowOnce) {
    AddThreeArrivals();
    Recordset rows = Reading(threeDrivers);
    std::vector<int> positions;
    rows.Moved = [&] {
        positions.push_back(rows.Position());
        rows.SetPosition(rows.Position());
    };
    rows.MoveNext();
    rows.MoveLast();
    rows.SetPosition(2);
    rows.Find("ArrivalID=1");
    rows.MoveFirst();
    rows.SetFilter("ArrivalID=2");
    EXPECT_EQ(positions, std::vector<int>({1, 2, 0, 0}));
}

TEST_P(ConnectionContract, ReportsANewRowAndTheMoveAfterADeletion) {
    AddThreeArrivals();
    Run("Delete From ArrivalsBody");
    Recordset rows = Writing("Select * From Arrivals Order By ArrivalID");
    std::vector<int> positions;
    rows.Moved = [&] { positions.push_back(rows.Position()); };
    rows.Delete();
    rows.MoveNext();
    rows.AddNew();
    rows.Collect("ArrivalID", 4);
    rows.Update();
    rows.Collect("DriverName", "Zia");
    rows.Update();
    EXPECT_EQ(positions, std::vector<int>({0, 2, 2}));
    EXPECT_EQ(rows.Fields("ArrivalID").Long(), 4);
}

TEST_P(ConnectionContract, ReadsManyRowsAndLongTexts) {
    const std::string longText(100'000, 'x');
    connection.BeginTrans();
    for (int id = 1; id <= 500; ++id)
        Run("Insert Into Arrivals (ArrivalID, DriverName) Values (" + std::to_string(id) + ", 'D" +
            std::to_string(id) + "')");
    connection.CommitTrans();
    Recordset rows = Reading("Select ArrivalID, DriverName, '" + longText +
                             "' As Remark From Arrivals Order By ArrivalID");
    EXPECT_EQ(rows.RecordCount(), 500);
    for (int position = 0; position < 500; ++position) {
        ASSERT_EQ(rows.ValueAt(position, 1).Text(), "D" + std::to_string(position + 1));
        ASSERT_EQ(rows.ValueAt(position, 2).Text().size(), longText.size());
    }
}

} // namespace

} // namespace Quillane
