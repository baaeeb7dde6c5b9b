#include "platform/forms/grids/SSOleDBGridTrial.h"

#include "support/FailureOf.h"

#include <malloc.h>

#include <optional>

namespace Quillane {
namespace {

TEST_F(SSOleDBGridTest, ReportsItsTypeAndFindsItsColumnsInAnyCase) {
    EXPECT_EQ(grid.TypeName(), "SSOleDBGrid");
    const SSOleDBGrid::Column& column = grid.Columns("pARTY");
    EXPECT_EQ(column.name, "Party");
    EXPECT_EQ(column.caption, "Party Name");
    EXPECT_EQ(column.width, 3000);
    EXPECT_EQ(column.dataField, "AccountName");
    EXPECT_EQ(grid.Columns("day").format, "dd/MM/yyyy");
    EXPECT_EQ(FailureNumberOf([&] { grid.Columns("Part"); }), FailureNumber::SubscriptOutOfRange);
}

TEST_F(SSOleDBGridTest, CountsTheRowsOfItsSource) {
    EXPECT_EQ(grid.Rows(), 0);
    const auto rows = Show(3);
    EXPECT_EQ(grid.Rows(), 3);
    rows->SetFilter("ArrivalId = 2");
    EXPECT_EQ(grid.Rows(), 1);
    rows->Close();
    EXPECT_EQ(grid.Rows(), 0);
    Show(2);
    EXPECT_EQ(grid.Rows(), 2);
    grid.SetDataSource(nullptr);
    EXPECT_EQ(grid.Rows(), 0);
}

TEST_F(SSOleDBGridTest, MovesTheRecordsetWithItsCurrentLine) {
    const auto rows = Show(50);
    grid.MoveLast();
    EXPECT_EQ(rows->Position(), 49);
    EXPECT_TRUE(InView(49));
    grid.MoveFirst();
    EXPECT_EQ(rows->Position(), 0);
    EXPECT_TRUE(InView(0));
    Press(Qt::Key_Down);
    EXPECT_EQ(rows->Fields("ArrivalId").Long(), 2);
    ClickLine(4);
    EXPECT_EQ(rows->Fields("ArrivalId").Long(), 5);
}

TEST_F(SSOleDBGridTest, ScrollsTheRowThatCodeMakesCurrentIntoView) {
    const auto rows = Show(1000);
    rows->Find("ArrivalId = 500");
    EXPECT_EQ(rows->Position(), 499);
    EXPECT_TRUE(InView(499));
    Press(Qt::Key_Down);
    EXPECT_EQ(rows->Position(), 500);
    rows->MoveLast();
    EXPECT_TRUE(InView(999));
    rows->MoveFirst();
    EXPECT_EQ(Top(), 0);
    View().verticalScrollBar()->setValue(300);
    grid.MoveFirst();
    EXPECT_EQ(Top(), 0);
}

TEST_F(SSOleDBGridTest, MovesOnAnEmptyOrClosedOrMissingSourceDoNothing) {
    grid.MoveFirst();
    grid.MoveLast();
    const auto rows = Show(0);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End})
        Press(key);
    ClickLine(0);
    grid.MoveFirst();
    grid.MoveLast();
    EXPECT_TRUE(rows->Eof());
    rows->Close();
    grid.MoveLast();
    Press(Qt::Key_Down);
    ClickLine(0);
    EXPECT_EQ(rows->State(), adStateClosed);
}

TEST_F(SSOleDBGridTest, StartsAtTheCurrentRowOfANewSource) {
    const auto rows = Query(Numbered(1000));
    rows->SetPosition(400);
    grid.SetDataSource(rows);
    EXPECT_EQ(Top(), 400);
    EXPECT_EQ(rows->Position(), 400);
    Show(1000);
    EXPECT_EQ(Top(), 0);
    const auto last = Query(Numbered(1000));
    last->MoveLast();
    grid.SetDataSource(last);
    EXPECT_TRUE(InView(999));
    EXPECT_EQ(View().verticalScrollBar()->maximum(), 1000 - LinesInView());
}

TEST_F(SSOleDBGridTest, TakesARecordsetThatItsOwnerClosedAndOpenedAgain) {
    const auto rows = Show(1000);
    rows->MoveLast();
    rows->Close();
    Settle();
    EXPECT_EQ(View().verticalScrollBar()->maximum(), 0);
    rows->Open(Numbered(40), database.connection);
    grid.SetDataSource(rows);
    EXPECT_EQ(Top(), 0);
    EXPECT_EQ(grid.Rows(), 40);
    grid.MoveLast();
    EXPECT_EQ(rows->Position(), 39);
    rows->MoveFirst();
    EXPECT_EQ(Top(), 0);
}

