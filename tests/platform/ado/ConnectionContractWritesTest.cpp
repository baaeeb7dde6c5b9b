#include "platform/ado/AdoFailure.h"
#include "platform/ado/ConnectionContract.h"
#include "platform/runtime/Text.h"

namespace Quillane {

namespace {

constexpr auto header = "Select * from Arrivals Where ArrivalId=7";
constexpr auto bodyOfOne = "Select * From arrivalsbody where arrivalid=1";

TEST_P(ConnectionContract, ANewRowStoresTheAssignedValuesAndTheDefaultsOfTheDatabase) {
    Recordset rows = Writing(header);
    EXPECT_EQ(rows.RecordCount(), 0);
    rows.AddNew();
    rows.Collect("ArrivalId", 7.0);
    rows.Collect("arrivaldate", ParseDate("2026-11-20"));
    rows.Collect("SellerId", Value());
    rows.Collect("DriverName", "O'Brien");
    rows.Update();
    EXPECT_EQ(AllRows("Select * From Arrivals"), "7,2026-11-20T00:00:00,-,O'Brien,-,5");
    EXPECT_EQ(UpperCase(observed.at(1)),
              "INSERT INTO ARRIVALS (ARRIVALID, ARRIVALDATE, SELLERID, DRIVERNAME) "
              "VALUES (?, ?, ?, ?)");
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Position(), 0);
    EXPECT_EQ(rows.Fields("DriverName").Text(), "O'Brien");
}

TEST_P(ConnectionContract, APendingRowReturnsTheAssignedValues) {
    Recordset rows = Writing(header);
    rows.AddNew();
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_TRUE(rows.Fields("TareWeight").IsNull());
    rows.Collect("TareWeight", 12.5);
    EXPECT_EQ(rows.Fields("tareweight").Number(), 12.5);
    rows.Collect("TareWeight", "13");
    EXPECT_EQ(rows.Fields("TareWeight").Text(), "13");
}

TEST_P(ConnectionContract, AnUpdateWritesTheAssignedColumnsOnly) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * from Arrivals Where ArrivalId=2");
    Run("Update Arrivals Set TareWeight=1, SellerId='6009' Where ArrivalID=2");
    rows.Collect("DriverName", "Zia");
    rows.Collect("SellerId", Value());
    EXPECT_EQ(rows.Fields("DriverName").Text(), "Zia");
    EXPECT_EQ(rows.ValueAt(0, 3).Text(), "Zia");
    rows.Update();
    EXPECT_EQ(AllRows("Select DriverName, SellerId, TareWeight From Arrivals Where ArrivalID=2"),
              "Zia,-,1");
    EXPECT_EQ(UpperCase(observed.at(2)),
              "UPDATE ARRIVALS SET DRIVERNAME = ?, SELLERID = ? WHERE ARRIVALID = ?");
}

TEST_P(ConnectionContract, UpdateWithoutAPendingChangeSendsNothing) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * from Arrivals Where ArrivalId=2");
    rows.Update();
    rows.Collect("IsPosted", 0);
    rows.Update();
    rows.Update();
    EXPECT_EQ(observed.size(), 2U);
}

TEST_P(ConnectionContract, ANewRowCanBeUpdatedByItsKey) {
    Recordset rows = Writing(header);
    rows.AddNew();
    rows.Collect("ArrivalId", 7);
    rows.Update();
    rows.Collect("ArrivalId", 8);
    rows.Update();
    rows.Collect("DriverName", "Zia");
    rows.Update();
    EXPECT_EQ(AllRows("Select ArrivalID, DriverName From Arrivals"), "8,Zia");
}

TEST_P(ConnectionContract, AnUpdateOfNoRowFailsAndStaysPending) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * from Arrivals Where ArrivalId=2");
    Run("Delete From ArrivalsBody");
    Run("Delete From Arrivals Where ArrivalID=2");
    rows.Collect("IsPosted", 0);
    DatabaseFailureOf([&] { rows.Update(); });
    EXPECT_EQ(rows.Fields("IsPosted").Text(), "0");
    DatabaseFailureOf([&] { rows.Delete(); });
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals Where IsPosted=5"), "2");
}

