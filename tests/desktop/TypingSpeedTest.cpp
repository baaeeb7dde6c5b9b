// The main job typed in one go, at the pace of any hand: each key goes where it would have gone had
// the operator looked first, through every box, search and slip on the way.

#include "Station.h"

#include <QApplication>

#include <algorithm>

namespace Quillane::Testing {
namespace {

class AtAnySpeed : public Station, public testing::WithParamInterface<int> {
protected:
    /// Presses keys without a look in between, the pause of the case after each.
    static void TypeOn(Operator& by, const QStringList& keys) {
        by.WithoutLooking(QStringList{"key", "--delay", QString::number(GetParam())} + keys);
    }

    /// A screen newly opened, the commodity typed on it.
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
};

const QStringList SignedIn{"N", "a", "d", "i", "a", "Return", "g", "r", "a", "i", "n", "Return"};
const QStringList UpToTheGrossWeight{"Return", "Return", "Return", "w", "h", "Return",
                                     "Return", "c",      "h",      "a", "u", "Return"};
const QStringList UpToTheSlip{"space", "k", "5", "Return", "b", "1", "Return", "z", "a",
                              // back to the deduction, and to the bags
                              "shift+Tab", "shift+Tab", "shift+Tab", "1", "7", "shift+Tab", "j",
                              "u", "t", "e", "space", "n", "Right", "1", "0", "0", "Right", "6",
                              "0",
                              // saved, printed
                              "ctrl+s", "y", "y", "Escape"};
const QStringList ChangedAndSavedAgain{"shift+Tab", "1", "0", "4", "3", "Return",
                                       // on to the driver
                                       "Return", "Return", "Return", "Return", "Return", "Return",
                                       "Return", "Return", "End", "h", "ctrl+s", "y", "n"};
const QStringList FoundAndPrinted{"ctrl+o", "1",      "0",      "4",     "3",
                                  "Return", "Return", "Return", "ctrl+l"};
const QStringList AnotherRemoved{"shift+Tab",         "1", "0", "4", "0", "Return",
                                 "ctrl+shift+Delete", "y"};
const QStringList ScreenOpenedAgain{"ctrl+q", "Return", "Return", "Return", "w", "h"};

TEST_P(AtAnySpeed, EveryKeyOfTheMainJobGoesWhereItBelongs) {
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
        TypeOn(by, UpToTheSlip + ChangedAndSavedAgain + FoundAndPrinted + AnotherRemoved +
                       ScreenOpenedAgain);
        by.Until("the next load's commodity", NextScreenIsBegun);
        by.UntilActive("CboCommodity");
        EXPECT_EQ(by.See([this] { return BoxTexts(); }),
                  (std::vector<std::string>{
                      "Are you sure to save this Weighment?", "Do you want to print?",
                      "Are you sure to save this Weighment?", "Do you want to print?",
                      "Are you sure to remove this arrival?"}));
    });
    EXPECT_EQ(Stored("Select BagsClassId, BagsTypeId, NoOfBags, TareWeight, BagWeight,"
                     " OtherDeduction, NetWeight, DriverName, BiltyNo, VehicleNoText"
                     " From ArrivalsBody Where ArrivalId = 1043"),
              (std::vector<Row>{{"1", "1", "60", "4320", "137", "17", "8203", "zah", "b1", "k5"}}));
    EXPECT_EQ(Stored("Select Count(*) From Arrivals Where ArrivalID In (1040, 1043)"),
              (std::vector<Row>{{"1"}}));
}

INSTANTIATE_TEST_SUITE_P(MillisecondsBetweenKeys, AtAnySpeed,
                         testing::Values(0, 5, 20, 40, 100, 200),
                         testing::PrintToStringParamName());

} // namespace
} // namespace Quillane::Testing
