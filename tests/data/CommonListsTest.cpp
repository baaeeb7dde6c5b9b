#include "data/Common.h"

#include "ListScreen.h"
#include "station/OpenedDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::ScreenDriver;

class PickLists : public testing::Test {
protected:
    OpenedDatabase database;
    BoxAnswers boxes;
    ListScreen screen;
    Recordset rows;
    std::shared_ptr<RowArray> array = std::make_shared<RowArray>();

    NamesAndIds Filled() { return RowsOf(screen.CboFirst.Array()); }
    /// The same, sorted: for a statement without an order.
    NamesAndIds FilledSorted() {
        NamesAndIds filled = Filled();
        std::ranges::sort(filled);
        return filled;
    }

    /// A list that is already filled, with a current row.
    void FillBefore() {
        array->ReDim(0, 1);
        array->Set(0, 0, "Earlier");
        array->Set(0, 1, "99");
        screen.CboFirst.SetArray(array);
        screen.CboFirst.ReBind();
        screen.CboFirst.SetText("Earlier");
    }
};

TEST_F(PickLists, FormatPickListsSetsTheStandardLayout) {
    FormatPickLists(screen);
    for (const TDBCombo* list : {&screen.CboFirst, &screen.CboSecond}) {
        EXPECT_FALSE(list->Layout.ColumnHeaders);
        EXPECT_EQ(list->Layout.RowDividerStyle, 2);
        EXPECT_EQ(list->Layout.ScrollBars, 2);
        EXPECT_TRUE(list->Columns[0].Visible);
        EXPECT_FALSE(list->Columns[1].Visible);
        EXPECT_TRUE(list->Layout.AutoCompletion);
        EXPECT_TRUE(list->Layout.AutoDropDown);
        EXPECT_TRUE(list->Layout.LimitToList);
        EXPECT_FALSE(list->Layout.AllowColMove);
        EXPECT_FALSE(list->Layout.AllowRowSizing);
        EXPECT_FALSE(list->Layout.EmptyRows);
        EXPECT_FALSE(list->Layout.AllowColSelect);
        EXPECT_TRUE(list->Layout.ExtendRightColumn);
        EXPECT_FALSE(list->Splits[0].Columns[1].AllowSizing);
        EXPECT_EQ(list->Layout.Appearance, 0);
        EXPECT_EQ(list->Layout.BorderStyle, 1);
        EXPECT_TRUE(list->Splits[0].Columns[0].Visible);
        EXPECT_FALSE(list->Splits[0].Columns[1].Visible);
    }
}

class BareScreen : public Screen {
public:
    BareScreen() : Screen("BareScreen", "Bare") {}
    TextBox TxtName{*this, "TxtName"};
};

TEST_F(PickLists, ScreenWithoutListsIsAccepted) {
    BareScreen bare;
    bare.TxtName.SetText("kept");
    FormatPickLists(bare);
    EXPECT_EQ(bare.TxtName.Text(), "kept");
    EXPECT_EQ(bare.TxtName.BackColor(), White);
}

TEST_F(PickLists, AliasesAreNotCaseSensitive) {
    for (const char* statement : {"select BagsClassId as ID, BagsClass as Name from BagsClasses",
                                  "select BagsClassId as id, BagsClass as name from BagsClasses",
                                  "select BagsClass As NAME, BagsClassId as Id from BagsClasses"}) {
        FillPickList(rows, array, statement, screen.CboFirst);
        EXPECT_EQ(FilledSorted(), (NamesAndIds{{"New", "1"}, {"Old", "2"}})) << statement;
    }
}

TEST_F(PickLists, FillingClearsTextAndCurrentRow) {
    FillBefore();
    FillPickList(rows, array, "select 7 as ID, 'Earlier' as Name", screen.CboFirst);
    EXPECT_EQ(screen.CboFirst.Text(), "");
    EXPECT_EQ(screen.CboFirst.Bookmark(), std::nullopt);
    EXPECT_EQ(Filled(), (NamesAndIds{{"Earlier", "7"}}));
    EXPECT_EQ(screen.CboFirst.Array(), array);
}

