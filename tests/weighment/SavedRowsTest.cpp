// The rows in the tables after a save, read by the engine itself.

#include "data/Con.h"
#include "slip/SlipStatement.h"
#include "weighment/WeighmentFixture.h"

#include <cmath>
#include <cstdlib>

namespace Quillane::Testing {
namespace {

using Rows = std::vector<Lines>;

class SavedRows : public WeighmentScreenTest {
protected:
    /// Saves, answers the print question with No, and expects no other box.
    void Save() {
        BoxAnswers boxes;
        boxes.Expect({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                      BoxAnswer::No},
                     BoxAnswer::No);
        screen->BtnSave_Click();
    }

    Rows Header(int id) {
        return Stored("SELECT ArrivalID, ArrivalDate, PermitNo, CenterId, CommodityId, SellerId, "
                      "ContractId, IsPosted, NoOfBags, BagWeight, TareWeight FROM Arrivals WHERE "
                      "ArrivalID = " +
                      std::to_string(id));
    }
    Rows Body(const std::string& columns, int id = 1043) {
        return Stored("SELECT " + columns + " FROM ArrivalsBody WHERE ArrivalId = " +
                      std::to_string(id) + " ORDER BY LineId");
    }
    Rows WholeBody(int id = 1043) {
        return Body("ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, VehicleNo, "
                    "TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, "
                    "NetWeight, DriverName, BiltyNo, VehicleNoText",
                    id);
    }
};

TEST_F(SavedRows, DivideTheWeighmentByBags) {
    FillIn();
    screen->TxtTareWeight.SetText("2950");
    screen->TxtGrossWeight.SetText("4000");
    screen->TxtDeduction.SetText("40");
    screen->TxtShortage.SetText("20");
    ASSERT_EQ(screen->TxtNetWeight.Text(), "3940");
    SetBagLines({{"Jute Old", "100 Kg", "30"}, {"Polypropylene", "50 Kg", "10"}});
    Save();
    EXPECT_EQ(WholeBody(), (Rows{{"1043", "1", "2", "1", "30", "'LEB-4217'", "2950", "0", "100",
                                  "0", "45", "2955", "'Ghulam Rasool'", "'B-7781'", "'LEB-4217'"},
                                 {"1043", "1", "3", "2", "10", "''", "0", "0", "100", "0", "15",
                                  "985", "'Ghulam Rasool'", "'B-7781'", "'LEB-4217'"}}));
}

TEST_F(SavedRows, OfANewArrivalLeaveTheColumnsOfTheBooksEmpty) {
    FillIn();
    Save();
    EXPECT_EQ(Header(1043), (Rows{{"1043", "'2026-11-20T00:00:00'", "Null", "Null", "1",
                                   "'6010001'", "Null", "0", "Null", "Null", "Null"}}));
}

// 12540 and 4320 kg with half a kilogram off for each mound and 17 kg off the load.
TEST_F(SavedRows, HaveFractionsToTheLastDigitAndTheScaleDeductionOnEachLine) {
    FillIn();
    screen->TxtKandaDeduction.SetText("0.5");
    ASSERT_EQ(screen->TxtScaleDeductKg.Text(), "103");
    ASSERT_EQ(screen->TxtGrossWeight.Text(), "8117");
    ASSERT_EQ(screen->TxtNetWeight.Text(), "8100");
    ASSERT_EQ(screen->TxtMoundKgs.Text(), "202-20");
    Save();
    EXPECT_EQ(Body("TareWeight, ScaleDeduction, BagWeight, OtherDeduction, NetWeight"),
              (Rows{{"4320", "103", "81.17", "10.200000000000001", "4860"},
                    {"0", "103", "81.17", "6.800000000000001", "3240"}}));
    EXPECT_EQ(17.0 / 100 * 60, 10.200000000000001);
    EXPECT_EQ(17.0 / 100 * 40, 6.800000000000001);
}

TEST_F(SavedRows, OfThreeUnevenLinesAreDividedFirstAndMultipliedAfterwards) {
    FillIn();
    SetBagLines(
        {{"Jute New", "100 Kg", "7"}, {"Jute Old", "50 Kg", "11"}, {"Loose", "40 Kg", "5"}});
    Save();
    const Rows rows = Body("NoOfBags, BagWeight, OtherDeduction, NetWeight");
    ASSERT_EQ(rows.size(), 3U);
    for (const Lines& row : rows) {
        const double bags = std::strtod(row[0].c_str(), nullptr);
        EXPECT_EQ(std::strtod(row[1].c_str(), nullptr), 8220.0 / 23);
        EXPECT_EQ(std::strtod(row[2].c_str(), nullptr), 17.0 / 23 * bags);
        EXPECT_EQ(std::strtod(row[3].c_str(), nullptr), 8203.0 / 23 * bags);
    }
}

TEST_F(SavedRows, OfOneLineHaveAllWeights) {
    FillIn();
    SetBagLines({{"Loose", "Mill Bardana", "1"}});
    Save();
    EXPECT_EQ(WholeBody(),
              (Rows{{"1043", "1", "4", "5", "1", "'LEB-4217'", "4320", "0", "8220", "0", "17",
                     "8203", "'Ghulam Rasool'", "'B-7781'", "'LEB-4217'"}}));
}

TEST_F(SavedRows, OfAFirstWeighingAreStoredLikeAnyOther) {
    FillIn();
    screen->TxtTareWeight.SetText("");
    screen->ComputeGrossWeight();
    screen->TxtBuiltyNo.SetText("");
    SetBagLines({{"Jute New", "100 Kg", "125.4"}});
    ASSERT_EQ(screen->TxtGrossWeight.Text(), "12540");
    Save();
    EXPECT_EQ(Body("NoOfBags, TareWeight, BagWeight, NetWeight, BiltyNo"),
              (Rows{{"125.4", "0", "100.32", "12563.0736", "''"}}));
    EXPECT_EQ(12523.0 / 125 * 125.4, 12563.0736);
}

TEST_F(SavedRows, OfANegativeLoadAreStored) {
    FillIn();
    screen->TxtTareWeight.SetText("12580");
    screen->ComputeGrossWeight();
    ASSERT_EQ(screen->TxtGrossWeight.Text(), "-40");
    SetBagLines({{"Jute New", "100 Kg", "10"}});
    Save();
    EXPECT_EQ(Body("BagWeight, OtherDeduction, NetWeight"), (Rows{{"-4", "17", "-57"}}));
}

// The sum of the bags is a whole number, ties to even; each line keeps its own quantity.
TEST_F(SavedRows, OfFractionalQuantitiesAreDividedByARoundedSum) {
    FillIn();
    SetBagLines({{"Jute New", "100 Kg", "1.5"}, {"Jute New", "100 Kg", "1 torn"}});
    Save();
    EXPECT_EQ(Body("NoOfBags, BagWeight, NetWeight"),
              (Rows{{"1.5", "4110", "6152.25"}, {"1", "4110", "4101.5"}}));
}

TEST_F(SavedRows, OfAFractionalQuantityTypedInTheGridHaveAllItsDigits) {
    FillIn();
    SetBagLines({{"Jute New", "100 Kg", ""}, {"Jute Old", "100 Kg", "27.5"}});
    screen->Grid.SetFocus();
    ScreenDriver driver(*screen);
    driver.Press(Qt::Key_Right).Press(Qt::Key_Right).Type("12.5").Press(Qt::Key_Return);
    EXPECT_EQ(screen->BagRows.Get(0, 2), "12.5");
    Save();
    EXPECT_EQ(Body("NoOfBags, BagWeight, NetWeight"),
              (Rows{{"12.5", "205.5", "2563.4375"}, {"27.5", "205.5", "5639.5625"}}));
}

TEST_F(SavedRows, AreInTheGridsOrderWhicheverLineWasCurrent) {
    FillIn();
    std::vector<BagLine> lines;
    for (int bags = 1; bags <= 40; ++bags)
        lines.push_back({"Jute New", "100 Kg", std::to_string(bags)});
    SetBagLines(lines);
    screen->Grid.MoveNext();
    screen->Grid.MoveNext();
    Save();
    const Rows rows = Body("NoOfBags, VehicleNo");
    ASSERT_EQ(rows.size(), 40U);
    for (std::size_t row = 0; row < rows.size(); ++row)
        EXPECT_EQ(rows[row], (Lines{std::to_string(row + 1), row == 0 ? "'LEB-4217'" : "''"}));
}

TEST_F(SavedRows, HaveZeroForAnUnlistedBagName) {
    FillIn();
    SetBagLines({{"Sacks", "Bales", "10"}, {"jute new", "", "10"}, {"Jute New", "100 Kg", "10"}});
    Save();
    EXPECT_EQ(Body("BagsClassId, BagsTypeId"), (Rows{{"0", "0"}, {"0", "0"}, {"1", "1"}}));
    EXPECT_EQ(Con->Execute(SlipStatement(1043)).RecordCount(), 1);
}

TEST_F(SavedRows, HaveTheIdOfTheListsCurrentRowIfNamesRepeat) {
    RunBeside("UPDATE Parties SET CityId = 1 WHERE PartyId = '6010019'");
    screen->Unload();
    screen->Show();
    FillIn();
    const auto first = screen->CboSeller.FindRow(0, "Noor Brothers-Lahore");
    ASSERT_TRUE(first);
    const std::string firstId = screen->CboSeller.Array()->Get(*first, 1);
    screen->CboSeller.SetBookmark(*first + 1);
    ASSERT_EQ(screen->CboSeller.Text(), "Noor Brothers-Lahore");
    const std::string id = screen->CboSeller.ColumnText(1);
    Save();
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1043"), "'" + id + "'");
    EXPECT_NE(id, firstId);
}

TEST_F(SavedRows, HaveTheDateThatThePickerShows) {
    FillIn();
    screen->DtpArrivalDate.SetValue(
        Date{std::chrono::year(2024), std::chrono::month(2), std::chrono::day(29)});
    Save();
    EXPECT_EQ(StoredCell("SELECT ArrivalDate FROM Arrivals WHERE ArrivalID = 1043"),
              "'2024-02-29T00:00:00'");
}

TEST_F(SavedRows, AreTheSameWhetherFinalizedOrNot) {
    FillIn();
    screen->ChkFinalized.SetValue(1);
    Save();
    FillIn();
    Save();
    Rows finalized = WholeBody(1043);
    for (Lines& row : finalized)
        row[0] = "1044";
    EXPECT_EQ(finalized, WholeBody(1044));
    Rows header = Header(1043);
    ASSERT_EQ(header.size(), 1U);
    header[0][0] = "1044";
    EXPECT_EQ(header, Header(1044));
}

// ---- texts ----

TEST_F(SavedRows, KeepAnyTextUnchanged) {
    Lines texts{"O'B\"; DROP TABLE A--", "محمد اسلم اینڈ سنز", "Zoë Řehoř 🚚", "\xEF\xBB\xBFLEA-1",
                "  between  blanks  "};
    // The columns of SQL Server have a maximum length.
    if (!OnSqlServer())
        texts.push_back(std::string(5000, 'x'));
    for (const std::string& text : texts) {
        FillIn();
        screen->TxtVehicleNo.SetText(text);
        screen->TxtDriverName.SetText(text);
        screen->TxtBuiltyNo.SetText(text);
        const int id = screen->ArrivalNo;
        Save();
        const std::string quoted = "'" + text + "'";
        EXPECT_EQ(Body("VehicleNo, DriverName, BiltyNo, VehicleNoText", id),
                  (Rows{{quoted, quoted, quoted, quoted}, {"''", quoted, quoted, quoted}}));
    }
}

TEST_F(SavedRows, OfAPartyAndACommodityInUrduHaveTheirIds) {
    FillIn();
    screen->CboSeller.SetText("محمد اسلم اینڈ سنز-خانیوال");
    screen->CboCommodity.SetText("گندم دیسی");
    Save();
    EXPECT_EQ(Stored("SELECT SellerId, CommodityId FROM Arrivals WHERE ArrivalID = 1043"),
              (Rows{{"'6010024'", "4"}}));
    EXPECT_EQ(Body("CommodityId"), (Rows{{"4"}, {"4"}}));
}

// ---- saving again ----

TEST_F(SavedRows, OfAnOpenedArrivalReplaceItsBodyAndBlankTheValuesOfTheBooks) {
    FillInOpened(1036);
    const std::string oldLines = "SELECT min(LineId) FROM ArrivalsBody WHERE ArrivalId = 1036";
    const std::string before = StoredCell(oldLines);
    const std::string others = "SELECT count(*) FROM ArrivalsBody WHERE ArrivalId <> 1036";
    const std::string othersBefore = StoredCell(others);
    Save();
    EXPECT_EQ(Header(1036), (Rows{{"1036", "'2026-11-20T00:00:00'", "Null", "Null", "1",
                                   "'6010001'", "Null", "0", "200", "100.7", "9875"}}));
    EXPECT_EQ(Body("NoOfBags, BagWeight, NetWeight", 1036),
              (Rows{{"60", "82.2", "4921.8"}, {"40", "82.2", "3281.2"}}));
    EXPECT_NE(StoredCell(oldLines), before);
    EXPECT_EQ(StoredCell(others), othersBefore);
}

TEST_F(SavedRows, OfAnOpenedArrivalMayHaveFewerLinesThanBefore) {
    FillInOpened(1034);
    SetBagLines({{"Jute New", "100 Kg", "5"}});
    Save();
    EXPECT_EQ(Body("NoOfBags", 1034), (Rows{{"5"}}));
}

TEST_F(SavedRows, OfAnArrivalWithoutLinesAreAdded) {
    RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1034");
    FillInOpened(1034);
    Save();
    EXPECT_EQ(Body("NoOfBags", 1034), (Rows{{"60"}, {"40"}}));
}

TEST_F(SavedRows, DoNotChangeAnyOtherArrival) {
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    FillIn();
    Save();
    auto headersAfter = StoredTable("Arrivals");
    auto bodiesAfter = StoredTable("ArrivalsBody");
    ASSERT_EQ(headersAfter.size(), headers.size() + 1);
    ASSERT_EQ(bodiesAfter.size(), bodies.size() + 2);
    headersAfter.pop_back();
    bodiesAfter.resize(bodies.size());
    EXPECT_EQ(headersAfter, headers);
    EXPECT_EQ(bodiesAfter, bodies);
}

// `ArrivalNo` does not follow the box in this case: a save that uses both would change the lines of
// another arrival. After the largest number, no new weighment could show the next one.
TEST_F(SavedRows, AreNotStoredUnlessTheIdIsAWholeNumberWithASuccessor) {
    FillIn();
    const auto header = StoredTable("Arrivals");
    const auto body = StoredTable("ArrivalsBody");
    Trace trace(*screen, line);
    screen->TxtArrivalId.SetText("1031");
    for (const char* id : {"2147483648", "3331234567", "-2147483649", "1041.5", "1042.5", "0.4",
                           "104.15e1", "2147483647", "2147483647.0"}) {
        screen->TxtArrivalId.SetText(id);
        trace.Take();
        screen->BtnSave_Click();
        EXPECT_EQ(trace.Take().back(), "Box \"Quillane\" [critical, OK] Overflow") << id;
        EXPECT_EQ(StoredTable("Arrivals"), header) << id;
        EXPECT_EQ(StoredTable("ArrivalsBody"), body) << id;
        EXPECT_TRUE(screen->BtnSave.Enabled());
    }
    screen->TxtArrivalId.SetText("2147483646");
    screen->BtnSave_Click();
    EXPECT_EQ(StoredCell("SELECT max(ArrivalID) FROM Arrivals"), "2147483646");
    EXPECT_EQ(screen->TxtArrivalId.Text(), "2147483647") << "the last number is still shown";
}

TEST_F(SavedRows, OfAnOpenedArrivalWithTheLastNumberAreReplaced) {
    RunBeside("INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) VALUES "
              "(2147483647, '2026-11-20T00:00:00', 1, '6010001')");
    FillInOpened(2147483647);
    Trace trace(*screen, line);
    screen->BtnSave_Click();
    EXPECT_EQ(Body("NoOfBags", 2147483647), (Rows{{"60"}, {"40"}}));
}

} // namespace
} // namespace Quillane::Testing
