#include "office/daybook/TableModels.h"

#include "office/daybook/DayBookDatabase.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

class DayBookModels : public testing::Test {
protected:
    std::shared_ptr<DayBook> Read() {
        auto book = std::make_shared<DayBook>(database.connection, Year2024());
        while (book->ReadOn()) {
        }
        return book;
    }
    void AddPages(int pages) {
        database.Together([&] {
            for (int id = 0; id < pages * DayBook::PageRows; ++id)
                database.AddArrival(20000 + id, "2024-05-01", "6010001", 1, {});
        });
    }

    DayBookDatabase database;
    ArrivalsModel model;
};

TEST_F(DayBookModels, AllRowsAreShownWithFewInMemory) {
    constexpr int pages = 6;
    AddPages(pages);
    model.Show(Read());
    ASSERT_EQ(model.rowCount(), pages * DayBook::PageRows);
    for (int row = 0; row < model.rowCount(); ++row)
        ASSERT_EQ(model.index(row, 0).data().toString(), QString::number(20000 + row));
    EXPECT_LE(model.RowsHeld(), 4U * DayBook::PageRows);
    EXPECT_EQ(model.index(0, 0).data().toString(), "20000");
}

TEST_F(DayBookModels, UnitsAreInTheHeadingsAndNumbersAreRightAligned) {
    constexpr int tare = 8;
    EXPECT_EQ(model.headerData(tare, Qt::Horizontal, Qt::DisplayRole).toString(), "Tare (kg)");
    EXPECT_EQ(model.headerData(tare, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignRight | Qt::AlignVCenter));
    database.AddLoad(20001, "2024-05-01", 8000, 4000, 7990);
    model.Show(Read());
    EXPECT_EQ(model.index(0, tare).data().toString(), "4,000");
    EXPECT_EQ(model.index(0, tare).data(Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignRight | Qt::AlignVCenter));
}

TEST_F(DayBookModels, RemovedArrivalsLeaveBlankRows) {
    database.AddLoad(20001, "2024-05-01", 8000, 4000, 7990);
    database.AddLoad(20002, "2024-05-01", 8000, 4000, 7990);
    model.Show(Read());
    database.Run("Delete From ArrivalsBody Where ArrivalId = 20001; "
                 "Delete From Arrivals Where ArrivalID = 20001");
    EXPECT_EQ(model.index(0, 0).data().toString(), "20002");
    EXPECT_FALSE(model.index(1, 0).data().isValid());
}

TEST_F(DayBookModels, PageThatCannotBeReadIsReportedOnceAndIsBlank) {
    database.AddLoad(20001, "2024-05-01", 8000, 4000, 7990);
    std::vector<std::string> failures;
    model.Failed = [&](const std::string& reason) { failures.push_back(reason); };
    model.Show(Read());
    database.Rename("ArrivalsBody", "ArrivalsBodyAway");
    EXPECT_FALSE(model.index(0, 0).data().isValid());
    EXPECT_FALSE(model.index(0, 1).data().isValid());
    EXPECT_EQ(failures.size(), 1U);
    database.Rename("ArrivalsBodyAway", "ArrivalsBody");
}

} // namespace
} // namespace Quillane::Office
