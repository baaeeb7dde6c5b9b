// A cell is still being edited when a save is requested: the shown text is stored. By keys and by
// the mouse, on new lines and on old ones.

#include "weighment/WeighmentFixture.h"

namespace Quillane::Testing {
namespace {

using Rows = std::vector<Lines>;

/// How the operator requests the save.
struct Road {
    const char* name;
    std::function<void(FrmWeighment&)> take;
    bool asks = true; ///< the shortcut asks before it saves

    friend void PrintTo(const Road& road, std::ostream* out) { *out << road.name; }
};

const Road Roads[] = {
    {"CtrlS", [](FrmWeighment& screen) { ScreenDriver(screen).Press(Qt::CTRL | Qt::Key_S); }},
    {"Click", [](FrmWeighment& screen) { ScreenDriver(screen).Click(screen.BtnSave); }, false},
    {"EnterUpToTheButton",
     [](FrmWeighment& screen) {
         ScreenDriver driver(screen);
         for (int presses = 0; screen.ActiveControl() != &screen.BtnSave && presses < 20; ++presses)
             driver.Press(Qt::Key_Return);
         driver.Press(Qt::Key_Return);
     },
     false},
};

class SaveWhileEditing : public WeighmentScreenTest, public testing::WithParamInterface<Road> {
protected:
    void SetUp() override {
        WeighmentScreenTest::SetUp();
        ASSERT_TRUE(WaitFor([this] { return screen->isActiveWindow(); }));
        FillIn();
        screen->Grid.SetFocus();
    }

    void Press(Qt::Key key) { ScreenDriver(*screen).Press(key); }
    void Type(std::string_view text) { ScreenDriver(*screen).Type(text); }

    void Save() {
        BoxAnswers boxes;
        if (GetParam().asks)
            boxes.Expect(Question("Are you sure to save this Weighment?"), BoxAnswer::Yes);
        boxes.Expect({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                      BoxAnswer::No},
                     BoxAnswer::No);
        GetParam().take(*screen);
    }