TEST_F(PickLists, OpenRecordsetIsAcceptedAndClosedAfterwards) {
    rows.Open("select 1", *Con);
    FillPickList(rows, array, "select 7 as ID, 'Seven' as Name", screen.CboFirst);
    EXPECT_EQ(rows.State(), adStateClosed);
    EXPECT_EQ(Filled(), (NamesAndIds{{"Seven", "7"}}));
}

TEST_F(PickLists, NoRowsGiveAnEmptyListWithoutAnError) {
    FillBefore();
    FillPickList(rows, array, "select 1 as ID, 'x' as Name where 1 = 0", screen.CboFirst);
    EXPECT_EQ(Filled(), NamesAndIds{});
    EXPECT_EQ(array->RowCount(), 0);
    EXPECT_EQ(screen.CboFirst.Text(), "");
}

TEST_F(PickLists, FailedStatementLeavesAnEmptyListAndShowsABox) {
    FillBefore();
    boxes.Expect(Critical(EngineWords("no such table: Nowhere"), "Database"));
    FillPickList(rows, array, "select ID, Name from Nowhere", screen.CboFirst);
    EXPECT_EQ(screen.CboFirst.Text(), "");
    EXPECT_EQ(array->RowCount(), 0);
}

TEST_F(PickLists, NullLeavesTheListPartlyFilledAndUnbound) {
    boxes.Expect(Critical("Invalid use of Null", "Quillane"));
    FillPickList(rows, array, "select 1 as ID, 'First' as Name union all select Null, 'Second'",
                 screen.CboFirst);
    // The name is added before the id fails.
    EXPECT_EQ(RowsOf(array), (NamesAndIds{{"First", "1"}, {"Second", ""}}));
    EXPECT_EQ(screen.CboFirst.Array(), nullptr);
}

// ---- roles ----

const std::string partiesFrom =
    "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
    "Name "
    "FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId LEFT "
    "OUTER JOIN Cities ON Parties.CityId = Cities.CityId ";

TEST_F(PickLists, SellerTypesHoldStatementsAndRunNone) {
    FillSellerTypes(nullptr, screen.CboFirst);
    EXPECT_EQ(Filled(),
              (NamesAndIds{{"ALL", partiesFrom + " ORDER BY ChartOfAccounts.AccountName"},
                           {"Suppliers", partiesFrom + "WHERE     (Parties.IsSeller = 1) AND "
                                                       "(ChartOfAccounts.IsEditable = 1) ORDER BY "
                                                       "ChartOfAccounts.AccountName"},
                           {"Buyers", partiesFrom + "WHERE     (Parties.IsBuyer = 1) AND "
                                                    "(ChartOfAccounts.IsEditable = 1) ORDER BY "
                                                    "ChartOfAccounts.AccountName"},
                           {"Brokers", partiesFrom + "WHERE     (Parties.IsBroker = 1) AND "
                                                     "(ChartOfAccounts.IsEditable = 1) ORDER BY "
                                                     "ChartOfAccounts.AccountName"}}));
    EXPECT_TRUE(database.statements.empty());
}

TEST_F(PickLists, SellerTypesUseTheGivenArray) {
    FillSellerTypes(array, screen.CboFirst);
    EXPECT_EQ(screen.CboFirst.Array(), array);
    EXPECT_EQ(array->RowCount(), 4);
}

TEST_F(PickLists, SellersOfATypeAreOrderedByAccountName) {
    const auto roles = std::make_shared<RowArray>();
    FillSellerTypes(roles, screen.CboSecond);
    const auto partiesOf = [&](int role) {
        FillPickList(rows, array, roles->Get(role, 1), screen.CboFirst);
        return Filled();
    };
    // "ALL" lists the account that is not editable; the others do not.
    EXPECT_EQ(partiesOf(0), (NamesAndIds{{"Akbar Mills-Lahore", "602"},
                                         {"Bashir", "603"},
                                         {"Chaudhry", "604"},
                                         {"Zahid Traders-Lahore", "601"}}));
    EXPECT_EQ(partiesOf(1), (NamesAndIds{{"Zahid Traders-Lahore", "601"}}));
    EXPECT_EQ(partiesOf(2), (NamesAndIds{{"Bashir", "603"}}));
    EXPECT_EQ(partiesOf(3), (NamesAndIds{{"Chaudhry", "604"}}));
}

