#include "office/daybook/Export.h"

#include "office/daybook/Cells.h"
#include "office/daybook/DayBookDatabase.h"
#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <QProcess>

namespace Quillane::Office {
namespace {

bool GoesOn(const DayBook&) {
    return true;
}
bool AlwaysCancels(const DayBook&) {
    return false;
}

class DayBookExport : public testing::Test {
protected:
    DayBookExport() {
        database.AddLoad(20001, "2024-05-01", 8100.5, 4000, 8100, "LEA \"7\"");
        database.AddLoad(20002, "2024-05-01", 12000, 0, 12000);
    }
    /// More than one page, so that it can be cancelled between two.
    void AddPages() {
        database.Together([&] {
            for (int id = 0; id <= DayBook::PageRows; ++id)
                database.AddArrival(21000 + id, "2024-06-01", "6010001", 1, {});
        });
    }
    std::string Csv() {
        std::string text;
        DayBook book(database.connection, Year2024());
        WriteArrivalsCsv(
            book, [&](std::string_view piece) { text += piece; }, GoesOn);
        return text;
    }
    std::string Name(const std::string& table, const std::string& function, const std::string& id) {
        return database.connection
            .Execute("Select TOP 1 dbo." + function + "(" + id + ") From " + table)
            .Fields(0)
            .Text();
    }
    std::string Part(const std::string& part) {
        QProcess python;
        python.start("python3", {"-c",
                                 "import sys,zipfile;"
                                 "sys.stdout.write(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2])"
                                 ".decode())",
                                 QString::fromStdString(File()), QString::fromStdString(part)});
        EXPECT_TRUE(python.waitForFinished(-1));
        return python.readAllStandardOutput().toStdString();
    }
    std::string File() const { return database.folder.File("book.xlsx"); }

    DayBookDatabase database;
};

TEST_F(DayBookExport, CsvHasALineForEachArrivalWithoutUnitsOrSeparators) {
    const std::string party = Name("Parties", "FunGetPartyName", "'6010001'");
    const std::string commodity = Name("Commodities", "FunGetCommodity", "1");
    EXPECT_EQ(Csv(),
              "\xEF\xBB\xBF"
              "ArrivalId,ArrivalDate,Party,PartyId,Commodity,VehicleNo,Bags,FirstWeightKg,TareKg,"
              "GrossKg,DeductionKg,NetKg,Mounds,StillInside\r\n"
              "20001,2024-05-01," +
                  party + ",6010001," + commodity +
                  ",\"LEA \"\"7\"\"\",100,12100.5,4000,8100.5,0.5,8100,202.5,0\r\n"
                  "20002,2024-05-01," +
                  party + ",6010001," + commodity + ",LEA-1,100,12000,,,,,,1\r\n");
}

TEST_F(DayBookExport, CancelledCsvKeepsTheOldFile) {
    AddPages();
    database.folder.Write("book.csv", "before");
    DayBook book(database.connection, Year2024());
    EXPECT_FALSE(WriteTextFile(database.folder.File("book.csv"), [&](const TextSink& sink) {
        return WriteArrivalsCsv(book, sink, AlwaysCancels);
    }));
    EXPECT_EQ(database.folder.Read("book.csv"), "before");
}

TEST_F(DayBookExport, CsvInAMissingFolderFails) {
    const Failure failure = FailureOf([&] {
        WriteTextFile(database.folder.File("none/book.csv"), [](const TextSink&) { return true; });
    });
    EXPECT_EQ(failure.Number(), FailureNumber::PathAccess);
    EXPECT_NE(failure.Description().find("none/book.csv could not be written"), std::string::npos);
}

TEST_F(DayBookExport, WorkbookHasASheetOfArrivalsAndOneForEachKindOfSum) {
    DayBook book(database.connection, Year2024());
    EXPECT_TRUE(WriteWorkbook(book, File(), GoesOn));
    const std::string sheets = Part("xl/workbook.xml");
    for (const char* name : {"Arrivals", "By day", "By party", "By commodity"})
        EXPECT_NE(sheets.find("name=\"" + std::string(name) + "\""), std::string::npos) << name;
    const std::string arrivals = Part("xl/worksheets/sheet1.xml");
    EXPECT_NE(arrivals.find("<t>First weight (kg)</t>"), std::string::npos);
    EXPECT_NE(arrivals.find("<v>12100.5</v>"), std::string::npos);
    EXPECT_NE(arrivals.find("<v>202.5</v>"), std::string::npos);
    EXPECT_NE(arrivals.find("<t>still inside</t>"), std::string::npos);
    EXPECT_NE(arrivals.find("without 1 still inside"), std::string::npos);
    EXPECT_NE(arrivals.find("<v>45413</v>"),
              std::string::npos); // 2024-05-01 as a spreadsheet counts
}

TEST_F(DayBookExport, CancelledWorkbookKeepsTheOldFileAndLeavesNoOther) {
    AddPages();
    database.folder.Write("book.xlsx", "before");
    const auto count = [&] {
        const std::filesystem::directory_iterator files(database.folder.path);
        return std::distance(begin(files), end(files));
    };
    const auto before = count();
    DayBook book(database.connection, Year2024());
    EXPECT_FALSE(WriteWorkbook(book, File(), AlwaysCancels));
    EXPECT_EQ(database.folder.Read("book.xlsx"), "before");
    EXPECT_EQ(count(), before);
}

TEST_F(DayBookExport, WorkbookInAMissingFolderFails) {
    DayBook book(database.connection, Year2024());
    const Failure failure =
        FailureOf([&] { WriteWorkbook(book, database.folder.File("none/book.xlsx"), GoesOn); });
    EXPECT_EQ(failure.Number(), FailureNumber::PathAccess);
}

TEST(DayBookCells, NumbersAreShownWithSeparatorsAndWrittenWithout) {
    const auto weight = [](std::int64_t hundredths) {
        return Cell{.kind = Cell::Kind::Number, .number = hundredths, .decimals = WeightDecimals};
    };
    EXPECT_EQ(weight(123'456'789'00).Shown(), "123,456,789");
    EXPECT_EQ(weight(-100'050).Shown(), "-1,000.50");
    EXPECT_EQ(weight(-100'050).Plain(), "-1000.5");
    EXPECT_EQ(weight(-5).Shown(), "-0.05");
    EXPECT_EQ(weight(0).Shown(), "0");
    EXPECT_EQ(weight(99'900).Shown(), "999");
    const Cell bags{.kind = Cell::Kind::Number, .number = 125'000, .decimals = BagDecimals};
    EXPECT_EQ(bags.Shown(), "12.5");
}

TEST(DayBookCells, MoundsAreShownAsOnTheSlipAndWrittenAsANumber) {
    const auto mounds = [](std::int64_t hundredths) {
        return Cell{.kind = Cell::Kind::Mounds, .number = hundredths, .decimals = WeightDecimals};
    };
    EXPECT_EQ(mounds(810'000).Shown(), "202-20");
    EXPECT_EQ(mounds(810'000).Plain(), "202.5");
    EXPECT_EQ(mounds(-4000).Shown(), "-1-0");
    EXPECT_EQ(mounds(1).Plain(), "0.00025");
}

} // namespace
} // namespace Quillane::Office
