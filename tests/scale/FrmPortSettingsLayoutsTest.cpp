// The setting screen and the simulated indicator, connected by a line: each layout of the tool with
// the settings of the guide to indicators.

#include "platform/forms/core/Text.h"
#include "scale/IndicatorGuide.h"
#include "scale/SettingBench.h"
#include "station/SampleDatabase.h"

#include <QProcess>

namespace Quillane {
namespace {

using Testing::Advice;
using Testing::AdviceOfTheGuide;
using Testing::Notation;
using Testing::ScreenDriver;
using Testing::SettingBench;
using Testing::WaitFor;

constexpr auto patience = std::chrono::seconds(60);

struct FrmPortSettingsLayouts : SettingBench {
    FrmPortSettingsLayouts() {
        MSComm::SetDevices([this](int) { return Link(); });
        indicator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        indicator.start(QUILLANE_PYTHON,
                        {QUILLANE_INDICATOR, "--link", ToQt(Link()), "--weight", "12540"});
        EXPECT_TRUE(WaitFor([&] { return indicator.canReadLine(); }, patience));
        EXPECT_TRUE(indicator.readLine().startsWith("ready "));
    }
    ~FrmPortSettingsLayouts() override {
        indicator.write("quit\n");
        EXPECT_TRUE(indicator.waitForFinished());
    }

    std::string Link() const { return folder.File("scale"); }

    void Tell(const std::string& command) {
        const QByteArray line = QByteArray::fromStdString(command) + '\n';
        indicator.write(line);
        ASSERT_TRUE(WaitFor([&] { return indicator.canReadLine(); }, patience));
        ASSERT_EQ(indicator.readLine(), "ok " + line);
    }

    FreshFolder folder;
    QProcess indicator;
};

std::string Latin1(const TextBox& box) {
    return ToQt(box.Text()).toLatin1().toStdString();
}

/// Presses the first "Get Weight" until the raw text contains a whole frame.
void ExpectRawText(FrmPortSettings& bench, const Advice& advice) {
    ScreenDriver(bench).Click(bench.CmdOpenPort);
    EXPECT_TRUE(WaitFor(
        [&] {
            ScreenDriver(bench).Click(bench.CmdGetWeight);
            return Notation(Latin1(bench.TxtRawWeight)).find(advice.example) != std::string::npos;
        },
        patience))
        << bench.TxtRawWeight.Text();
}

/// Starts the test with the guide's settings (with the usual ones if none reads correctly) and
/// waits until it shows the result in the guide.
void ExpectTryOut(FrmPortSettings& bench, const Advice& advice) {
    bench.CboDirection.SetText(advice.usable ? advice.direction : "Right");
    ScreenDriver(bench).Click(bench.TxtDataFrom).Type(advice.usable ? advice.length : "6");
    bench.ChkIsReversed.SetValue(advice.reversed == "1" ? 1 : 0);
    ScreenDriver(bench).Click(bench.CmdModifiedWeight);
    EXPECT_TRUE(WaitFor(
        [&] {
            return bench.TxtNotModified.Text() == advice.benchNotModified &&
                   bench.TxtModifiedWeight.Text() == advice.benchModified;
        },
        patience))
        << bench.TxtNotModified.Text() << " and " << bench.TxtModifiedWeight.Text();
}

TEST_F(FrmPortSettingsLayouts, ShowTheResultsInTheGuide) {
    for (const auto& [layout, advice] : AdviceOfTheGuide()) {
        SCOPED_TRACE(layout);
        Tell("layout " + layout);
        FrmPortSettings bench;
        bench.Show();
        ExpectRawText(bench, advice);
        ExpectTryOut(bench, advice);
        bench.Unload();
    }
}

} // namespace
} // namespace Quillane
