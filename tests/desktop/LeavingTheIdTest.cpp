// Leaving the box of the id while it holds the number of a stored load: the load is opened, the
// focus moves to the date, and the control that the operator wanted to reach is not reached.

#include "StoredLoad.h"
#include "platform/runtime/Numbers.h"

namespace Quillane::Testing {
namespace {

struct Way {
    const char* name;
    void (*leave)(Operator& by, FrmWeighment& screen);
};

class LeavingTheId : public StoredLoad, public testing::WithParamInterface<Way> {
protected:
    void ExpectLoadWins(int tare) {
        WorkOnWeighment([&](Operator& by, FrmWeighment& screen) {
            Indicate(by, "weight 7777");
            by.UntilReading(7777);
            by.UntilActive("TxtArrivalId");
            by.Type("1031");
            GetParam().leave(by, screen);
            UntilStored(by, screen, 1031);
            by.See([&] {
                EXPECT_EQ(Val(screen.TxtTareWeight.Text()), tare);
                EXPECT_EQ(screen.TxtInitialGrossWeight.Text(), std::to_string(8220 + tare));
                EXPECT_EQ(screen.TxtVehicleNo.Text(), "LEA-4521");
                EXPECT_EQ(screen.CmdTareWeight.Enabled(), tare == 0);
            });
        });
        EXPECT_TRUE(boxes->All().empty());
    }
};

TEST_P(LeavingTheId, OfAWeighedLoadOpensItAndEndsOnTheDate) {
    ExpectLoadWins(4320);
}

// The weight buttons stay enabled for such a load, but this press does not take the reading.
TEST_P(LeavingTheId, OfALoadWithoutATareOpensItAndEndsOnTheDate) {
    RunBeside("Update ArrivalsBody Set TareWeight = 0 Where ArrivalId = 1031");
    ExpectLoadWins(0);
}

INSTANTIATE_TEST_SUITE_P(
    Way, LeavingTheId,
    testing::Values(Way{"ByTab", [](Operator& by, FrmWeighment&) { by.Press({"Tab"}); }},
                    Way{"ByEnter", [](Operator& by, FrmWeighment&) { by.Press({"Return"}); }},
                    Way{"ByShiftTab", [](Operator& by, FrmWeighment&) { by.Press({"shift+Tab"}); }},
                    Way{"ByAClickIntoABox",
                        [](Operator& by, FrmWeighment& screen) { by.Click(screen.TxtDriverName); }},
                    Way{"ByAClickIntoAWeight",
                        [](Operator& by, FrmWeighment& screen) { by.Click(screen.TxtTareWeight); }},
                    Way{"ByAClickIntoTheGrid",
                        [](Operator& by, FrmWeighment& screen) { by.Click(screen.Grid); }},
                    Way{"ByAClickOnGrossWeight",
                        [](Operator& by, FrmWeighment& screen) {
                            by.Click(screen.CmdGrossWeight);
                        }},
                    Way{"ByAClickOnTareWeight",
                        [](Operator& by, FrmWeighment& screen) { by.Click(screen.CmdTareWeight); }},
                    Way{"ByAClickOnSave",
                        [](Operator& by, FrmWeighment& screen) { by.Click(screen.BtnSave); }}),
    [](const auto& way) { return std::string(way.param.name); });

class LeavingAFreeId : public StoredLoad {};

TEST_F(LeavingAFreeId, KeepsItForTheNewLoad) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilActive("TxtArrivalId");
        by.Type("2000");
        by.Press({"Return"});
        by.UntilActive("DtpArrivalDate");
        by.See([&] {
            EXPECT_EQ(screen.TxtArrivalId.Text(), "2000");
            EXPECT_EQ(screen.ArrivalNo, 2000);
            EXPECT_FALSE(screen.IsOpened);
        });
    });
}

} // namespace
} // namespace Quillane::Testing
