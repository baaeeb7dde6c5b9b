// The table of a slip: every row and every column adds up as printed.

#include "slip/SlipPages.h"

#include <cmath>

namespace Quillane::Testing {
namespace {

class SlipTable : public SlipPagesTest {
protected:
    struct Row {
        QStringList cells; ///< number, class, type, bags, weight of a bag, gross, deduction, net
        long Hundredths(int cell) const { return std::lround(cells.at(cell).toDouble() * 100); }
    };

    /// The rows and the total of arrival 1 on all pages.
    void Read() {
        for (const ReportPage& page : Pages(1)) {
            const QStringList texts = TextsOf(page);
            qsizetype at = texts.indexOf("Net kg") + 1;
            for (; at < texts.size() && texts[at] == QString::number(rows_.size() + 1); at += 8)
                rows_.push_back({texts.mid(at, 8)});
            if (texts.contains("Total"))
                total_ = texts.mid(texts.indexOf("Total") + 1, 4);
        }
    }
    void ExpectThatAllAddsUp() {
        long gross = 0;
        long deduction = 0;
        double bags = 0;
        for (const Row& row : rows_) {
            EXPECT_EQ(row.Hundredths(5) - row.Hundredths(6), row.Hundredths(7))
                << row.cells.join(" ").toStdString();
            bags += row.cells[3].toDouble();
            gross += row.Hundredths(5);
            deduction += row.Hundredths(6);
        }
        const Row total{QStringList(4) + total_};
        EXPECT_NEAR(total_[0].toDouble(), bags, 1e-9);
        EXPECT_EQ(total.Hundredths(5), gross);
        EXPECT_EQ(total.Hundredths(6), deduction);
        EXPECT_EQ(total.Hundredths(7), gross - deduction);
    }

    std::vector<Row> rows_;
    QStringList total_; ///< bags, gross, deduction, net
};

TEST_F(SlipTable, RoundsTiesAwayFromZero) {
    database_.AddArrival(1, "6001");
    database_.AddLine(1, {.bags = 15, .bagWeight = 72.875, .otherDeduction = 3.25});
    Read();
    ASSERT_EQ(rows_.size(), 1U);
    EXPECT_EQ(rows_[0].cells.mid(4), (QStringList{"72.88", "1093.13", "3.25", "1089.88"}));
    EXPECT_EQ(total_, (QStringList{"15", "1093.13", "3.25", "1089.88"}));
}

TEST_F(SlipTable, AddsUpIfHalfOfTheRowsAreTies) {
    database_.AddArrival(1, "6001");
    for (int line = 0; line < 30; ++line) {
        database_.AddLine(1, {.bags = 15, .bagWeight = 72.875, .otherDeduction = 3.25});
        database_.AddLine(1, {.bags = 20, .bagWeight = 72.875, .otherDeduction = 4.3333333333});
    }
    Read();
    ASSERT_EQ(rows_.size(), 60U);
    ExpectThatAllAddsUp();
    // The total is rounded once and is not the sum of sixty rounded rows.
    EXPECT_EQ(total_, (QStringList{"1050", "76518.75", "227.50", "76291.25"}));
    for (const Row& row : rows_)
        EXPECT_NEAR(row.cells[5].toDouble(), row.cells[3].toDouble() * 72.875, 0.0101);
}

TEST_F(SlipTable, AddsUpForSharesOfAWholeWeight) {
    for (const int lines : {3, 7, 11, 29}) {
        database_.AddArrival(1, "6001");
        for (int line = 0; line < lines; ++line) {
            const double bags = 1 + line % 5 + (line % 4) * 0.125;
            database_.AddLine(
                1,
                {.bags = bags, .bagWeight = 8117.0 / (3 * lines), .otherDeduction = 17.0 / lines});
        }
        rows_.clear();
        Read();
        ASSERT_EQ(rows_.size(), static_cast<std::size_t>(lines));
        ExpectThatAllAddsUp();
        EXPECT_EQ(total_[2], "17.00");
        database_.Run("Delete From ArrivalsBody Where ArrivalId = 1");
        database_.Run("Delete From Arrivals Where ArrivalID = 1");
    }
}

} // namespace
} // namespace Quillane::Testing