// ---- commodities and bags ----

struct CommodityCase {
    bool isPurchaseable, isSaleable, isWheat;
    std::string statement;
    NamesAndIds rows;

    friend void PrintTo(const CommodityCase& each, std::ostream* out) { *out << each.statement; }
};

class Commodities : public PickLists, public testing::WithParamInterface<CommodityCase> {};

TEST_P(Commodities, AreSelectedByTheirFlags) {
    const auto& [isPurchaseable, isSaleable, isWheat, statement, expected] = GetParam();
    FillCommodities(nullptr, nullptr, screen.CboFirst, isPurchaseable, isSaleable, isWheat);
    EXPECT_EQ(database.statements, std::vector<std::string>{statement});
    EXPECT_EQ(FilledSorted(), expected);
}

const std::string commodities =
    "select commodityid as id, dbo.fungetcommodity(commodityid) as name "
    "from commodities Where 1 = 1";
const NamesAndIds everyCommodity{
    {"Flour", "2"}, {"Jute bags", "3"}, {"Scrap", "4"}, {"Wheat", "1"}};

INSTANTIATE_TEST_SUITE_P(
    OfEveryCombination, Commodities,
    testing::Values(
        CommodityCase{false, false, false, " " + commodities, everyCommodity},
        CommodityCase{true,
                      false,
                      false,
                      " " + commodities + " and IsPurchaseable = 1",
                      {{"Jute bags", "3"}, {"Wheat", "1"}}},
        CommodityCase{
            false, true, false, " " + commodities + " and IsSaleable = 1", {{"Flour", "2"}}},
        CommodityCase{false,
                      false,
                      true,
                      " " + commodities + " and IsWheatCommodity = 1",
                      {{"Flour", "2"}, {"Wheat", "1"}}},
        CommodityCase{true,
                      true,
                      false,
                      " " + commodities + " and IsPurchaseable = 1 and IsSaleable = 1",
                      {}},
        CommodityCase{true,
                      false,
                      true,
                      " " + commodities + " and IsPurchaseable = 1 and IsWheatCommodity = 1",
                      {{"Wheat", "1"}}},
        CommodityCase{false,
                      true,
                      true,
                      " " + commodities + " and IsSaleable = 1 and IsWheatCommodity = 1",
                      {{"Flour", "2"}}},
        CommodityCase{true, true, true, commodities, everyCommodity}));

TEST_F(PickLists, CommoditiesUseTheGivenRecordsetAndArray) {
    rows.Open("select 1", *Con);
    FillCommodities(&rows, array, screen.CboFirst, true, false, true);
    EXPECT_EQ(screen.CboFirst.Array(), array);
    EXPECT_EQ(rows.State(), adStateClosed);
}

TEST_F(PickLists, BagClassesHaveNoOrder) {
    FillBagClasses(rows, array, screen.CboFirst);
    EXPECT_EQ(
        database.statements,
        std::vector<std::string>{"select BagsClassid as ID, BagsClass as Name from bagsclasses"});
    EXPECT_EQ(FilledSorted(), (NamesAndIds{{"New", "1"}, {"Old", "2"}}));
}

TEST_F(PickLists, BagTypesAreOrderedByName) {
    FillBagTypes(rows, array, screen.CboFirst);
    EXPECT_EQ(database.statements,
              std::vector<std::string>{
                  "select BagsTypeID as ID, BagsType As Name from bagstypes Order By BagsType"});
    EXPECT_EQ(Filled(), (NamesAndIds{{"Jute", "2"}, {"Plastic", "1"}}));
}

