// Stored rows that cannot be shown: each is reported in a box, and nothing in the tables changes.

#include "weighment/OpeningFixture.h"

#include <QTableView>

namespace Quillane {
namespace {

using namespace Testing;
using testing::ValuesIn;
using testing::WithParamInterface;

struct BadRow {
    const char* table;     ///< loosened, so that it accepts the invalid value
    const char* statement; ///< stores the value
    const char* text;
    int texts; ///< the number of the row's boxes that were filled before
    bool neverInATypedColumn = false;

    friend void PrintTo(const BadRow& bad, std::ostream* out) { *out << bad.statement; }
};

// 1040 has two rows, of 45 and 71 bags. After the six boxes of the first row and their nets, those
// of the second row are filled.
const BadRow BadRows[] = {
    {"Arrivals", "UPDATE Arrivals SET ArrivalDate = Null WHERE ArrivalID = 1040",
     "Invalid use of Null", 1},
    {"Arrivals", "UPDATE Arrivals SET ArrivalDate = 'yesterday' WHERE ArrivalID = 1040",
     "Type mismatch", 1, true},
    {"ChartOfAccounts", "DELETE FROM ChartOfAccounts WHERE AccountNo = '6010004'",
     "Invalid use of Null", 1},
    {"ChartOfAccounts", "UPDATE ChartOfAccounts SET AccountName = Null WHERE AccountNo = '6010004'",
     "Invalid use of Null", 1},
    {"Commodities", "UPDATE Commodities SET CommodityName = Null WHERE CommodityId = 1",
     "Invalid use of Null", 1},
    {"Commodities", "DELETE FROM Commodities WHERE CommodityId = 1", "Invalid use of Null", 1},
    {"BagsClasses", "UPDATE BagsClasses SET BagsClass = Null WHERE BagsClassId = 3",
     "Invalid use of Null", 7},
    {"BagsTypes", "UPDATE BagsTypes SET BagsType = Null WHERE BagsTypeId = 3",
     "Invalid use of Null", 7},
    {"ArrivalsBody", "UPDATE ArrivalsBody SET NoOfBags = Null WHERE NoOfBags = 71",
     "Invalid use of Null", 7},
    {"ArrivalsBody", "UPDATE ArrivalsBody SET NoOfBags = 'many' WHERE NoOfBags = 71",
     "Type mismatch", 7, true},
    {"ArrivalsBody", "UPDATE ArrivalsBody SET BagWeight = Null WHERE NoOfBags = 71",
     "Invalid use of Null", 7},
    {"ArrivalsBody", "UPDATE ArrivalsBody SET BagWeight = 1e308 WHERE NoOfBags = 71", "Overflow",
     7},
    {"ArrivalsBody", "UPDATE ArrivalsBody SET TareWeight = Null WHERE NoOfBags = 71",
     "Invalid use of Null", 8},
    {"ArrivalsBody", "UPDATE ArrivalsBody SET OtherDeduction = Null WHERE NoOfBags = 71",
     "Invalid use of Null", 9},
};

class UnreadableRows : public OpeningTest {
protected:
    /// The writes of texts, beginning with the id, without the net and the mounds.
    static Lines Filled(const Lines& trace) {
        Lines filled;
        for (auto each = std::find(trace.begin(), trace.end(), "TxtArrivalId = '1040'");
             each != trace.end(); ++each)
            if (each->starts_with("Txt") && !each->starts_with("TxtNetWeight") &&
                !each->starts_with("TxtMoundKgs"))
                filled.push_back(*each);
        return filled;
    }

