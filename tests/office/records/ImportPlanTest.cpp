#include "office/records/ImportPlan.h"

#include "OfficeDatabase.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

using Kind = ImportLine::Kind;

class ImportPlans : public testing::Test {
protected:
    ImportPlan Plan(const Table& table, const std::string& text) {
        return PlanImport(ReadSnapshot(database.connection, table), text);
    }
    ImportLine OnlyLine(const Table& table, const std::string& text) {
        const ImportPlan plan = Plan(table, text);
        EXPECT_EQ(plan.fault, "");
        EXPECT_EQ(plan.lines.size(), 1U);
        return plan.lines.empty() ? ImportLine{} : plan.lines.front();
    }
    std::string Fault(const Table& table, const std::string& text) {
        const ImportLine line = OnlyLine(table, text);
        EXPECT_EQ(line.kind, Kind::Faulty);
        return line.text;
    }

    OfficeDatabase database;
};

constexpr const char* partyHeader = "PartyId,AccountName,City,Address,IsSeller,IsBuyer,IsBroker\n";

TEST_F(ImportPlans, NewPartyHasItsCity) {
    const ImportLine line =
        OnlyLine(PartiesTable(),
                 std::string(partyHeader) + "6010099,Hamza Traders, okara ,Shop 8,yes,,no\n");
    EXPECT_EQ(line.kind, Kind::New);
    EXPECT_EQ(line.line, 2);
    EXPECT_EQ(line.change.after, NewParty);
    EXPECT_FALSE(line.change.before);
}

TEST_F(ImportPlans, ChangesAreWrittenInOneTransaction) {
    const ImportPlan plan =
        Plan(CitiesTable(), "CityId,CityName\n77,Jhang\n3,Okara Sadar\n,Kasur\n");
    std::vector<std::string> transactions;
    database.connection.StatementObserver = [&](std::string_view text) {
        if (text.ends_with("Trans"))
            transactions.emplace_back(text);
    };
    EXPECT_EQ(WriteRows(database.connection, CitiesTable(), plan.Changes()).end,
              WriteResult::End::Written);
    EXPECT_EQ(transactions, (std::vector<std::string>{"BeginTrans", "CommitTrans"}));
    EXPECT_EQ(database.Stored(CitiesTable(), "3")[NameCell], "Okara Sadar");
    EXPECT_EQ(database.Stored(CitiesTable(), "78")[NameCell], "Kasur");
}

TEST_F(ImportPlans, PreviewWritesNothing) {
    Plan(CitiesTable(), "CityName\nJhang\n");
    EXPECT_EQ(database.Text("Select Count(*) From Cities Where CityName = 'Jhang'"), "0");
}

TEST_F(ImportPlans, RowIsFoundByKeyOtherwiseByName) {
    EXPECT_EQ(OnlyLine(CitiesTable(), "CityId,CityName\n3,Okara\n").kind, Kind::Unchanged);
    EXPECT_EQ(OnlyLine(CitiesTable(), "CityName\nOkara\n").kind, Kind::Unchanged);
    EXPECT_EQ(OnlyLine(CitiesTable(), "CityId,CityName\n03,Okara\n").kind, Kind::Unchanged);
    const ImportLine renamed = OnlyLine(CitiesTable(), "CityName\nOKARA\n");
    EXPECT_EQ(renamed.kind, Kind::Changed);
    EXPECT_EQ(renamed.change.after, (Row{"3", "OKARA"}));
}

TEST_F(ImportPlans, PartyWithoutAnAccountIsFoundByNameAndCity) {
    const ImportLine found = OnlyLine(PartiesTable(), "AccountName,City,Address\n"
                                                      "noor brothers,Sahiwal,9 Katchery Road\n");
    EXPECT_EQ(found.kind, Kind::Changed);
    EXPECT_EQ(found.change.after[KeyCell], "6010019");
    const ImportLine added = OnlyLine(PartiesTable(), "AccountName,City,IsSeller\n"
                                                      "Noor Brothers,Multan,1\n");
    EXPECT_EQ(added.kind, Kind::New);
    EXPECT_EQ(added.change.after[KeyCell], "6010029");
}

TEST_F(ImportPlans, NameOfSeveralRowsIsFaultyWithoutAKey) {
    EXPECT_EQ(Fault(PartiesTable(), "AccountName,Address\nNoor Brothers,Shop 1\n"),
              "Several rows have this name. Enter PartyId.");
}

TEST_F(ImportPlans, MissingColumnsAreNotChanged) {
    const ImportLine line = OnlyLine(PartiesTable(), "PartyId,Address\n6010001,Shop 15\n");
    EXPECT_EQ(line.kind, Kind::Changed);
    RowChange expected = database.Changed(PartiesTable(), "6010001", "Address", "Shop 15");
    EXPECT_EQ(line.change.before, expected.before);
    EXPECT_EQ(line.change.after, expected.after);
}