    Rows SavedLines() {
        return Stored("SELECT BagsClassId, BagsTypeId, NoOfBags FROM ArrivalsBody WHERE ArrivalId "
                      "= 1043 ORDER BY LineId");
    }
};

TEST_P(SaveWhileEditing, StoresTheQuantityOfAnOldLine) {
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Type("75");
    ASSERT_TRUE(screen->Grid.IsEditing());
    ASSERT_EQ(screen->BagRows.Get(0, 2), "60");
    Save();
    EXPECT_EQ(SavedLines(), (Rows{{"1", "1", "75"}, {"3", "2", "40"}}));
}

TEST_P(SaveWhileEditing, StoresTheQuantityOfAnOldLineEditedWithTheCaret) {
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Press(Qt::Key_F2);
    Press(Qt::Key_End);
    Type("5");
    ASSERT_TRUE(screen->Grid.IsEditing());
    Save();
    EXPECT_EQ(SavedLines(), (Rows{{"1", "1", "60"}, {"3", "2", "405"}}));
}

TEST_P(SaveWhileEditing, StoresTheNameCompletedFromTheList) {
    Type("loo");
    ASSERT_TRUE(screen->Grid.IsEditing());
    Save();
    EXPECT_EQ(SavedLines(), (Rows{{"4", "1", "60"}, {"3", "2", "40"}}));
}

TEST_P(SaveWhileEditing, StoresTheQuantityOfANewLine) {
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Type("jute o");
    Press(Qt::Key_Right);
    Type("gov");
    Press(Qt::Key_Right);
    Type("7");
    ASSERT_TRUE(screen->Grid.IsEditing());
    ASSERT_EQ(screen->BagRows.RowCount(), 3);
    Save();
    EXPECT_EQ(SavedLines(), (Rows{{"1", "1", "60"}, {"3", "2", "40"}, {"2", "4", "7"}}));
}

TEST_P(SaveWhileEditing, StoresALineWhoseFirstCellIsStillBeingTyped) {
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Type("jute o");
    ASSERT_TRUE(screen->Grid.IsEditing());
    ASSERT_EQ(screen->BagRows.RowCount(), 2);
    Save();
    EXPECT_EQ(SavedLines(), (Rows{{"1", "1", "60"}, {"3", "2", "40"}, {"2", "0", "0"}}));
}

TEST_P(SaveWhileEditing, DividesByTheShownBags) {
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Type("160");
    Save();
    EXPECT_EQ(StoredCell("SELECT DISTINCT BagWeight FROM ArrivalsBody WHERE ArrivalId = 1043"),
              "41.1");
}

// The first bag line of a weighment decides between a refusal and a save.
TEST_P(SaveWhileEditing, TakesTheOnlyLineWhileItIsBeingTyped) {
    SetBagLines({});
    Type("loo");
    Press(Qt::Key_Right);
    Type("mill");
    Press(Qt::Key_Right);
    Type("100");
    ASSERT_TRUE(screen->Grid.IsEditing());
    Save();
    EXPECT_EQ(SavedLines(), (Rows{{"4", "5", "100"}}));
}

INSTANTIATE_TEST_SUITE_P(By, SaveWhileEditing, testing::ValuesIn(Roads),
                         [](const auto& road) { return std::string(road.param.name); });

/// The same in other controls.
class SaveWhileTyping : public SaveWhileEditing {};

TEST_P(SaveWhileTyping, StoresTheShownVehicle) {
    screen->TxtVehicleNo.SetFocus();
    screen->TxtVehicleNo.SelectAll();
    Type("KHW-51");
    Save();
    EXPECT_EQ(Stored("SELECT VehicleNo, VehicleNoText FROM ArrivalsBody WHERE ArrivalId = 1043 "
                     "ORDER BY LineId"),
              (Rows{{"'KHW-51'", "'KHW-51'"}, {"''", "'KHW-51'"}}));
}

TEST_P(SaveWhileTyping, StoresTheSellerThatTheTypedNameIsCompletedTo) {
    screen->CboSeller.SetFocus();
    Press(Qt::Key_Home);
    ScreenDriver(*screen).Press(Qt::SHIFT | Qt::Key_End);
    Type("zo");
    const std::string seen = screen->CboSeller.Text();
    Save();
    EXPECT_EQ(seen, "Zoë & Rémy Organic Farms-Multan");
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1043"), "'6010026'");
}

/// A shown name that is not in the list is no party: nothing is stored.
TEST_F(WeighmentScreenTest, ASaveWithAnUnlistedSellerStoresNothing) {
    ASSERT_TRUE(WaitFor([this] { return screen->isActiveWindow(); }));
    FillIn();
    screen->CboSeller.SetFocus();
    ScreenDriver(*screen).Press(Qt::Key_Home).Press(Qt::SHIFT | Qt::Key_End).Type("qq");
    ASSERT_EQ(screen->CboSeller.Text(), "qq");
    BoxAnswers boxes;
    boxes.Expect(Question("Are you sure to save this Weighment?"), BoxAnswer::Yes);
    boxes.Expect(Critical("Invalid use of Null", "Quillane"));
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(StoredCell("SELECT max(ArrivalID) FROM Arrivals"), "1042");
    EXPECT_EQ(screen->CboSeller.Text(), "qq");
    EXPECT_TRUE(screen->BtnSave.Enabled());
}

TEST_P(SaveWhileTyping, StoresTheShownDate) {
    screen->DtpArrivalDate.SetFocus();
    Type("19");
    Save();
    EXPECT_EQ(StoredCell("SELECT ArrivalDate FROM Arrivals WHERE ArrivalID = 1043"),
              "'2026-11-19T00:00:00'");
}

INSTANTIATE_TEST_SUITE_P(By, SaveWhileTyping, testing::ValuesIn(Roads),
                         [](const auto& road) { return std::string(road.param.name); });

} // namespace
} // namespace Quillane::Testing