TEST_P(ConnectionContract, ARefusedRowStaysPendingAndCanBeCorrected) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * from Arrivals");
    rows.AddNew();
    rows.Collect("ArrivalId", 2);
    DatabaseFailureOf([&] { rows.Update(); });
    EXPECT_EQ(rows.RecordCount(), 3);
    rows.Collect("ArrivalId", 4);
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 4);
    EXPECT_EQ(rows.Position(), 3);
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals"), "4");
}

TEST_P(ConnectionContract, ClosingDiscardsPendingValues) {
    Recordset rows = Writing(header);
    rows.AddNew();
    rows.Collect("ArrivalId", 7);
    rows.Close();
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals"), "0");
}

TEST_P(ConnectionContract, MovingSendsPendingValues) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * from Arrivals Order By ArrivalID");
    rows.Collect("DriverName", "Zia");
    rows.MoveNext();
    rows.AddNew();
    rows.Collect("ArrivalId", 4);
    rows.AddNew();
    EXPECT_EQ(AllRows("Select ArrivalID, DriverName From Arrivals Order By ArrivalID"),
              "1,Zia;2,Bano;3,Chand;4,-");
}

TEST_P(ConnectionContract, DeletingAndMovingOnEmptiesTheRecordset) {
    AddThreeArrivals();
    Recordset rows = Writing(bodyOfOne);
    const int count = rows.RecordCount();
    EXPECT_EQ(count, 2);
    for (int left = count - 1; left >= 0; --left) {
        rows.Delete();
        EXPECT_EQ(rows.RecordCount(), left);
        EXPECT_FALSE(rows.Eof());
        EXPECT_EQ(FailureNumberOf([&] { rows.Fields(0); }), FailureNumber::NoCurrentRecord);
        rows.MoveNext();
    }
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(AllRows("Select ArrivalId From ArrivalsBody"), "2;2;3;3");
}

TEST_P(ConnectionContract, TheRowAfterADeletedOneComesNext) {
    AddThreeArrivals();
    Run("Delete From ArrivalsBody");
    Recordset rows = Writing("Select * From Arrivals Order By ArrivalID");
    rows.MoveNext();
    rows.Delete();
    rows.MoveNext();
    EXPECT_EQ(rows.Fields("ArrivalID").Long(), 3);
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields("ArrivalID").Long(), 1);
}

TEST_P(ConnectionContract, OnlyOneOfEqualRowsIsDeletedInATableWithoutAKey) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * From ArrivalsBody where arrivalid=2");
    rows.Delete();
    EXPECT_EQ(OneValue("Select Count(*) From ArrivalsBody Where ArrivalId=2"), "1");
    rows.MoveNext();
    rows.Collect("NoOfBags", 21);
    rows.Update();
    rows.Collect("NoOfBags", 22);
    rows.Update();
    EXPECT_EQ(AllRows("Select * From ArrivalsBody Where ArrivalId=2"), "2,22,LES-2");
}

TEST_P(ConnectionContract, ATableWithoutAKeyIsMatchedExactly) {
    AddThreeArrivals();
    Run("Insert Into ArrivalsBody (ArrivalId, NoOfBags, VehicleNo) Values (1, 30, 'les-1')");
    Recordset rows = Writing("Select * From ArrivalsBody Where NoOfBags=30");
    rows.SetFilter("VehicleNo Like 'les%'");
    EXPECT_EQ(rows.RecordCount(), 2);
    rows.MoveLast();
    ASSERT_EQ(rows.Fields("VehicleNo").Text(), "les-1");
    rows.Delete();
    EXPECT_EQ(AllRows("Select VehicleNo From ArrivalsBody Where NoOfBags=30"), "LES-1");
}

TEST_P(ConnectionContract, NullsAreMatchedInATableWithoutAKey) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * From ArrivalsBody where arrivalid=3");
    rows.Delete();
    EXPECT_EQ(AllRows("Select NoOfBags From ArrivalsBody Where ArrivalId=3"), "6");
}