TEST_F(ImportPlans, EmptyCellClearsTheText) {
    const ImportLine line = OnlyLine(PartiesTable(), "PartyId,Address\n6010001,\n");
    EXPECT_EQ(line.change.after[PlaceOf(PartiesTable(), "Address")], "");
}

TEST_F(ImportPlans, ColumnsAreFoundByHeaderColumnNameOrCaption) {
    EXPECT_EQ(OnlyLine(PartiesTable(), "account;NAME; city ;Seller\n6010099;A;Okara;1\n").kind,
              Kind::New);
    EXPECT_EQ(OnlyLine(PartiesTable(), "PartyId,AccountName,CityId,IsSeller\n6010099,A,3,1\n").kind,
              Kind::New);
}

TEST_F(ImportPlans, UnknownColumnsAreNamedAndIgnored) {
    const ImportPlan plan = Plan(CitiesTable(), "CityName,Region,,District\nJhang,Punjab,,x\n");
    EXPECT_EQ(plan.unreadColumns, (std::vector<std::string>{"Region", "District"}));
    EXPECT_EQ(plan.Count(Kind::New), 1);
}

TEST_F(ImportPlans, FileWithoutKeyAndNameColumnsIsRefused) {
    EXPECT_EQ(Plan(CitiesTable(), "1,Lahore\n2,Multan\n").fault,
              "Line 1 names neither CityId nor CityName. The first line must hold column names: "
              "CityId, CityName.");
    EXPECT_EQ(Plan(CitiesTable(), "").fault,
              "The file is empty. Its first line must hold column names: CityId, CityName.");
    EXPECT_EQ(Plan(CitiesTable(), "CityName,City\nLahore,Multan\n").fault,
              "Line 1: The column \"City\" occurs twice. Remove one of them.");
}

TEST_F(ImportPlans, LineWithAnotherNumberOfCellsIsFaulty) {
    const ImportPlan plan = Plan(CitiesTable(), "CityId,CityName\n77,Jhang,x\n78\n79,Kasur\n");
    ASSERT_EQ(plan.lines.size(), 3U);
    EXPECT_EQ(plan.lines[0].text, "The line has 3 cells, the first line has 2. Correct the line.");
    EXPECT_EQ(plan.lines[1].text, "The line has 1 cell, the first line has 2. Correct the line.");
    EXPECT_EQ(plan.lines[2].kind, Kind::New);
    EXPECT_EQ(plan.Summary(), "1 new, 0 changed, 0 unchanged, 2 faulty");
}

TEST_F(ImportPlans, SecondLineWithTheSameKeyIsFaulty) {
    const ImportPlan plan =
        Plan(CitiesTable(), "CityId,CityName\n77,Jhang\n77,Kasur\n3,Okara\n,Okara\n");
    EXPECT_EQ(plan.lines[1].text, "The same city is in line 2 already. Remove one of them.");
    EXPECT_EQ(plan.lines[3].text, "The same city is in line 4 already. Remove one of them.");
    EXPECT_EQ(plan.lines[2].kind, Kind::Unchanged);
}

TEST_F(ImportPlans, NameUsedInAnEarlierLineIsFaulty) {
    const ImportPlan plan = Plan(CitiesTable(), "CityId,CityName\n77,Jhang\n78,JHANG\n");
    EXPECT_EQ(plan.lines[1].text, "The name \"JHANG\" is already used by city 77. Choose another.");
}

TEST_F(ImportPlans, UnknownCityIsFaulty) {
    EXPECT_EQ(
        Fault(PartiesTable(), "PartyId,AccountName,City\n6010099,A,Atlantis\n"),
        "There is no city \"Atlantis\". Add it to the list of cities first, or correct the name.");
}

TEST_F(ImportPlans, AmbiguousCityIsFaultyUnlessThePartyHasItAlready) {
    database.Run("Insert Into Cities (CityId, CityName) Values (77, 'Okara')");
    EXPECT_EQ(Fault(PartiesTable(), "PartyId,AccountName,City\n6010099,A,Okara\n"),
              "There are several rows named \"Okara\" in the list of cities. Enter the number "
              "instead of the name.");
    EXPECT_EQ(OnlyLine(PartiesTable(), "PartyId,City\n6010001,Okara\n").kind, Kind::Unchanged);
    EXPECT_EQ(OnlyLine(PartiesTable(), "PartyId,City\n6010001,77\n").kind, Kind::Changed);
}