TEST_F(PickLists, EachUnreadableListShowsItsBox) {
    for (const char* table : {"Commodities", "BagsClasses", "BagsTypes"})
        database.Rename(table, std::string("Gone") + table);
    for (const char* table : {"commodities", "bagsclasses", "bagstypes"})
        boxes.Expect(Critical(EngineWords(std::string("no such table: ") + table), "Database"));
    FillCommodities(nullptr, nullptr, screen.CboFirst, false, false, false);
    FillBagClasses(rows, array, screen.CboFirst);
    FillBagTypes(rows, array, screen.CboFirst);
}

// ---- id of a name ----

TEST_F(PickLists, GetIdOfNameFindsTheFirstExactMatch) {
    FillPickList(rows, array,
                 "select 1 as ID, 'Jute' as Name union all select 2, 'Plastic' "
                 "union all select 3, 'Plastic'",
                 screen.CboFirst);
    EXPECT_EQ(GetIdOfName(screen.CboFirst, "Plastic"), "2");
    EXPECT_EQ(screen.CboFirst.Bookmark(), 1);
    EXPECT_EQ(GetIdOfName(screen.CboFirst, "Jute"), "1");
    EXPECT_EQ(screen.CboFirst.Bookmark(), 0);
}

// The list shows and returns the complete name.
TEST_F(PickLists, NameMayBeginWithAByteOrderMark) {
    const std::string name = "\xEF\xBB\xBFJute";
    FillPickList(rows, array, "select 1 as ID, N'" + name + "' as Name union all select 2, 'Jute'",
                 screen.CboFirst);
    screen.Show();
    screen.CboFirst.SetFocus();
    ScreenDriver(screen).Press(Qt::Key_Down);
    EXPECT_EQ(screen.CboFirst.Text(), name);
    EXPECT_EQ(GetIdOfName(screen.CboFirst, screen.CboFirst.Text()), "1");
}

TEST_F(PickLists, UnknownNameGivesZero) {
    FillBagTypes(rows, array, screen.CboFirst);
    for (const char* name : {"", "jute", "Jut", "Jute "}) {
        EXPECT_EQ(GetIdOfName(screen.CboFirst, name), "0") << name;
        EXPECT_EQ(screen.CboFirst.Bookmark(), std::nullopt);
    }
}

TEST_F(PickLists, MissingIdColumnGivesNoIdAndShowsABox) {
    array->ReDim(0, 0);
    array->Set(0, 0, "Jute");
    screen.CboFirst.SetArray(array);
    screen.CboFirst.ReBind();
    boxes.Expect(Critical("Subscript out of range", "Quillane"));
    EXPECT_EQ(GetIdOfName(screen.CboFirst, "Jute"), "");
}

// ---- sums ----

double SumOf(const std::vector<std::string>& cells) {
    RowArray array;
    array.ReDim(static_cast<int>(cells.size()) - 1, 2);
    for (int row = 0; row < array.RowCount(); ++row)
        array.Set(row, 2, cells[static_cast<std::size_t>(row)]);
    return SumColumn(2, array).ToDouble();
}

TEST_F(PickLists, SumColumnAddsTheLeadingNumbersOfTheCells) {
    EXPECT_EQ(SumOf({}), 0);
    EXPECT_EQ(SumOf({"100", "", "bags", "20 bags", " 3"}), 123);
    EXPECT_EQ(SumOf({"0.5", "-2"}), -1.5);
    // Each cell is rounded to four decimals, ties to even, before it is added.
    EXPECT_EQ(SumOf({"0.00004", "0.00004", "0.00004"}), 0);
    EXPECT_EQ(SumOf({"0.00006", "0.00006"}), 0.0002);
}

TEST_F(PickLists, SumColumnGivesZeroAndShowsABoxAfterAFailure) {
    for (int failures = 0; failures < 2; ++failures)
        boxes.Expect(Critical(failures == 0 ? "Overflow" : "Subscript out of range", "Quillane"));
    EXPECT_EQ(SumOf({"1", "1e30"}), 0);
    RowArray narrow;
    narrow.ReDim(0, 1);
    EXPECT_EQ(SumColumn(2, narrow), Currency{});
}

} // namespace
} // namespace Quillane
