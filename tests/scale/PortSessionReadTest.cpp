#include "scale/WeighingScreen.h"

#include "platform/forms/core/EventBoundary.h"

#include <QTimer>

#include <random>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::PortSessionTest;
using Testing::PortSettingsDatabase;
using Testing::WaitFor;
using Rows = PortSettingsDatabase::Settings;

constexpr const char* frames = "+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n+0012";

struct PortSessionRead : PortSessionTest {
    PortSessionRead() { screen.CM.SetPortOpen(true); }

    /// One read with these settings; "777" is the former reading.
    std::string LookWith(const Rows& rows) {
        Store(rows);
        screen.TxtWeight.SetText("777");
        return Look(frames);
    }
};

TEST_F(PortSessionRead, ShowsTheDecodedReading) {
    int changes = 0;
    screen.TxtWeight.Change = [&] { ++changes; };
    EXPECT_EQ(Look(frames), "1250");
    EXPECT_EQ(Look(frames), "1250");
    EXPECT_EQ(changes, 2) << "the same reading is written again";
    EXPECT_EQ(LookWith(PortSettingsDatabase::With("DataLength", "3")), "250");
    EXPECT_EQ(LookWith(PortSettingsDatabase::With("IsReversed", "1")), "052100");
}

TEST_F(PortSessionRead, KeepsTheReadingIfTheDecodingGivesNone) {
    int changes = 0;
    screen.TxtWeight.Change = [&] { ++changes; };
    EXPECT_EQ(Look("ERR\r\n"), "777");
    EXPECT_EQ(Look("7 7 7"), "777");
    EXPECT_EQ(changes, 0);
}

TEST_F(PortSessionRead, ReadsNoSettingWhileTheLineIsSilent) {
    Store({});
    EXPECT_EQ(Look(""), "777") << "and no box is shown";
}

TEST_F(PortSessionRead, LengthZeroNeverChangesTheReading) {
    EXPECT_EQ(LookWith(PortSettingsDatabase::With("DataLength", "0")), "777");
    EXPECT_EQ(LookWith(PortSettingsDatabase::With("DataLength", "")), "777");
}

TEST_F(PortSessionRead, AnyOtherDirectionIsLeft) {
    for (const char* direction : {"right", "Left", "", "nonsense"}) {
        Rows rows = PortSettingsDatabase::With("DataDirection", direction);
        rows[3].second = "4";
        EXPECT_EQ(LookWith(rows), "12") << direction;
    }
}

TEST_F(PortSessionRead, DoesNotCutUnlessThereIsOneDirection) {
    Rows doubled = PortSettingsDatabase::UsualRows();
    doubled.emplace_back("DataDirection", "Left");
    for (Rows rows : {PortSettingsDatabase::Without("DataDirection"), doubled}) {
        Store(rows);
        EXPECT_EQ(Look("1 7 1"), "7");
        std::erase_if(rows, [](const auto& row) { return row.first == "DataLength"; });
        Store(rows);
        EXPECT_EQ(Look("1 8 1"), "8") << "the length is not read";
    }
}

TEST_F(PortSessionRead, MissingLengthOrReversalIsReportedAtEachReadWithData) {
    for (const char* key : {"DataLength", "IsReversed"}) {
        Store(PortSettingsDatabase::Without(key));
        BoxAnswers answers;
        answers.Allow(Critical("Either BOF or EOF is True, or the current record has been deleted. "
                               "Requested operation requires a current record.",
                               "Database"));
        EXPECT_EQ(Look(frames), "777");
        EXPECT_EQ(Look(""), "777");
        EXPECT_EQ(Look(frames), "777");
        EXPECT_EQ(answers.Shown().size(), 2u) << key;
    }
}

TEST_F(PortSessionRead, ReversalThatIsNotANumberIsReported) {
    for (const char* value : {"", "yes"}) {
        BoxAnswers answers;
        answers.Expect(Critical("Type mismatch", "Quillane"));
        EXPECT_EQ(LookWith(PortSettingsDatabase::With("IsReversed", value)), "777") << value;
    }
}

TEST_F(PortSessionRead, ReportsANegativeLength) {
    BoxAnswers answers;
    answers.Expect(Critical("Invalid procedure call or argument", "Quillane"));
    EXPECT_EQ(LookWith(PortSettingsDatabase::With("DataLength", "-1")), "777");
}

TEST_F(PortSessionRead, FirstOfSeveralLengthsAndReversalsIsUsed) {
    Rows rows = PortSettingsDatabase::UsualRows();
    rows.emplace_back("DataLength", "3");
    rows.emplace_back("IsReversed", "1");
    EXPECT_EQ(LookWith(rows), "1250");
}

