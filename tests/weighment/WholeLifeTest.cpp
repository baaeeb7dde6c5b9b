// The whole life of a weighment on one screen, operated by keys: saved, found, opened, changed,
// saved again, printed, removed.

#include "weighment/OpeningFixture.h"

namespace Quillane {
namespace {

using namespace Testing;
using Rows = std::vector<Lines>;

const Box PrintBox{.text = "Do you want to print?",
                   .title = "Confirmation",
                   .icon = BoxIcon::Question,
                   .buttons = BoxButtons::YesNo,
                   .defaultButton = BoxAnswer::No};
const Box SaveBox = Question("Are you sure to save this Weighment?");
const Box RemoveBox = Question("Are you sure to remove this arrival?");

class WholeLife : public OpeningTest {
protected:
    /// Sends equal readings, like an indicator, and waits until the screen shows them.
    void Weigh(const std::string& weight) {
        const std::string frame = "+" + std::string(6 - weight.size(), '0') + weight + " kg\r\n";
        line.Write(frame + frame + frame);
        ASSERT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == weight; }))
            << screen->TxtWeight.Text();
    }
    ScreenDriver Keys() { return ScreenDriver(*screen); }

    /// Moves from the id to the driver, like an operator.
    void EnterByKeys() {
        ASSERT_EQ(screen->ActiveControlName(), "TxtArrivalId");
        Keys().Press(Qt::Key_Return).Press(Qt::Key_Return);
        Keys().Type("Wheat").Press(Qt::Key_Return).Press(Qt::Key_Return);
        Keys().Type("Chaudhry").Press(Qt::Key_Return);
        ASSERT_EQ(screen->ActiveControlName(), "CmdGrossWeight");
        Weigh("12540");
        Keys().Press(Qt::Key_Space);
        ASSERT_EQ(screen->ActiveControlName(), "CmdTareWeight");
        Weigh("4320");
        Keys().Press(Qt::Key_Space);
        ASSERT_EQ(screen->TxtNetWeight.Text(), "8220");
        ASSERT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
        Keys().Type("LEB-4217").Press(Qt::Key_Return).Type("B-7781").Press(Qt::Key_Return);
        Keys().Type("Rasool");
        screen->Grid.SetFocus();
        Keys().Type("Jute N").Press(Qt::Key_Right).Type("100").Press(Qt::Key_Right).Type("60");
        Keys().Press(Qt::Key_Return).Type("17");
        ASSERT_EQ(screen->ActiveControlName(), "TxtDeduction");
    }
    Rows SavedRow(int id) {
        return Body("BagsClassId, BagsTypeId, NoOfBags, VehicleNo, TareWeight, BagWeight, "
                    "OtherDeduction, NetWeight, DriverName, BiltyNo",
                    id);
    }
};

