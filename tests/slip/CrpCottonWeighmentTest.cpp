#include "slip/CrpCottonWeighment.h"

#include "platform/runtime/Failure.h"
#include "slip/CrpWeighmentOnPrinted.h"
#include "slip/SlipPages.h"

#include <set>

namespace Quillane::Testing {
namespace {

std::vector<std::string> SectionNames(const Report& slip) {
    std::vector<std::string> names;
    for (const ReportSection& section : slip.Sections)
        names.push_back(section.Name);
    return names;
}

class CrpCottonWeighmentTest : public SlipPagesTest {};

TEST_F(CrpCottonWeighmentTest, HasFiveSectionsFromTheTopOfThePage) {
    const std::vector<std::string> names{"ReportHeaderSection1", "PageHeaderSection1",
                                         "DetailSection1", "ReportFooterSection1",
                                         "PageFooterSection1"};
    EXPECT_EQ(SectionNames(slip_), names);
    EXPECT_EQ(SectionNames(CrpWeighmentOnPrinted()), names);
}

TEST_F(CrpCottonWeighmentTest, HasSevenParameters) {
    EXPECT_EQ(slip_.ParameterCount(), 7);
    EXPECT_EQ(CrpWeighmentOnPrinted().ParameterCount(), 7);
}

TEST_F(CrpCottonWeighmentTest, KeepsItsObjectsWithinTheirSections) {
    for (const ReportSection& section : slip_.Sections) {
        for (const ReportObject& object : section.Objects) {
            EXPECT_LE(object.Left + object.Width, 10466) << section.Name << " " << object.text;
            EXPECT_LE(object.Top + object.Height, section.Height) << section.Name << object.text;
        }
    }
}

TEST_F(CrpCottonWeighmentTest, ShowsEveryParameterAndTheTitle) {
    const auto pages = Pages(1042);
    ASSERT_EQ(pages.size(), 1U);
    const QStringList texts = TextsOf(pages[0]);
    for (const char* text :
         {"QUILLANE FLOUR MILLS", "Plot 7, Industrial Estate, Sargodha Road, Faisalabad",
          "PhoneNo: 041-555 0182", "Email: gate@quillane.example", "Quillane Slip"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    EXPECT_EQ(ValueOf(pages[0], "Mounds - Kgs"), "202-20");
    EXPECT_EQ(ValueOf(pages[0], "Initial Gross Weight"), "12437");
    EXPECT_EQ(ValueOf(pages[0], "Net Weight"), "8100");
}

TEST_F(CrpCottonWeighmentTest, ShowsTheStoredArrival) {
    const auto pages = Pages(1042);
    const std::pair<const char*, const char*> shown[] = {
        {"Party", "Chaudhry Grain Traders-Faisalabad"},
        {"Address", "14 Ghalla Mandi Road"},
        {"City", "Faisalabad"},
        {"Commodity", "Wheat"},
        {"Arrival No.", "1042"},
        {"Date", "20/11/2026"},
        {"Vehicle No.", "LEB-4217"},
        {"Bilty No.", "B-7781"},
        {"Tare Weight", "4320"},
        {"Gross Weight", "8117"},
        {"Deduction", "17"}};
    for (const auto& [caption, value] : shown)
        EXPECT_EQ(ValueOf(pages[0], caption), value) << caption;
    EXPECT_TRUE(TextsOf(pages[0]).contains("Ghulam Rasool"));
}

TEST_F(CrpCottonWeighmentTest, ShowsARowForEachBagLineAndTheirSum) {
    const QStringList texts = TextsOf(Pages(1042)[0]);
    const QStringList first{"1",     "A class", "Jute 100 kg", "60",
                            "81.17", "4870.20", "10.20",       "4860.00"};
    const QStringList second{"2",    "Torn",   "Polypropylene 50 kg", "40", "81.17", "3246.80",
                             "6.80", "3240.00"};
    const QStringList sums{"Total", "100", "8117.00", "17.00", "8100.00"};
    const qsizetype row = texts.indexOf("Net kg") + 1;
    EXPECT_EQ(texts.mid(row, 8), first);
    EXPECT_EQ(texts.mid(row + 8, 8), second);
    EXPECT_EQ(texts.mid(row + 16, 5), sums);
}

TEST_F(CrpCottonWeighmentTest, ShowsANetOfZero) {
    EXPECT_EQ(ValueOf(Pages(1042, 12437, 0)[0], "Net Weight"), "0");
}

TEST_F(CrpCottonWeighmentTest, OmitsMissingCentreAndContract) {
    const QStringList texts = TextsOf(Pages(1042)[0]);
    EXPECT_FALSE(texts.contains("Reference"));
    EXPECT_EQ(texts.filter("Centre").size(), 0);
    EXPECT_EQ(texts.filter("Contract").size(), 0);
}

TEST_F(CrpCottonWeighmentTest, ShowsCentreContractAndPermitOfOtherProgramsRows) {
    database_.Run("Insert Into PRCenters (CenterId, CenterName) Values (1, 'Chak Jhumra')");
    database_.Run("Insert Into PContracts (ContractId, ContractDate, PartyId) Values (1, "
                  "'2026-01-01T00:00:00', '6001')");
    database_.Run("Update Arrivals Set CenterId = 1, ContractId = 1, PermitNo = 'P-12' Where "
                  "ArrivalID = 1042");
    EXPECT_EQ(ValueOf(Pages(1042)[0], "Reference"),
              "Centre Chak Jhumra, Contract Chaudhry Grain Traders-Faisalabad, Permit P-12");
}

TEST_F(CrpCottonWeighmentTest, ShowsALineWithAnUnknownClass) {
    database_.AddLine(1042, {.bagsClass = 0, .bags = 500});
    const auto rows = database_.RowsOf(1042);
    EXPECT_EQ(rows->RecordCount(), 2);
    EXPECT_EQ(TextsOf(Pages(1042)[0]).count("500"), 0);
}

TEST_F(CrpCottonWeighmentTest, ShowsHeadingAndWeightsForAPartyWithoutACity) {
    database_.AddParty("6009", "Nowhere", "", "Null");
    database_.AddArrival(9, "6009");
    database_.AddLine(9, {});
    const auto pages = Pages(9);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(ValueOf(pages[0], "Party"), "");
    EXPECT_EQ(ValueOf(pages[0], "Net Weight"), "8100");
    EXPECT_EQ(slip_.FileName(), "Slip");
}

TEST_F(CrpCottonWeighmentTest, FitsMoreThanTwentyLinesOnOnePage) {
    database_.AddArrival(1, "6001");
    database_.AddLines(1, 20);
    EXPECT_EQ(Pages(1).size(), 1U);
}

TEST_F(CrpCottonWeighmentTest, RepeatsTheTablesHeadOnEveryPageOfALongLoad) {
    database_.AddArrival(1, "6001");
    database_.AddLines(1, 100);
    const auto pages = Pages(1);
    ASSERT_EQ(pages.size(), 3U);
    int rows = 0;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        const QStringList texts = TextsOf(pages[page]);
        EXPECT_EQ(texts.count("Bag class"), 1);
        EXPECT_EQ(texts.count("QUILLANE FLOUR MILLS"), page == 0 ? 1 : 0);
        EXPECT_EQ(texts.count("Total"), page == 2 ? 1 : 0);
        EXPECT_EQ(texts.last(), QStringLiteral("Page %1 of 3").arg(page + 1));
        rows += static_cast<int>(texts.count("811.70")) / 2;
    }
    EXPECT_EQ(rows, 100);
}

TEST_F(CrpCottonWeighmentTest, ShowsLongNamesCompletely) {
    const char* name =
        "Abdul Rehman Muhammad Siddique and Sons Commission Agents and Grain Merchants of the "
        "Old Market";
    database_.AddParty("6002", name, "Shop 14, second row behind the octroi post, Jhang Road", "1");
    database_.AddArrival(1, "6002");
    database_.AddLine(1, {});
    const auto pages = Pages(1);
    EXPECT_EQ(ValueOf(pages[0], "Party"), std::string(name) + "-Faisalabad");
    EXPECT_EQ(pages.size(), 1U);
}

TEST_F(CrpCottonWeighmentTest, ShowsNamesInAnyScript) {
    database_.AddParty("6003", "چوہدری ٹریڈرز", "غلہ منڈی", "2");
    database_.AddArrival(1, "6003");
    database_.AddLine(1, {.driver = "Zoë Łukasz Ñandú"});
    const auto pages = Pages(1);
    EXPECT_EQ(ValueOf(pages[0], "Party"), "چوہدری ٹریڈرز-لاہور");
    EXPECT_TRUE(TextsOf(pages[0]).contains("Zoë Łukasz Ñandú"));
}

TEST_F(CrpCottonWeighmentTest, IsNamedAfterItsArrival) {
    EXPECT_EQ(slip_.FileName(), "Slip");
    Fill(1042);
    EXPECT_EQ(slip_.FileName(), "Slip 1042");
}

TEST_F(CrpCottonWeighmentTest, FailsOnDataWithOtherColumns) {
    auto rows = std::make_shared<Recordset>();
    rows->Open("Select 1 As Other", database_.connection);
    FillSlip(slip_, SampleContent(rows));
    EXPECT_THROW(LayOutReport(slip_), Failure);
}

TEST_F(CrpCottonWeighmentTest, OnPrintedPaperHasTheFiguresInTheSamePlaces) {
    CrpWeighmentOnPrinted printed;
    FillSlip(printed, SampleContent(database_.RowsOf(1042)));
    EXPECT_EQ(printed.FileName(), "Slip 1042");
    const auto all = Pages(1042);
    const auto pages = LayOutReport(printed);
    ASSERT_EQ(pages.size(), 1U);
    std::set<std::pair<QString, double>> places;
    for (const PlacedObject& placed : all[0].objects) {
        if (placed.text)
            places.emplace(placed.text->Text(), placed.bounds.top());
    }
    for (const PlacedObject& placed : pages[0].objects) {
        EXPECT_EQ(placed.object->kind, ReportObjectKind::Field);
        if (placed.text) {
            EXPECT_TRUE(places.contains({placed.text->Text(), placed.bounds.top()}))
                << placed.text->Text().toStdString();
        }
    }
    const QStringList texts = TextsOf(pages[0]);
    EXPECT_TRUE(texts.contains("8100"));
    EXPECT_TRUE(texts.contains("202-20"));
    EXPECT_FALSE(texts.contains("QUILLANE FLOUR MILLS"));
    EXPECT_FALSE(texts.contains("Quillane Slip"));
}

} // namespace
} // namespace Quillane::Testing