TEST_F(PortSessionRead, StoredSettingsTakeEffectWhenTheyAreLoadedAgain) {
    database.Store(PortSettingsDatabase::With("DataLength", "3"));
    EXPECT_EQ(Look(frames), "1250");
    database.Load(screen.PortSettingsRows);
    EXPECT_EQ(Look(frames), "250");
}

TEST_F(PortSessionRead, PendingEventsRunTwiceBeforeTheNewReadingIsShown) {
    std::vector<std::string> seen;
    QTimer pending;
    QObject::connect(&pending, &QTimer::timeout, [&] { seen.push_back(screen.TxtWeight.Text()); });
    pending.start(0);
    EXPECT_EQ(Look(frames), "1250");
    EXPECT_EQ(seen, (std::vector<std::string>{"777", "777"}));
    seen.clear();
    screen.Session.ReadLiveWeight();
    EXPECT_TRUE(seen.empty()) << "nothing received, no events";
}

TEST_F(PortSessionRead, ReadsTheSettingsAfterBothRunsOfPendingEvents) {
    int runs = 0;
    QTimer pending;
    QObject::connect(&pending, &QTimer::timeout, [&] {
        if (++runs == 2) {
            database.Store(PortSettingsDatabase::With("DataLength", "3"));
            database.Load(screen.PortSettingsRows);
        }
    });
    pending.start(0);
    EXPECT_EQ(Look(frames), "250");
    EXPECT_EQ(runs, 2);
}

TEST_F(PortSessionRead, EndsIfPendingEventsUnloadTheScreen) {
    screen.Show();
    QTimer::singleShot(0, [this] { screen.Unload(); });
    terminal.Write(frames);
    EXPECT_THROW(screen.Session.ReadLiveWeight(), ScreenGone);
    EXPECT_EQ(screen.TxtWeight.Text(), "777");
}

TEST_F(PortSessionRead, AnyNoiseIsTolerated) {
    std::mt19937 generator(20261121);
    std::uniform_int_distribution<int> any(0, 255);
    for (int round = 0; round < 300; ++round) {
        std::string noise(static_cast<std::size_t>(any(generator)) * 4, '\0');
        for (char& byte : noise)
            byte = static_cast<char>(any(generator));
        Look(noise);
    }
    EXPECT_EQ(Look(frames), "1250");
}

TEST_F(PortSessionRead, FullBufferGivesTheOldestReadingFirst) {
    std::string pile;
    for (int i = 0; i < 100; ++i)
        pile += "+001111 kg\r\n";
    for (int i = 0; i < 100; ++i)
        pile += "+002222 kg\r\n";
    terminal.Write(pile);
    ASSERT_TRUE(WaitFor([&] { return terminal.Unread() == 0; }));
    EXPECT_EQ(Look("+003333 kg\r\n"), "1111");
    EXPECT_EQ(Look("+004444 kg\r\n+004444 kg\r\n+004444 kg\r\n"), "4444");
}

TEST_F(PortSessionRead, LostLineIsReported) {
    terminal.HangUp();
    BoxAnswers answers;
    const auto box = Critical(Named() + " is closed: the line was disconnected. Check the cable.",
                              "Serial line");
    answers.Expect(box).Expect(box);
    screen.Session.ReadLiveWeight();
    screen.Session.ReadLiveWeight();
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.TxtWeight.Text(), "777");
}

TEST_F(PortSessionRead, TimerReadsTheLine) {
    screen.Session.OpenScalePort();
    screen.Show();
    terminal.Write(frames);
    EXPECT_TRUE(WaitFor([&] { return screen.TxtWeight.Text() == "1250"; }));
    terminal.Write("+000000 kg\r\n+000000 kg\r\n+000000 kg\r\n");
    EXPECT_TRUE(WaitFor([&] { return screen.TxtWeight.Text() == "0"; }));
    screen.Unload();
}

TEST_F(PortSessionRead, ClosedPortIsReportedOncePerTick) {
    screen.CM.SetPortOpen(false);
    screen.Timer.SetInterval(20);
    screen.Timer.SetEnabled(true);
    BoxAnswers answers;
    const auto box = Critical("Port 1 is closed: nothing can be read from it.", "Serial line");
    int ticksUnderTheBox = 0;
    for (int i = 0; i < 3; ++i)
        answers.Expect(box, BoxAnswer::Ok,
                       [&, before = i + 1] { ticksUnderTheBox += screen.ticks - before; });
    screen.Show();
    EXPECT_TRUE(WaitFor([&] {
        if (answers.Remaining() == 0)
            screen.Timer.SetEnabled(false);
        return !screen.Timer.Enabled();
    }));
    EXPECT_EQ(answers.Shown().size(), 3u);
    EXPECT_EQ(screen.ticks, 3);
    EXPECT_EQ(ticksUnderTheBox, 0);
    screen.Unload();
}

} // namespace
} // namespace Quillane
