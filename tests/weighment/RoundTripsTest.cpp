// The round trips of a station to SQL Server, as a relay between them sees each request: the
// statements of the procedures, the requests that a written row needs, and no others.

#include "data/Con.h"
#include "servers/CountingRelay.h"
#include "weighment/TraceLines.h"

#include <optional>

namespace Quillane::Testing {
namespace {

/// The text of a request without its values, which each driver writes in another form.
std::string Named(const std::string& request) {
    std::string statement = ComparedWords(StatementOfTdsRequest(request));
    if (statement.starts_with("INSERT"))
        return statement.substr(0, statement.find(" ("));
    return statement.substr(0, statement.find(" = @P"));
}

class RoundTrips : public WeighmentTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(OnSqlServer()) << "only SQL Server is reached over a network";
        relay.emplace("Driver=SQL Server;" + database.ConfigText());
        Con->Close();
        Con->Open(relay->ConnectionString());
        ShowScreen();
    }
    void TearDown() override {
        screen.reset();
        Con->Close();
    }

    Lines Requests() {
        Lines statements;
        for (const std::string& request : relay->TakeRequests())
            statements.push_back(Named(request));
        return statements;
    }

    /// The requests from the click to the commit, and those of the new weighment after it.
    std::pair<Lines, Lines> RequestsOfSave() {
        Requests();
        Lines ofSave;
        SetBoxPresenter({.message =
                             [&](const Box&) {
                                 ofSave = Requests();
                                 return BoxAnswer::No;
                             },
                         .input = {}});
        screen->BtnSave_Click();
        ForbidUnexpectedBoxes();
        return {ofSave, Requests()};
    }

    void FillInThreeLines() {
        FillIn();
        SetBagLines({{"Jute New", "100 Kg", "60"},
                     {"Polypropylene", "50 Kg", "40"},
                     {"Jute Old", "50 Kg", "20"}});
    }

    std::optional<CountingRelay> relay;
};

const std::string KeyOfTable = "sp_pkeys";

Lines Validation(const std::string& id) {
    return {"Select Count(*) From Arrivals Where ArrivalID = " + id, PostedRule(id)};
}

/// `key` is the query for a table's key, if it is the first one of the connection.
Lines UpToTheBody(const std::string& id, const Lines& key, const std::string& headerWrite) {
    return Joined({{"BEGIN TRANSACTION", "Select * from Arrivals Where ArrivalId=" + id},
                   key,
                   {headerWrite, "Select * From arrivalsbody where arrivalid=" + id,
                    "EXEC sp_fkeys @pktable_name = N'Arrivals'",
                    "Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=" + id,
                    "Select TOP 1 * From PurchaseBody Where ArrivalId=" + id,
                    "Update Arrivals Set IsPosted=0 where arrivalid=" + id}});
}

Lines NewLines(const std::string& id, const Lines& key) {
    const Lines line{"INSERT INTO ArrivalsBody"};
    return Joined({{"Select * From ArrivalsBody where arrivalid=" + id},
                   key,
                   line,
                   line,
                   line,
                   {"COMMIT TRANSACTION"}});
}

TEST_F(RoundTrips, OfASaveAreItsStatementsAndOneQueryForEachOfTwoKeys) {
    for (const std::string id : {"1043", "1044"}) {
        const Lines key = id == "1043" ? Lines{KeyOfTable} : Lines{};
        FillInThreeLines();
        const auto [ofSave, ofNewWeighment] = RequestsOfSave();
        EXPECT_EQ(ofSave,
                  Joined({Validation(id), Validation(id),
                          UpToTheBody(id, key, "INSERT INTO Arrivals"), NewLines(id, key)}));
        EXPECT_EQ(ofNewWeighment, (Lines{PortRows, NextId}));
    }
}

TEST_F(RoundTrips, OfSavingAnOpenedWeighmentQueryEachKeyOnceForAnySpellingOfTheTable) {
    FillInThreeLines();
    screen->TxtArrivalId.SetText("1040");
    screen->IsOpened = true;
    const auto [ofSave, ofNewWeighment] = RequestsOfSave();
    EXPECT_EQ(ofSave, Joined({{PostedRule("1040"), PostedRule("1040")},
                              UpToTheBody("1040", {KeyOfTable}, "UPDATE Arrivals SET ArrivalDate"),
                              {KeyOfTable, "DELETE FROM arrivalsbody WHERE LineId",
                               "DELETE FROM arrivalsbody WHERE LineId"},
                              NewLines("1040", {})}));
}

TEST_F(RoundTrips, OfOpeningAreTheQueryForTheIdAndOneJoin) {
    Requests();
    screen->TxtArrivalId.SetText("1034");
    screen->TxtArrivalId_Validate();
    const Lines asked = Requests();
    ASSERT_TRUE(screen->IsOpened);
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_EQ(asked[0], LeavingCount("1034"));
    EXPECT_TRUE(asked[1].ends_with("WHERE A.ArrivalId =1034")) << asked[1];
}

TEST_F(RoundTrips, OfANewWeighmentAreTwo) {
    Requests();
    screen->NewWeighment();
    EXPECT_EQ(Requests(), (Lines{PortRows, NextId}));
}

} // namespace
} // namespace Quillane::Testing