TEST_P(ConnectionContract, AKeyOfSeveralColumnsFindsItsRow) {
    Run("Insert Into BagsClasses Values (1, 'a', 'Jute'), (1, 'b', 'Jute'), (2, 'a', 'Jute')");
    Recordset rows = Writing("Select * From BagsClasses Where BagsClassId=1 Order By Variant");
    rows.MoveNext();
    observed.clear();
    rows.Collect("BagsClass", "Cotton");
    rows.Update();
    EXPECT_EQ(UpperCase(observed.at(0)),
              "UPDATE BAGSCLASSES SET BAGSCLASS = ? WHERE BAGSCLASSID = ? AND VARIANT = ?");
    rows.Delete();
    EXPECT_EQ(AllRows("Select BagsClassId, Variant, BagsClass From BagsClasses "
                      "Order By BagsClassId, Variant"),
              "1,a,Jute;2,a,Jute");
}

TEST_P(ConnectionContract, AReadOnlyRecordsetRefusesToWrite) {
    AddThreeArrivals();
    Recordset rows = Reading("Select * From Arrivals");
    EXPECT_EQ(FailureNumberOf([&] { rows.AddNew(); }), FailureNumber::NotUpdatable);
    EXPECT_EQ(FailureNumberOf([&] { rows.Collect("IsPosted", 0); }), FailureNumber::NotUpdatable);
    EXPECT_EQ(FailureNumberOf([&] { rows.Delete(); }), FailureNumber::NotUpdatable);
    EXPECT_EQ(rows.Fields("IsPosted").Text(), "5");
}

TEST_P(ConnectionContract, OnlyAPlainSourceCanBeWrittenThrough) {
    AddThreeArrivals();
    for (const auto* source :
         {"Select ArrivalID, DriverName From Arrivals", "Select * From Arrivals A, ArrivalsBody B",
          "Select * From Arrivals Inner Join ArrivalsBody On 1=1"}) {
        Recordset rows = Writing(source);
        rows.Collect("DriverName", "Zia");
        EXPECT_EQ(FailureNumberOf([&] { rows.Update(); }), FailureNumber::NotUpdatable) << source;
        EXPECT_EQ(FailureNumberOf([&] { rows.Delete(); }), FailureNumber::NotUpdatable) << source;
    }
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals Where DriverName='Zia'"), "0");
}

TEST_P(ConnectionContract, AWriteNeedsARowAndAField) {
    Recordset rows = Writing(header);
    EXPECT_EQ(FailureNumberOf([&] { rows.Collect("IsPosted", 0); }),
              FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureNumberOf([&] { rows.Delete(); }), FailureNumber::NoCurrentRecord);
    rows.AddNew();
    EXPECT_EQ(FailureNumberOf([&] { rows.Collect("Nothing", 0); }), FailureNumber::ItemNotFound);
    EXPECT_EQ(FailureNumberOf([&] { rows.Delete(); }), FailureNumber::NotInThisContext);
}

TEST_P(ConnectionContract, ClonesShareAddedAndDeletedRows) {
    AddThreeArrivals();
    Run("Delete From ArrivalsBody");
    Recordset rows = Writing("Select * From Arrivals Order By ArrivalID");
    Recordset clone = rows.Clone();
    clone.MoveLast();
    rows.Delete();
    EXPECT_EQ(clone.RecordCount(), 2);
    EXPECT_EQ(clone.Position(), 1);
    EXPECT_EQ(clone.Fields("ArrivalID").Long(), 3);
    rows.AddNew();
    rows.Collect("ArrivalID", 9);
    rows.Update();
    clone.MoveLast();
    EXPECT_EQ(clone.Fields("ArrivalID").Long(), 9);
    clone.SetFilter("");
    EXPECT_EQ(clone.RecordCount(), 3);
}

TEST_P(ConnectionContract, ANewRowThatDoesNotMatchTheFilterIsNotShown) {
    AddThreeArrivals();
    Recordset rows = Writing("Select * From Arrivals");
    rows.SetFilter("ArrivalID < 3");
    rows.AddNew();
    rows.Collect("ArrivalID", 9);
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_TRUE(rows.Eof());
    rows.SetFilter("");
    EXPECT_EQ(rows.RecordCount(), 4);
}

TEST_P(ConnectionContract, RowWritesBelongToTheTransaction) {
    AddThreeArrivals();
    connection.BeginTrans();
    Recordset rows = Writing(bodyOfOne);
    rows.Delete();
    rows.AddNew();
    rows.Collect("ArrivalId", 1);
    rows.Update();
    connection.RollbackTrans();
    EXPECT_EQ(AllRows(bodyOfOne), "1,30,LES-1;1,10,");
}

} // namespace

} // namespace Quillane
