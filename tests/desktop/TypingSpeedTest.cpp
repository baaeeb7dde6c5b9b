// The main job typed without a pause, at the speed of any operator. Each key reaches the control
// that it would have reached if the operator had waited for each box, search and slip.
//
// Each run is one load for each pause between the keys. For a campaign of fifty loads each:
//     tests/support/with-x.sh --wm DesktopTest --gtest_filter='*AtAnySpeed*' --gtest_repeat=50
// The last line for each pause contains its counts.

#include "Station.h"
#include "platform/forms/core/Text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <map>

namespace Quillane::Testing {
namespace {

/// Counts the keys that arrive in any window of the program, without the modifier keys.
class KeyCounter : public QObject {
public:
    KeyCounter() { QCoreApplication::instance()->installEventFilter(this); }
    int Arrived() const { return static_cast<int>(arrived_.size()); }
    std::string Names() const { return FromQt(arrived_.join(' ')); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && watched->isWindowType()) {
            const auto& pressed = static_cast<const QKeyEvent&>(*event);
            const bool modifier =
                pressed.key() == Qt::Key_Shift || pressed.key() == Qt::Key_Control;
            if (!modifier)
                arrived_ +=
                    QKeySequence(pressed.keyCombination()).toString() + '@' + PlaceOf(watched);
        }
        return false;
    }

private:
    /// The control that has the focus when a key arrives, or the window's title.
    static QString PlaceOf(const QObject* window) {
        for (const QWidget* shown : QApplication::topLevelWidgets())
            if (shown->windowHandle() == window) {
                const auto* screen = dynamic_cast<const Screen*>(shown);
                return screen ? ToQt(screen->ActiveControlName()) : shown->windowTitle();
            }
        return {};
    }

    QStringList arrived_;
};

/// The counts of all runs with one pause.
struct Campaign {
    int loads = 0;
    int loadsThatDiffer = 0;
    int keysSent = 0;
    int keysLost = 0;
};

class AtAnySpeed : public Station, public testing::WithParamInterface<int> {
protected:
    void SetUp() override {
        Station::SetUp();
        keys.emplace();
    }
    void TearDown() override {
        static std::map<int, Campaign> campaigns;
        Campaign& campaign = campaigns[GetParam()];
        campaign.loads += 1;
        campaign.loadsThatDiffer += HasFailure() ? 1 : 0;
        campaign.keysSent += sent;
        campaign.keysLost += sent - keys->Arrived();
        std::printf("pause %d ms: %d loads, %d differ, %d keys sent, %d lost\n", GetParam(),
                    campaign.loads, campaign.loadsThatDiffer, campaign.keysSent, campaign.keysLost);
        if (HasFailure())
            std::printf("arrived: %s\n", keys->Names().c_str());
        keys.reset();
        Station::TearDown();
    }

    /// Presses keys without looking at the screen, with the pause of the case after each one.
    void TypeOn(Operator& by, const QStringList& typed) {
        sent += static_cast<int>(typed.size());
        by.WithoutLooking(QStringList{"key", "--delay", QString::number(GetParam())} + typed);
    }

    /// A newly opened screen on which the commodity is typed.
    static bool NextScreenIsBegun() {
        const auto begun = [](const QWidget* window) {
            const auto* screen = dynamic_cast<const FrmWeighment*>(window);
            return screen && screen->isVisible() && screen->TxtArrivalId.Text() == "1044" &&
                   screen->CboCommodity.Text() == "Wheat";
        };
        return std::ranges::any_of(QApplication::topLevelWidgets(), begun);
    }

    std::vector<std::string> BoxTexts() const {
        std::vector<std::string> texts;
        for (const BoxWatch::Seen& box : boxes->All())
            texts.push_back(box.text);
        return texts;
    }

