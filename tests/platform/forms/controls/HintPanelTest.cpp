#include "platform/forms/controls/HintPanel.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QEventLoop>
#include <QImage>
#include <QTimer>

namespace Quillane::Testing {
namespace {

using Kind = HintPanel::Kind;

class HintPanelTest : public testing::Test {
protected:
    HintPanelTest() {
        panel.Source = [this] { return said; };
        panel.Answered = [this] { ++answers; };
        panel.resize(370, 140);
    }
    void Say(std::vector<HintPanel::Line> lines) {
        said = std::move(lines);
        panel.Refresh();
    }
    /// The lines of pixels that differ from the first one inside the panel.
    int PaintedLines() {
        const QImage picture = panel.grab().toImage();
        const QColor paper = picture.pixelColor(5, 5);
        int painted = 0;
        for (int y = 2; y < picture.height() - 2; ++y)
            for (int x = 5; x < picture.width() - 5; ++x)
                if (picture.pixelColor(x, y) != paper) {
                    ++painted;
                    break;
                }
        return painted;
    }

    HintPanel panel;
    std::vector<HintPanel::Line> said;
    int answers = 0;
};

TEST_F(HintPanelTest, PaintsItsLines) {
    Say({{Kind::Plain, "Ready to save."}});
    const int one = PaintedLines();
    EXPECT_GT(one, 5);
    Say({{Kind::Plain, "Ready to save."}, {Kind::Keys, "Ctrl+S save"}});
    EXPECT_GT(PaintedLines(), one);
}

TEST_F(HintPanelTest, LeavesOutTheLastLinesIfTheyDoNotFit) {
    Say({{Kind::Answer, "Save or clear first."}});
    const QImage answer = panel.grab(QRect(0, 0, 370, 40)).toImage();
    panel.resize(370, 40);
    Say({{Kind::Answer, "Save or clear first."}, {Kind::Keys, "Ctrl+S save"}});
    EXPECT_EQ(panel.grab(QRect(4, 4, 362, 30)).toImage(), answer.copy(4, 4, 362, 30));
}

TEST_F(HintPanelTest, PaintsNothingWithoutSpaceForALine) {
    panel.resize(370, 20);
    const QImage blank = panel.grab().toImage();
    Say({{Kind::Plain, "Ready to save."}});
    EXPECT_EQ(panel.grab().toImage(), blank);
}

TEST_F(HintPanelTest, TakesNoFocusAndNoPress) {
    EXPECT_EQ(panel.focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(panel.testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(panel.sizeHint(), QSize(0, 0));
}

TEST_F(HintPanelTest, ReportsAnAnswerOnlyWhenItChanges) {
    Say({{Kind::Note, "The date is not today."}, {Kind::Plain, "Ready to save."}});
    EXPECT_EQ(answers, 0);
    Say({{Kind::Answer, "Save or clear first."}, {Kind::Plain, "Ready to save."}});
    Say({{Kind::Answer, "Save or clear first."}, {Kind::Plain, "Still needed: Seller."}});
    Say({{Kind::Plain, "Still needed: Seller."}});
    EXPECT_EQ(answers, 1);
    Say({{Kind::Answer, "Whole kilograms only."}});
    Say({{Kind::Answer, "Save or clear first."}});
    EXPECT_EQ(answers, 3);
}

TEST_F(HintPanelTest, ReadsAllItsLinesToAScreenReaderOnRequest) {
    Say({{Kind::Answer, "Save or clear first."}, {Kind::Plain, "Ready to save."}});
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(&panel);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->role(), QAccessible::Notification) << "spoken when it is shown";
    EXPECT_EQ(read->text(QAccessible::Name), "Save or clear first.");
    EXPECT_EQ(read->text(QAccessible::Description), "Save or clear first.\nReady to save.");
}

TEST_F(HintPanelTest, FollowsItsSourceWhileItIsShown) {
    panel.show();
    said = {{Kind::Plain, "Ready to save."}};
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(panel.Lines(), said);
}

} // namespace
} // namespace Quillane::Testing