TEST_F(ImportPlans, RulesOfTheScreensApplyToAFile) {
    EXPECT_EQ(Fault(PartiesTable(), "PartyId,AccountName,City\n6010099,A,\n"),
              "City is empty: without a city, arrivals of the party can be saved, but not opened "
              "or printed again. Fill it in.");
    EXPECT_EQ(Fault(CitiesTable(), "CityId,CityName\n77,\"Jha\nng\"\n"),
              "City contains a line break or another control character. Remove it.");
    EXPECT_EQ(Fault(CitiesTable(), "CityId,CityName\nx,Jhang\n"),
              "Number \"x\" is not a whole number from 1 to 2147483647.");
    EXPECT_EQ(Fault(PartiesTable(), "PartyId,IsSeller\n6010001,perhaps\n"),
              "Seller must be 1 or 0, yes or no. Correct it.");
}

TEST_F(ImportPlans, RowWithAWarningIsWritten) {
    const ImportLine line = OnlyLine(CommoditiesTable(), "CommodityName,IsSaleable\nBran Mash,1\n");
    EXPECT_EQ(line.kind, Kind::New);
    EXPECT_EQ(line.text,
              "The station lists only commodities that are marked \"Purchased\" and \"Wheat\". "
              "Arrivals of any other commodity can be opened, but not saved again.");
}

TEST_F(ImportPlans, CellOfOneMegabyteIsFaultyAndNotQuotedInTheMessage) {
    const std::string large(1 << 20, 'x');
    EXPECT_EQ(Fault(CitiesTable(), "CityName\n" + large + "\n"),
              "City has 1048576 characters; the maximum is 60. Shorten it.");
    EXPECT_LT(Fault(PartiesTable(), "PartyId,AccountName,City\n6010099,A," + large + "\n").size(),
              300U);
    EXPECT_LT(Fault(CitiesTable(), "CityId,CityName\n" + large + ",A\n").size(), 300U);
    EXPECT_EQ(OnlyLine(CitiesTable(), "CityName\n" + large + "\n").shown.size(), 63U);
}

TEST_F(ImportPlans, ExportedListIsImportedUnchanged) {
    for (const Table* table : AllTables()) {
        const Snapshot known = ReadSnapshot(database.connection, *table);
        const ImportPlan plan = PlanImport(known, ExportText(known));
        EXPECT_EQ(plan.fault, "") << table->name;
        EXPECT_EQ(plan.Count(Kind::Unchanged), std::ssize(known.rows.Rows())) << table->name;
        EXPECT_EQ(std::ssize(plan.lines), std::ssize(known.rows.Rows())) << table->name;
    }
}

TEST_F(ImportPlans, ExportWritesTheNameOfTheCity) {
    const std::string text = ExportText(ReadSnapshot(database.connection, PartiesTable()));
    EXPECT_TRUE(text.starts_with("\xEF\xBB\xBF"
                                 "PartyId,AccountName,City,Address,IsSeller,IsBuyer,"
                                 "IsBroker,IsEditable\r\n"));
    EXPECT_NE(text.find("\r\n6010001,Chaudhry Grain Traders,Okara,\"Shop 14, Grain Market\",1,0,0,1"
                        "\r\n"),
              std::string::npos);
}

TEST_F(ImportPlans, CancelledPlanHasNoChanges) {
    std::string text = "CityName\n";
    for (int row = 0; row < 2000; ++row)
        text += "City " + std::to_string(row) + "\n";
    const ImportPlan plan = PlanImport(ReadSnapshot(database.connection, CitiesTable()), text,
                                       [](int done) { return done < 500; });
    EXPECT_EQ(plan.fault, "The import was cancelled. Nothing was written.");
    EXPECT_LT(plan.lines.size(), 1000U);
}

TEST_F(ImportPlans, FiveThousandPartiesAreWritten) {
    std::string text = partyHeader;
    for (int row = 0; row < 5000; ++row)
        text += std::to_string(6'100'000 + row) + ",Trader No. " + std::to_string(row) +
                ",Okara,\"Shop " + std::to_string(row) + ", Grain Market\",1,0,0\n";
    const ImportPlan plan = Plan(PartiesTable(), text);
    EXPECT_EQ(plan.Count(Kind::New), 5000);
    EXPECT_EQ(WriteRows(database.connection, PartiesTable(), plan.Changes()).end,
              WriteResult::End::Written);
    EXPECT_EQ(Plan(PartiesTable(), text).Count(Kind::Unchanged), 5000);
}

TEST_F(ImportPlans, TwoHundredThousandRowsAreRead) {
    std::string text = partyHeader;
    for (int row = 0; row < 200'000; ++row)
        text += std::to_string(6'100'000 + row) + ",Trader No. " + std::to_string(row) +
                ",Okara,,1,0,0\n";
    EXPECT_EQ(Plan(PartiesTable(), text).Count(Kind::New), 200'000);
}

} // namespace
} // namespace Quillane::Office
