#include "platform/ado/odbc/OdbcOnPostgres.h"
#include "servers/CountingRelay.h"

namespace Quillane {

namespace {

/// The round trips to the server, counted by a relay.
class OdbcRoundTripsOnPostgres : public OdbcOnPostgres {
protected:
    void SetUp() override {
        OdbcOnPostgres::SetUp();
        if (IsSkipped())
            return;
        Run("Create Table Arrivals (ArrivalID int Primary Key, DriverName varchar(60))");
        relay.emplace(database->ConnectionString());
        station.Open(relay->ConnectionString());
        relay->TakeRequests();
    }

    std::size_t Trips(const std::function<void()>& act) {
        act();
        return relay->TakeRequests().size();
    }

    std::optional<CountingRelay> relay;
    Connection station;
};

TEST_F(OdbcRoundTripsOnPostgres, AreOneForAReadAndOneForAWriteAfterTheFirst) {
    const auto add = [&](int id) {
        Recordset rows;
        rows.Open("Select * From Arrivals Where ArrivalID = 0", station, adOpenStatic,
                  adLockOptimistic);
        rows.AddNew();
        rows.Collect("ArrivalID", id);
        rows.Update();
    };
    const std::size_t first = Trips([&] { add(1); });
    const std::size_t second = Trips([&] { add(2); });
    EXPECT_LT(second, first);
    EXPECT_EQ(Trips([&] { add(3); }), second);
    EXPECT_EQ(second, 2U);
}

} // namespace

} // namespace Quillane