    std::optional<KeyCounter> keys;
    int sent = 0;
};

const QStringList SignedIn{"N", "a", "d", "i", "a", "Return", "g", "r", "a", "i", "n", "Return"};
const QStringList UpToTheGrossWeight{"Return", "Return", "Return", "w", "h", "Return",
                                     "Return", "c",      "h",      "a", "u", "Return"};
const QStringList UpToTheDriver{"space", "k", "5", "Return", "b", "1", "Return", "z", "a"};
const QStringList BackToTheDeduction{"shift+Tab", "shift+Tab", "shift+Tab", "1", "7"};
const QStringList BagLines{"shift+Tab", "j", "u", "t",     "e", "space", "n",    "Right",
                           "1",         "0", "0", "Right", "6", "0",     "Down", "Left",
                           "Left",      "j", "u", "t",     "e", "space", "o",    "Right",
                           "1",         "0", "0", "Right", "4", "0"};
const QStringList SavedAndPrinted{"ctrl+s", "y", "y", "Escape"};
const QStringList ChangedAndSavedAgain{"shift+Tab", "1", "0", "4", "3", "Return",
                                       // on to the driver
                                       "Return", "Return", "Return", "Return", "Return", "Return",
                                       "Return", "Return", "End", "h", "ctrl+s", "y", "n"};
const QStringList FoundPrintedAndCleared{"ctrl+o", "1",      "0",  "4",      "3",     "Return",
                                         "Return", "Return", "F9", "Escape", "ctrl+l"};
const QStringList AnotherRemoved{"shift+Tab",         "1", "0", "4", "0", "Return",
                                 "ctrl+shift+Delete", "y"};
const QStringList ClearedAtTheSecondQuestion{"Return", "w", "h", "ctrl+l", "n", "ctrl+l", "y"};
// A No would leave the line closed, which boxes would report.
const QStringList ClosedWithItsQuestion{"Return", "w", "h", "ctrl+q", "y"};
const QStringList ScreenOpenedAgain{"Return", "Return", "Return", "w", "h"};

TEST_P(AtAnySpeed, EveryKeyOfTheMainJobReachesItsControl) {
    Work([this](Operator& by) {
        by.UntilInFront("Sign in");
        by.UntilKeyboardIsReady();
        TypeOn(by, SignedIn + UpToTheGrossWeight);
        by.UntilInFront("Weighment for Veltrane");
        by.UntilActive("CmdGrossWeight");
        by.UntilReading(12540);
        TypeOn(by, {"space"});
        by.UntilActive("CmdTareWeight");
        Indicate(by, "weight 4320");
        by.UntilReading(4320);
        TypeOn(by, UpToTheDriver + BackToTheDeduction + BagLines + SavedAndPrinted +
                       ChangedAndSavedAgain + FoundPrintedAndCleared + AnotherRemoved +
                       ClearedAtTheSecondQuestion + ClosedWithItsQuestion + ScreenOpenedAgain);
        by.Until("every key", [this] { return keys->Arrived() >= sent; });
        by.Until("the next load's commodity", NextScreenIsBegun);
        by.UntilActive("CboCommodity");
        EXPECT_EQ(
            by.See([this] { return BoxTexts(); }),
            (std::vector<std::string>{
                "Are you sure to save this Weighment?", "Do you want to print?",
                "Are you sure to save this Weighment?", "Do you want to print?",
                "Are you sure to remove this arrival?", "Are you sure to clear the entries?",
                "Are you sure to clear the entries?", "Are you sure to close without save?"}));
    });
    EXPECT_EQ(Stored("Select BagsClassId, BagsTypeId, NoOfBags, TareWeight, BagWeight,"
                     " OtherDeduction, NetWeight, DriverName, BiltyNo, VehicleNoText"
                     " From ArrivalsBody Where ArrivalId = 1043 Order By NoOfBags Desc"),
              (std::vector<Row>{{"1", "1", "60", "4320", "82.200000000000003", "10.200000000000001",
                                 "4921.8000000000002", "zah", "b1", "k5"},
                                {"2", "1", "40", "0", "82.200000000000003", "6.8000000000000007",
                                 "3281.1999999999998", "zah", "b1", "k5"}}));
    EXPECT_EQ(Stored("Select Count(*) From Arrivals Where ArrivalID In (1040, 1043)"),
              (std::vector<Row>{{"1"}}));
}

INSTANTIATE_TEST_SUITE_P(MillisecondsBetweenKeys, AtAnySpeed,
                         testing::Values(0, 5, 20, 40, 100, 200),
                         testing::PrintToStringParamName());

} // namespace
} // namespace Quillane::Testing
