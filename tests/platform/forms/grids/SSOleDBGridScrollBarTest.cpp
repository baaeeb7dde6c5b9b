#include "platform/forms/grids/SSOleDBGridTrial.h"

namespace Quillane {
namespace {

class SSOleDBGridScrollBarTest : public SSOleDBGridTest {
protected:
    /// The number of paints of the scroll bar after a change.
    template <typename Change>
    int PaintsFor(const Change& change) {
        Settle();
        Paints paints(*View().verticalScrollBar());
        change();
        Settle();
        return paints.count;
    }
};

TEST_F(SSOleDBGridScrollBarTest, IsNotPaintedIfItsSliderDoesNotMove) {
    Show(5000);
    EXPECT_EQ(PaintsFor([this] { Show(4994); }), 0);
    EXPECT_EQ(View().verticalScrollBar()->maximum(), 4994 - LinesInView());
    View().verticalScrollBar()->setValue(2500);
    EXPECT_EQ(PaintsFor([this] { View().verticalScrollBar()->setValue(2501); }), 0);
    EXPECT_EQ(Top(), 2501);
}

TEST_F(SSOleDBGridScrollBarTest, IsPaintedIfItsSliderMovesOrChangesItsLength) {
    Show(5000);
    EXPECT_EQ(PaintsFor([this] { View().verticalScrollBar()->setValue(2500); }), 1);
    EXPECT_EQ(PaintsFor([this] { Show(60); }), 1);
    EXPECT_EQ(PaintsFor([this] { Show(30); }), 1);
    EXPECT_EQ(PaintsFor([this] { Show(0); }), 1);
    EXPECT_EQ(PaintsFor([this] { Show(5000); }), 1);
}

// Its arrows may look different there.
TEST_F(SSOleDBGridScrollBarTest, IsPaintedIfItLeavesOrReachesAnEnd) {
    Show(5000);
    EXPECT_EQ(PaintsFor([this] { View().verticalScrollBar()->setValue(1); }), 1);
    EXPECT_EQ(PaintsFor([this] { View().verticalScrollBar()->setValue(2); }), 0);
    EXPECT_EQ(PaintsFor([this] { View().verticalScrollBar()->setValue(0); }), 1);
}

} // namespace
} // namespace Quillane