    /// The bag lines that the grid shows, without its empty last one.
    Lines SeenLines() {
        const QAbstractItemModel& model = *dynamic_cast<QTableView&>(screen->Grid.Widget()).model();
        const auto cell = [&](int row, int column) {
            return model.index(row, column).data().toString().toStdString();
        };
        Lines lines;
        for (int row = 0; row < model.rowCount() - 1; ++row)
            lines.push_back(cell(row, 0) + " | " + cell(row, 1) + " | " + cell(row, 2));
        return lines;
    }
};

class EachUnreadableRow : public UnreadableRows, public WithParamInterface<BadRow> {};

TEST_P(EachUnreadableRow, IsReportedAndEndsTheLoadAtThatRow) {
    const BadRow& bad = GetParam();
    if (bad.neverInATypedColumn)
        SKIP_ON_SQL_SERVER("no column of this type takes such a value");
    const Lines all{"TxtArrivalId = '1040'",     "TxtBuiltyNo = '601'",
                    "TxtDriverName = 'Tanveer'", "TxtVehicleNo = 'LES-1090'",
                    "TxtGrossWeight = '2844'",   "TxtTareWeight = '3995'",
                    "TxtDeduction = '5'",        "TxtGrossWeight = '7330'",
                    "TxtTareWeight = '3995'",    "TxtDeduction = '14'"};
    database.Loosen(bad.table);
    RunBeside(bad.statement);
    const auto before = StoredTable(bad.table);
    screen->TxtArrivalId.SetFocus();
    screen->TxtArrivalId.SetText("1040");
    const std::string on = On();
    Trace trace(*screen, line);
    screen->DtpArrivalDate.SetFocus();
    const Lines done = trace.Take();
    EXPECT_EQ(Filled(done), Lines(all.begin(), all.begin() + bad.texts));
    ASSERT_GE(done.size(), 3U);
    EXPECT_EQ(Lines(done.end() - 3, done.end()),
              (Lines{"Box \"Quillane\" [critical, OK] " + std::string(bad.text),
                     "LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"}));
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->ArrivalNo, 1040);
    EXPECT_EQ(On(), on);
    EXPECT_TRUE(screen->TxtArrivalId.Enabled());
    EXPECT_EQ(StoredTable(bad.table), before);
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, EachUnreadableRow, ValuesIn(BadRows));

TEST_F(UnreadableRows, OpenAfterTheyAreCorrected) {
    database.Loosen("ArrivalsBody");
    RunBeside("UPDATE ArrivalsBody SET TareWeight = Null WHERE NoOfBags = 71");
    {
        BoxAnswers boxes;
        boxes.Expect(Critical("Invalid use of Null", "Quillane"));
        Open(1040);
    }
    EXPECT_FALSE(screen->IsOpened);
    RunBeside("UPDATE ArrivalsBody SET TareWeight = 0 WHERE NoOfBags = 71");
    Open(1040);
    EXPECT_TRUE(screen->IsOpened);
}

// A partly filled screen is not an opened arrival: a save refuses its number.
TEST_F(UnreadableRows, CannotBeSavedOverTheStoredArrival) {
    database.Loosen("ArrivalsBody");
    RunBeside("UPDATE ArrivalsBody SET TareWeight = Null WHERE NoOfBags = 71");
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    BoxAnswers boxes;
    boxes.Expect(Critical("Invalid use of Null", "Quillane"));
    Open(1040);
    ScreenDriver(*screen).Press(Qt::Key_Home);
    ASSERT_TRUE(screen->BtnSave.Enabled());
    boxes.Expect(Alert("The Arrival ID already exists. A new Arrival ID has been generated. "
                       "Please save your record again",
                       BoxIcon::Exclamation));
    screen->BtnSave_Click();
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
}

// Over a stored arrival the buttons do not change, and use the number of the other arrival.
TEST_F(UnreadableRows, LeaveTheButtonsOfTheArrivalThatWasOpenBefore) {
    database.Loosen("ArrivalsBody");
    RunBeside("UPDATE ArrivalsBody SET NoOfBags = Null WHERE NoOfBags = 71");
    Open(1031);
    BoxAnswers boxes;
    boxes.Expect(Critical("Invalid use of Null", "Quillane"));
    OpenBySearch(1040);
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(On(), "Open Print Remove Clear ");
    EXPECT_EQ(screen->ArrivalNo, 1040);
    EXPECT_TRUE(screen->TxtArrivalId.Enabled());
}

// Over an empty screen the lines that were read are shown, and a save stores the shown lines.
TEST_F(UnreadableRows, AreSavedAsFarAsTheyAreShown) {
    database.Loosen("ArrivalsBody");
    RunBeside("UPDATE ArrivalsBody SET NoOfBags = Null WHERE NoOfBags = 71");
    BoxAnswers boxes;
    boxes.Expect(Critical("Invalid use of Null", "Quillane"));
    Open(1040);
    const Lines seen{"Jute New | 100 Kg | 45", "Polypropylene | 40 Kg | "};
    EXPECT_EQ(SeenLines(), seen);
    screen->TxtArrivalId.SetText("1043");
    boxes.Expect({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                  BoxAnswer::No},
                 BoxAnswer::No);
    screen->BtnSave_Click();
    EXPECT_EQ(Body("BagsClassId, BagsTypeId, NoOfBags, VehicleNo", 1043),
              (std::vector<Lines>{{"1", "1", "45", "'LES-1090'"}, {"3", "3", "0", "''"}}));
}

// A third row follows the one that cannot be read.
TEST_F(UnreadableRows, LeaveNoLineOfTheRowsThatFollow) {
    database.Loosen("ArrivalsBody");
    Store(2000, {{.vehicle = "'LEA-1'"}, {.bags = "Null"}, {.bags = "30"}});
    {
        BoxAnswers boxes;
        boxes.Expect(Critical("Invalid use of Null", "Quillane"));
        Open(2000);
    }
    const Lines read{"Jute New | 100 Kg | 10", "Jute New | 100 Kg | "};
    EXPECT_EQ(BagLines(), read);
    EXPECT_EQ(SeenLines(), read);
    screen->TxtArrivalId.SetText("2001");
    Save();
    EXPECT_EQ(Body("BagsClassId, BagsTypeId, NoOfBags", 2001),
              (std::vector<Lines>{{"1", "1", "10"}, {"1", "1", "0"}}));
}

// Nothing of that row has been read: it leaves no line either.
TEST_F(UnreadableRows, LeaveNoLineWithoutACell) {
    database.Loosen("BagsClasses");
    RunBeside("UPDATE BagsClasses SET BagsClass = Null WHERE BagsClassId = 3");
    Store(2000, {{}, {.bagClass = "3"}, {.bags = "30"}});
    BoxAnswers boxes;
    boxes.Expect(Critical("Invalid use of Null", "Quillane"));
    Open(2000);
    const Lines read{"Jute New | 100 Kg | 10"};
    EXPECT_EQ(BagLines(), read);
    EXPECT_EQ(SeenLines(), read);
}

// No cell of the previous arrival remains in the array or on the screen.
TEST_F(UnreadableRows, ShowNoCellOfTheArrivalThatWasOpenBefore) {
    database.Loosen("ArrivalsBody");
    RunBeside("UPDATE ArrivalsBody SET NoOfBags = Null WHERE NoOfBags = 71");
    for (const std::int16_t before : std::initializer_list<std::int16_t>{1031, 1033, 1036}) {
        Open(before);
        BoxAnswers boxes;
        boxes.Expect(Critical("Invalid use of Null", "Quillane"));
        OpenBySearch(1040);
        const Lines left{"Jute New | 100 Kg | 45", "Polypropylene | 40 Kg | "};
        EXPECT_EQ(BagLines(), left) << before;
        EXPECT_EQ(SeenLines(), left) << before;
    }
}

TEST_F(UnreadableRows, WithANullThatIsNotReadAreOpened) {
    database.Loosen("ArrivalsBody");
    RunBeside("UPDATE ArrivalsBody SET NetWeight = Null, ScaleDeduction = Null, BagsDeduction = "
              "Null, CommodityId = Null, VehicleNoText = Null WHERE ArrivalId = 1040");
    Open(1040);
    EXPECT_TRUE(screen->IsOpened);
    EXPECT_EQ(screen->TxtNetWeight.Text(), "7316");
}

} // namespace
} // namespace Quillane
