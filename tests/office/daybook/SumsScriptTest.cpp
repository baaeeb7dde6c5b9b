#include "office/daybook/Cells.h"
#include "office/daybook/DayBookDatabase.h"
#include "office/daybook/Export.h"
#include "office/records/Csv.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <random>
#include <set>

namespace Quillane::Office {
namespace {

constexpr int arrivals = 1'200; // several pages, the last one not full

/// Loads as the station stores them, shares of whole kilograms, and some of other programs with
/// fractional weights, including ties.
class RandomLoads {
public:
    explicit RandomLoads(DayBookDatabase& database) : database_(database) {}

    void AddAll() {
        for (int id = 1; id <= arrivals; ++id)
            Add(20'000 + id);
    }

private:
    int Any(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }

    void Add(int id) {
        char day[16];
        std::snprintf(day, sizeof day, "2024-%02d-%02d", Any(1, 12), Any(1, 28));
        const bool isOfStation = Any(1, 5) > 1;
        const double tare = Any(1, 25) == 1 ? 0 : Any(3'000, 9'000) + Fraction(isOfStation);
        const double gross = Any(2'000, 40'000) + Fraction(isOfStation);
        const double deduction = Any(0, 300) + Fraction(isOfStation);
        const double scaleDeduction = Any(1, 10) == 1 ? Any(1, 90) : 0;
        std::vector<double> bags;
        double total = 0;
        for (int line = Any(1, 4); line > 0; --line)
            total += bags.emplace_back(Any(1, 300) + (Any(1, 20) == 1 ? 0.25 : 0));
        std::vector<LineRow> lines;
        for (const double count : bags)
            lines.push_back({.bags = count,
                             .bagWeight = gross / total,
                             .tare = lines.empty() ? tare : 0,
                             .scaleDeduction = scaleDeduction,
                             .otherDeduction = deduction / total * count,
                             .net = (gross - deduction) / total * count,
                             .vehicle = lines.empty() ? "LEA-7" : ""});
        database_.AddArrival(id, day, "601000" + std::to_string(Any(1, 9)), Any(1, 5), lines);
    }
    double Fraction(bool isOfStation) {
        return isOfStation ? 0
                           : std::vector<double>{0.125, 0.005, 0.33, 0.994999,
                                                 0.5}[static_cast<std::size_t>(Any(0, 4))];
    }

    DayBookDatabase& database_;
    std::mt19937 random_{20261122};
};

std::string StoredLines(const DayBookDatabase& database) {
    std::string text = "ArrivalId,Day,Party,Commodity,Bags,BagWeight,Tare,ScaleDeduction,Net\n";
    for (const auto& row : database.Rows(
             "Select A.ArrivalID, A.ArrivalDate, A.SellerId, A.CommodityId, B.NoOfBags, "
             "B.BagWeight, B.TareWeight, B.ScaleDeduction, B.NetWeight From Arrivals A Inner Join "
             "ArrivalsBody B On B.ArrivalId = A.ArrivalID Where A.ArrivalDate < '2025-01-01' "
             "Order By A.ArrivalID")) {
        text += row[0].Text() + "," + row[1].Text().substr(0, 10) + "," + row[2].Text() + "," +
                row[3].Text();
        for (std::size_t column = 4; column < row.size(); ++column)
            text += "," + DayBookDatabase::Exact(row[column].Number());
        text += "\n";
    }
    return text;
}

std::set<std::string> ScriptSums(const DayBookDatabase& database) {
    database.folder.Write("lines.csv", StoredLines(database));
    QProcess script;
    script.start("python3", {QStringLiteral(DAY_BOOK_SUMS),
                             QString::fromStdString(database.folder.File("lines.csv"))});
    EXPECT_TRUE(script.waitForFinished(-1));
    EXPECT_EQ(script.readAllStandardError().toStdString(), "");
    std::set<std::string> sums;
    for (const QByteArray& line : script.readAllStandardOutput().split('\n'))
        if (!line.isEmpty())
            sums.insert(line.toStdString());
    return sums;
}

/// Converts the lines of a CSV file of sums to the form of the script: id first, without names.
void AddLines(std::set<std::string>& lines, DayBook& book, SumsBy by, const std::string& name) {
    std::string text;
    EXPECT_TRUE(WriteSumsCsv(
        book, by, [&](std::string_view piece) { text += piece; },
        [](const DayBook&) { return true; }));
    const std::vector<CsvRecord> records = ReadCsv(text).records;
    for (std::size_t record = 1; record < records.size(); ++record) {
        std::string line = name;
        for (std::size_t cell = by == SumsBy::Day ? 0 : 1; cell < records[record].cells.size();
             ++cell)
            line += "," + records[record].cells[cell];
        lines.insert(line);
    }
}

TEST(DayBookSumsScript, SumsAgreeWithExactFractionsToTheLastDigit) {
    DayBookDatabase database;
    database.Together([&] { RandomLoads(database).AddAll(); });
    DayBook book(database.connection, Year2024());
    std::set<std::string> sums;
    AddLines(sums, book, SumsBy::Day, "Day");
    AddLines(sums, book, SumsBy::Party, "Party");
    AddLines(sums, book, SumsBy::Commodity, "Commodity");
    EXPECT_EQ(book.Count(), arrivals);
    EXPECT_GT(sums.size(), 300U);
    EXPECT_EQ(sums, ScriptSums(database));
}

} // namespace
} // namespace Quillane::Office