TEST_F(SSOleDBGridTest, AdjustsToARecordsetThatItsOwnerOpenedAgain) {
    const auto rows = Show(3);
    rows->Close();
    rows->Open(Numbered(400), database.connection);
    Viewport().update();
    Settle();
    EXPECT_EQ(View().verticalScrollBar()->maximum(), 400 - LinesInView());
    *rows = Recordset();
    rows->Open(Numbered(500), database.connection);
    Viewport().update();
    Settle();
    rows->MoveLast();
    EXPECT_TRUE(InView(499));
}

TEST_F(SSOleDBGridTest, ClosedBetweenTwoKeysItShowsNoLines) {
    const auto rows = Show(10);
    Press(Qt::Key_Down);
    rows->Close();
    Press(Qt::Key_Down);
    EXPECT_EQ(grid.Rows(), 0);
    Viewport().update();
    Settle();
    EXPECT_EQ(View().accessibleDescription(), QString());
}

TEST_F(SSOleDBGridTest, ReleasesTheFormerSource) {
    const auto first = Show(100);
    const auto second = Show(100);
    EXPECT_FALSE(first->Moved);
    ASSERT_TRUE(second->Moved);
    second->MoveLast();
    const int top = Top();
    first->MoveLast();
    first->MoveFirst();
    EXPECT_EQ(Top(), top);
    grid.SetDataSource(nullptr);
    EXPECT_FALSE(second->Moved);
    EXPECT_EQ(second.use_count(), 1);
}

TEST_F(SSOleDBGridTest, ReleasesItsSourceWhenItIsDestroyed) {
    const auto rows = Query(Numbered(10));
    {
        SearchScreen other;
        other.Grid.SetDataSource(rows);
        EXPECT_TRUE(rows->Moved);
    }
    EXPECT_FALSE(rows->Moved);
    rows->MoveLast();
}

TEST_F(SSOleDBGridTest, SourceBelongsToTheLastGrid) {
    const auto rows = Show(1000);
    SearchScreen other;
    other.Grid.SetDataSource(rows);
    grid.SetDataSource(nullptr);
    EXPECT_TRUE(rows->Moved);
}

TEST_F(SSOleDBGridTest, KeepsTheCurrentLineInViewAsItsSizeChanges) {
    const auto rows = Show(1000);
    rows->SetPosition(LinesInView() - 1);
    EXPECT_EQ(Top(), 0);
    View().resize(600, 150);
    EXPECT_TRUE(InView(rows->Position()));
    // A current line that was scrolled out of view stays there.
    View().verticalScrollBar()->setValue(300);
    View().resize(600, 300);
    EXPECT_EQ(Top(), 300);
}

TEST_F(SSOleDBGridTest, PaintsOnceForANewSource) {
    Show(10);
    Paints paints(Viewport());
    for (const int count : {1000, 0, 20}) {
        paints.count = 0;
        const auto rows = Query(Numbered(count));
        grid.SetDataSource(rows);
        grid.Columns("ID").dataField = "ArrivalId";
        grid.Columns("Party").dataField = "AccountName";
        Settle();
        EXPECT_EQ(paints.count, 1) << count;
    }
}

std::size_t BytesInUse() {
    return mallinfo2().uordblks;
}

TEST_F(SSOleDBGridTest, AllocatesNoMemoryForItsRows) {
    Show(50);
    const auto rows = Query(Numbered(100'000));
    const std::size_t before = BytesInUse();
    grid.SetDataSource(rows);
    Settle();
    grid.MoveLast();
    Settle();
    for (int page = 0; page < 20; ++page)
        Press(Qt::Key_PageUp);
    Settle();
    const std::size_t after = BytesInUse();
    // Less than one byte for each row.
    EXPECT_LT(after, before + 100'000);
    EXPECT_LT(rows->Position(), 99'999);
}

TEST_F(SSOleDBGridTest, IsDescribedByItsCurrentLine) {
    const auto described = [this] { return FromQt(View().accessibleDescription()); };
    grid.SetAccessibleName("Arrivals found");
    EXPECT_EQ(View().accessibleName(), "Arrivals found");
    const auto rows = Show(3);
    EXPECT_EQ(described(), "No. 1, Arrival Date 20/11/2026, Party Name Party 1");
    Press(Qt::Key_Down);
    Settle();
    EXPECT_EQ(described(), "No. 2, Arrival Date 20/11/2026, Party Name Party 2");
    rows->SetPosition(3);
    Settle();
    EXPECT_EQ(described(), "");
}

} // namespace
} // namespace Quillane