TEST_F(WholeLife, IsWeighedStoredOpenedAndRemoved) {
    EnterByKeys();
    {
        BoxAnswers boxes;
        boxes.Expect(SaveBox, BoxAnswer::Yes).Expect(PrintBox, BoxAnswer::No);
        Keys().Press(Qt::CTRL | Qt::Key_S);
    }
    EXPECT_EQ(SavedRow(1043), (Rows{{"1", "1", "60", "'LEB-4217'", "4320", "137", "17", "8203",
                                     "'Rasool'", "'B-7781'"}}));
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1043"), "'6010001'");

    // It is found by a part of the party's name: the newest of its arrivals is the first one.
    VisitModal search([](Screen& modal) {
        ScreenDriver(modal)
            .Press(Qt::Key_Return)
            .Type("chaudhry")
            .Press(Qt::Key_Return)
            .Press(Qt::Key_Return);
    });
    Keys().Press(Qt::CTRL | Qt::Key_O);
    ASSERT_EQ(screen->TxtArrivalId.Text(), "1043");
    EXPECT_EQ(screen->TxtNetWeight.Text(), "8203");
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "12540");

    // Another driver and a second line; the body is replaced.
    screen->TxtDriverName.SetFocus();
    Keys().Press(Qt::CTRL | Qt::Key_A).Type("Aslam");
    screen->Grid.SetFocus();
    Keys().Press(Qt::Key_Down).Type("Loose").Press(Qt::Key_Right).Type("40").Press(Qt::Key_Right);
    Keys().Type("40").Press(Qt::Key_Return);
    ASSERT_EQ(BagLines(), (Lines{"Jute New | 100 Kg | 60", "Loose | 40 Kg | 40"}));
    const std::string others = "SELECT count(*) FROM ArrivalsBody WHERE ArrivalId <> 1043";
    const std::string othersBefore = StoredCell(others);
    {
        BoxAnswers boxes;
        boxes.Expect(SaveBox, BoxAnswer::Yes).Expect(PrintBox, BoxAnswer::No);
        Keys().Press(Qt::CTRL | Qt::Key_S);
    }
    EXPECT_EQ(SavedRow(1043), (Rows{{"1", "1", "60", "'LEB-4217'", "4320", "82.2",
                                     "10.200000000000001", "4921.8", "'Aslam'", "'B-7781'"},
                                    {"4", "3", "40", "''", "0", "82.2", "6.800000000000001",
                                     "3281.2", "'Aslam'", "'B-7781'"}}));
    EXPECT_EQ(StoredCell(others), othersBefore);

    // It is found by its number, and printed again from the stored rows.
    screen->TxtArrivalId.SetFocus();
    Keys().Type("1043").Press(Qt::Key_Return);
    ASSERT_TRUE(screen->IsOpened);
    EXPECT_EQ(screen->BagRows.RowCount(), 2);
    VisitModal preview([](Screen& modal) {
        const Report& slip = *dynamic_cast<RptReportViewer&>(modal).Report;
        EXPECT_EQ(slip.Database.Data()->RecordCount(), 2);
        EXPECT_EQ(std::get<double>(slip.ParameterFields(7).Value()), 8203.0);
        ScreenDriver(modal).Press(Qt::Key_Escape);
    });
    Keys().Click(screen->BtnPrint);
    EXPECT_EQ(On(), "Open Print Remove Clear ") << "printing changes nothing";

    {
        BoxAnswers boxes;
        boxes.Expect(RemoveBox, BoxAnswer::Yes);
        Keys().Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
    }
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1043"), "0");
    EXPECT_EQ(SavedRow(1043), Rows{});
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043") << "the number is free again";
    EXPECT_EQ(StoredCell(others), othersBefore);
}

// Nothing of one weighment affects the next one.
TEST_F(WholeLife, RepeatedLeavesTheSameRows) {
    Rows first;
    for (const bool again : {false, true}) {
        FillIn();
        Save();
        Rows saved = SavedRow(1043);
        if (again) {
            EXPECT_EQ(saved, first);
        }
        first = saved;
        Open(1043);
        Keys().Press(Qt::Key_Tab);
        Save();
        EXPECT_EQ(SavedRow(1043), first) << "saved again unchanged";
        Open(1043);
        BoxAnswers boxes;
        boxes.Expect(RemoveBox, BoxAnswer::Yes);
        Keys().Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
        EXPECT_EQ(SavedRow(1043), Rows{});
    }
}

TEST_F(WholeLife, OfEverySampleArrivalIsTheSameAfterASecondOpening) {
    for (std::int16_t id = 1031; id <= 1042; ++id) {
        if (id == 1035 || id == 1037)
            continue; // other rows refer to these two
        Open(id);
        const Lines first = Screenful();
        const auto net = screen->TxtNetWeight.Text();
        Keys().Press(Qt::Key_Tab);
        Save();
        EXPECT_EQ(StoredCell("SELECT CAST(round(sum(NetWeight), 0) AS INTEGER) FROM ArrivalsBody "
                             "WHERE ArrivalId = " +
                             std::to_string(id)),
                  net);
        Open(id);
        EXPECT_EQ(Screenful(), first) << id;
        screen->NewWeighment();
    }
}

} // namespace
} // namespace Quillane
