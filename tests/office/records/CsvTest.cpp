#include "office/records/Csv.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

using Cells = std::vector<std::string>;

std::vector<Cells> CellsOf(std::string_view text) {
    std::vector<Cells> all;
    for (const CsvRecord& record : ReadCsv(text).records)
        all.push_back(record.cells);
    return all;
}

TEST(Csv, SeparatorIsCommaSemicolonOrTab) {
    const std::vector<Cells> expected{{"a", "b"}, {"1", "2"}};
    EXPECT_EQ(CellsOf("a,b\n1,2\n"), expected);
    EXPECT_EQ(CellsOf("a;b\n1;2\n"), expected);
    EXPECT_EQ(CellsOf("a\tb\n1\t2\n"), expected);
}

TEST(Csv, SeparatorIsTheMostFrequentInTheFirstLine) {
    EXPECT_EQ(CellsOf("a;\"b,c,d\";e\n1,5;2;3"),
              (std::vector<Cells>{{"a", "b,c,d", "e"}, {"1,5", "2", "3"}}));
}

TEST(Csv, LinesEndWithLfOrCrLfOrTheEndOfTheFile) {
    const std::vector<Cells> expected{{"a", "b"}, {"1", "2"}};
    EXPECT_EQ(CellsOf("a,b\r\n1,2\r\n"), expected);
    EXPECT_EQ(CellsOf("a,b\n1,2"), expected);
    EXPECT_EQ(CellsOf("a,b\r\n1,2\r"), expected);
}

TEST(Csv, QuotedCellsMayHoldSeparatorsQuotesAndLineBreaks) {
    EXPECT_EQ(CellsOf("\"a,b\",\"say \"\"no\"\"\",\"x\r\ny\"\n"),
              (std::vector<Cells>{{"a,b", "say \"no\"", "x\r\ny"}}));
    EXPECT_EQ(CellsOf("\"\",\"\"\"\"\n"), (std::vector<Cells>{{"", "\""}}));
}

TEST(Csv, EmptyCellsAndBlanksAreKept) {
    EXPECT_EQ(CellsOf(",\n a ,,\n"), (std::vector<Cells>{{"", ""}, {" a ", "", ""}}));
}

TEST(Csv, EmptyLinesAreSkippedButCounted) {
    const CsvFile file = ReadCsv("a\n\n\r\nb\n");
    ASSERT_EQ(file.records.size(), 2U);
    EXPECT_EQ(file.records[1].line, 4);
}

TEST(Csv, LineBreakInACellCountsAsALine) {
    const CsvFile file = ReadCsv("a,b\n\"1\n2\n3\",x\nlast,y\n");
    ASSERT_EQ(file.records.size(), 3U);
    EXPECT_EQ(file.records[1].line, 2);
    EXPECT_EQ(file.records[2].line, 5);
}

TEST(Csv, ByteOrderMarkIsRemoved) {
    EXPECT_EQ(CellsOf("\xEF\xBB\xBFName,City\n"), (std::vector<Cells>{{"Name", "City"}}));
    EXPECT_EQ(CellsOf("\xEF\xBB\xBF\"Name\",City\n"), (std::vector<Cells>{{"Name", "City"}}));
}

TEST(Csv, QuoteInsideAPlainCellIsKept) {
    EXPECT_EQ(CellsOf("5\" pipe,b\n"), (std::vector<Cells>{{"5\" pipe", "b"}}));
}

TEST(Csv, TextAfterAClosingQuoteMakesOnlyItsRecordInvalid) {
    const CsvFile file = ReadCsv("a,b\n\"x\"y,1\nz,2\n");
    ASSERT_EQ(file.records.size(), 3U);
    EXPECT_EQ(file.records[1].fault, "There is text after the closing quote of a cell.");
    EXPECT_EQ(file.records[2].fault, "");
    EXPECT_EQ(file.records[2].cells, (Cells{"z", "2"}));
}

TEST(Csv, MissingClosingQuoteMakesTheFileInvalid) {
    const CsvFile file = ReadCsv("a,b\n1,2\n3,\"4\n5,6\n");
    EXPECT_EQ(file.fault, "Line 3: The closing quote of a cell is missing. Add it.");
    EXPECT_TRUE(file.records.empty());
}

TEST(Csv, FileInAnotherEncodingIsRefusedWithTheLine) {
    EXPECT_EQ(ReadCsv("Name\nZahid\nZo\xEB\n").fault,
              "Line 3: The file is not UTF-8. Save it as \"CSV UTF-8\".");
    const std::string utf16 = "The file is UTF-16 or not a text file. Save it as \"CSV UTF-8\".";
    EXPECT_EQ(ReadCsv(std::string_view("\xFF\xFEN\0a\0", 6)).fault, utf16);
    EXPECT_EQ(ReadCsv(std::string_view("N\0a\0\n\0", 6)).fault, utf16);
}

TEST(Csv, EmptyTextHasNoRecords) {
    EXPECT_TRUE(ReadCsv("").records.empty());
    EXPECT_TRUE(ReadCsv("\xEF\xBB\xBF").records.empty());
    EXPECT_EQ(ReadCsv("").fault, "");
}

TEST(Csv, CellOfOneMegabyteIsRead) {
    const std::string large(1 << 20, 'x');
    EXPECT_EQ(CellsOf("a,b\n" + large + ",1\n")[1][0].size(), large.size());
    EXPECT_EQ(CellsOf("a,b\n\"" + large + "\",1\n")[1][0].size(), large.size());
}

TEST(Csv, WrittenLinesAreReadBackUnchanged) {
    const Cells cells{"plain", "a,b", "a;b", "a\tb", "say \"no\"", "x\r\ny", " blank ", "", "محمد"};
    EXPECT_EQ(CellsOf(CsvLine(cells)), std::vector<Cells>{cells});
    EXPECT_EQ(CsvLine({"a", "b\"c"}), "a,\"b\"\"c\"\r\n");
}

} // namespace
} // namespace Quillane::Office
