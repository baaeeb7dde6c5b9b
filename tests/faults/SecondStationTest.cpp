// A second station in another process saves under the same id, at each moment at which a save holds
// no lock.

#include "faults/FaultsFixture.h"
#include "faults/StationProcess.h"

#include <algorithm>

namespace Quillane::Testing {
namespace {

using Lines = std::vector<std::string>;

const std::string Clash = "The Arrival ID already exists. A new Arrival ID has been generated. "
                          "Please save your record again";
const std::string PrintQuestion = "Do you want to print?";

class SecondStation : public FaultsTest {
protected:
    void SetUp() override {
        FaultsTest::SetUp();
        second = std::make_unique<StationProcess>(database->ConnectionString(), "west");
        station->FillIn("east-1");
    }
    void TearDown() override {
        second.reset();
        FaultsTest::TearDown();
    }

    /// The other station saves, up to its print question.
    void OtherSaves() {
        second->Order("save");
        otherLines = second->LinesOfOrder();
    }
    /// It does so before the station sends this statement for the `time`th time.
    void OtherSavesBefore(const std::string& statement, int time) {
        station->OnStatement = [this, statement, time, seen = 0](std::string_view sent) mutable {
            if (sent == statement && ++seen == time)
                OtherSaves();
        };
    }
    Lines PressSave() {
        station->TakeBoxes();
        Screen().BtnSave_Click();
        Lines texts;
        for (const Box& box : station->TakeBoxes())
            texts.push_back(box.text);
        return texts;
    }
    void ExpectComplete(int ofStation, int ofOther) {
        EXPECT_EQ(Stored("east-1"), ofStation);
        EXPECT_EQ(Stored("west-1"), ofOther);
        EXPECT_EQ(Ask("Select Count(*) From ArrivalsBody Where ArrivalId Not In (Select ArrivalID "
                      "From Arrivals)"),
                  "0");
        EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID Not In (Select ArrivalId From "
                      "ArrivalsBody)"),
                  "0");
    }

    const std::string Count = "Select Count(*) From Arrivals Where ArrivalID = 1043";
    const std::string OtherStored = "stored west-1";
    std::unique_ptr<StationProcess> second;
    Lines otherLines;
};

TEST_F(SecondStation, SaveWhileTheIdIsShownGivesTheFirstTheNextId) {
    OtherSaves();
    EXPECT_EQ(otherLines, (Lines{"entered west-1", "begin", "commit", OtherStored}));
    EXPECT_EQ(PressSave(), Lines{Clash});
    EXPECT_EQ(Screen().TxtArrivalId.Text(), "1044");
    ExpectComplete(0, 1);
    EXPECT_EQ(PressSave(), Lines{PrintQuestion});
    ExpectComplete(1, 1);
}

TEST_F(SecondStation, SaveBetweenTheTwoChecksIsFoundByTheSecondCheck) {
    OtherSavesBefore(Count, 2);
    EXPECT_EQ(PressSave(), Lines{Clash});
    EXPECT_EQ(PressSave(), Lines{PrintQuestion});
    ExpectComplete(1, 1);
}

// By design: no lock is held between the check and the write.
TEST_F(SecondStation, SaveBetweenCheckAndHeaderReadIsOverwrittenCompletely) {
    for (const char* moment : {"BeginTrans", "Select * from Arrivals Where ArrivalId=1043"}) {
        SCOPED_TRACE(moment);
        OtherSavesBefore(moment, 1);
        EXPECT_EQ(PressSave(), Lines{PrintQuestion});
        EXPECT_EQ(otherLines.back(), OtherStored);
        ExpectComplete(1, 0);
        EXPECT_EQ(Ask("Select Max(ArrivalID) From Arrivals"), "1043");
        Run("Delete From ArrivalsBody Where ArrivalId = 1043");
        Run("Delete From Arrivals Where ArrivalID = 1043");
        second = std::make_unique<StationProcess>(database->ConnectionString(), "west");
        Restart();
        station->FillIn("east-1");
    }
}

TEST_F(SecondStation, SaveAfterTheHeaderReadCausesADuplicateKey) {
    bool hasSaved = false;
    station->OnStatement = [&](std::string_view sent) {
        if (!hasSaved && sent.starts_with("INSERT INTO Arrivals ")) {
            hasSaved = true;
            OtherSaves();
        }
    };
    const auto entries = station->Entries();
    const Lines refused = PressSave();
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_TRUE(Holds(refused[0], "uplicate key") || Holds(refused[0], "PRIMARY KEY"))
        << refused[0];
    EXPECT_EQ(station->Entries(), entries);
    ExpectComplete(0, 1);
    EXPECT_EQ(PressSave(), Lines{Clash});
    EXPECT_EQ(PressSave(), Lines{PrintQuestion});
    ExpectComplete(1, 1);
}

// After its insert the first station holds the id. The other one, whose check found the id free,
// waits at its insert.
TEST_F(SecondStation, SaveAfterTheInsertWaitsAndIsRefused) {
    bool hasBegun = false;
    station->OnStatement = [&](std::string_view sent) {
        if (!hasBegun && sent == "Update Arrivals Set IsPosted=0 where arrivalid=1043") {
            hasBegun = true;
            second->Order("save");
            EXPECT_EQ(second->NextLine(), "entered west-1");
            EXPECT_EQ(second->NextLine(), "begin");
        }
    };
    EXPECT_EQ(PressSave(), Lines{PrintQuestion});
    const Lines lines = second->LinesOfOrder();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), "kept");
    ExpectComplete(1, 0);
    second->Order("save");
    EXPECT_EQ(second->LinesOfOrder().back(), "stored west-2");
    ExpectComplete(1, 0);
    EXPECT_EQ(Stored("west-2"), 1);
}

} // namespace
} // namespace Quillane::Testing
