#include "scale/WeighingScreen.h"

#include <QProcess>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::PortSettingsDatabase;
using Testing::WaitFor;

/// The screen and the simulated indicator, connected by a line, each as in real use.
class IndicatorLineTest : public testing::Test {
protected:
    IndicatorLineTest() {
        std::string folder = (std::filesystem::temp_directory_path() / "indicator-XXXXXX").string();
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        folder_ = folder;
        MSComm::SetDevices([this](int) { return Link(); });
        database.Load(screen.PortSettingsRows);
    }
    ~IndicatorLineTest() override {
        indicator.closeWriteChannel();
        indicator.terminate();
        EXPECT_TRUE(indicator.waitForFinished());
        MSComm::SetDevices({});
        std::filesystem::remove_all(folder_);
    }

    std::string Link() const { return (folder_ / "scale").string(); }

    void Start(const QStringList& options = {}) {
        indicator.start(QUILLANE_PYTHON,
                        QStringList{QUILLANE_INDICATOR, "--link", QString::fromStdString(Link()),
                                    "--baud", "19200"} +
                            options);
        ASSERT_TRUE(WaitFor([&] { return indicator.canReadLine(); }, std::chrono::seconds(20)));
        ASSERT_TRUE(indicator.readLine().startsWith("ready "));
        screen.Session.OpenScalePort();
        screen.Timer.SetInterval(50);
        screen.Show();
    }

    void Tell(const QByteArray& command) {
        indicator.write(command + '\n');
        ASSERT_TRUE(WaitFor([&] { return indicator.canReadLine(); }));
        ASSERT_EQ(indicator.readLine(), "ok " + command + '\n');
    }

    ::testing::AssertionResult Shows(const std::string& weight) {
        if (WaitFor([&] { return screen.TxtWeight.Text() == weight; }, std::chrono::seconds(20)))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "shows " << screen.TxtWeight.Text();
    }

    Testing::PortSettingsDatabase database;
    Testing::WeighingScreen screen;
    QProcess indicator;

private:
    std::filesystem::path folder_;
};

TEST_F(IndicatorLineTest, ShowsTheWeightOnTheScale) {
    Start();
    EXPECT_TRUE(Shows("12540"));
    Tell("weight 4320");
    EXPECT_TRUE(Shows("4320"));
    Tell("weight 0");
    EXPECT_TRUE(Shows("0"));
    screen.Unload();
}

TEST_F(IndicatorLineTest, ShowsATruckThatDrivesOnAndComesToRest) {
    Start({"--weight", "0"});
    EXPECT_TRUE(Shows("0"));
    Tell("drive 12540");
    EXPECT_TRUE(Shows("12540"));
    screen.Unload();
}

TEST_F(IndicatorLineTest, KeepsTheLastWeightWhileTheIndicatorIsSilent) {
    Start();
    EXPECT_TRUE(Shows("12540"));
    Tell("silence");
    Tell("weight 4320");
    const int ticks = screen.ticks;
    EXPECT_TRUE(WaitFor([&] { return screen.ticks > ticks + 3; }));
    EXPECT_EQ(screen.TxtWeight.Text(), "12540");
    Tell("talk");
    EXPECT_TRUE(Shows("4320"));
    screen.Unload();
}

TEST_F(IndicatorLineTest, ReadsDespiteNoiseAndCutFrames) {
    Start({"--scenario", "noise", "--seed", "1"});
    EXPECT_TRUE(Shows("12540"));
    Tell("cut on");
    screen.TxtWeight.SetText("");
    EXPECT_TRUE(Shows("12540"));
    screen.Unload();
}

TEST_F(IndicatorLineTest, ReportsADisconnectedCableAndReadsAgainWhenItIsConnected) {
    Start();
    EXPECT_TRUE(Shows("12540"));
    BoxAnswers answers;
    const std::string device = "Port 1 (" + Link() + ")";
    answers.Expect(
        Critical(device + " is closed: the line was disconnected. Check the cable.", "Serial line"),
        BoxAnswer::Ok, [this] { screen.Timer.SetEnabled(false); });
    indicator.write("hangup\n");
    EXPECT_TRUE(WaitFor([&] { return answers.Remaining() == 0; }, std::chrono::seconds(20)));
    answers.Expect(Critical(device + " cannot be opened: the device does not exist. Check that the "
                                     "indicator's adapter is plugged in.",
                            "Serial line"));
    screen.Session.OpenScalePort();
    ASSERT_TRUE(WaitFor([&] { return indicator.canReadLine(); }));
    EXPECT_EQ(indicator.readLine(), "ok hangup\n");
    Tell("connect");
    Tell("weight 4320");
    screen.Session.OpenScalePort();
    EXPECT_TRUE(Shows("4320"));
    screen.Unload();
}

TEST_F(IndicatorLineTest, ReadsReversedDigitsAsReceived) {
    Start({"--layout", "equals-reversed"});
    database.Store(PortSettingsDatabase::Settings{
        {"DataDirection", "Left"}, {"DataLength", "7"}, {"IsReversed", "1"}});
    database.Load(screen.PortSettingsRows);
    EXPECT_TRUE(Shows("0012540")) << "the zeros are kept";
    screen.Unload();
}

} // namespace
} // namespace Quillane
