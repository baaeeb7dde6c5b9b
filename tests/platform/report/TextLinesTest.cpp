#include "platform/report/TextLines.h"

#include "platform/report/ReportSamples.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

const QString longText = QStringLiteral("Messrs. Abdul Rehman Muhammad Siddique and Sons");

TEST(TextLines, DoesNotChangeATextThatFits) {
    const TextLines lines(TextObject({}), QStringLiteral("Wheat"));
    EXPECT_EQ(lines.LineCount(), 1);
    EXPECT_EQ(lines.Size(), 180);
    EXPECT_EQ(lines.NeededHeight(), 300);
}

TEST(TextLines, ShrinksATextThatIsTooWide) {
    const TextLines lines(TextObject({}), longText);
    EXPECT_EQ(lines.LineCount(), 1);
    EXPECT_EQ(lines.Text(), longText);
    EXPECT_LT(lines.Size(), 180);
    EXPECT_EQ(lines.NeededHeight(), 300);
}

TEST(TextLines, CutsATextThatWouldBeTooSmallToRead) {
    const TextLines lines(TextObject({}), longText + longText + longText);
    EXPECT_EQ(lines.LineCount(), 1);
    EXPECT_EQ(lines.Size(), 99);
    EXPECT_TRUE(lines.Text().endsWith(u'…'));
    EXPECT_TRUE(lines.Text().startsWith(QStringLiteral("Messrs. Abdul")));
}

TEST(TextLines, WrapsATextThatMayGrow) {
    ReportObject object = TextObject({});
    object.CanGrow = true;
    const TextLines lines(object, longText);
    EXPECT_GT(lines.LineCount(), 1);
    EXPECT_EQ(lines.Text(), longText);
    EXPECT_EQ(lines.Size(), 180);
    EXPECT_GT(lines.NeededHeight(), 300);
}

TEST(TextLines, WrapsAWordThatIsWiderThanTheObject) {
    ReportObject object = TextObject({});
    object.CanGrow = true;
    EXPECT_GT(TextLines(object, QString(100, u'W')).LineCount(), 2);
}

TEST(TextLines, AcceptsAllLineEnds) {
    ReportObject object = TextObject({});
    const QString text = QStringLiteral("one\r\ntwo");
    EXPECT_EQ(TextLines(object, text).LineCount(), 1);
    object.CanGrow = true;
    EXPECT_EQ(TextLines(object, text).LineCount(), 2);
}

TEST(TextLines, SubtractsTheInsetFromTheWidth) {
    ReportObject object = TextObject({});
    const QString text = QStringLiteral("Polypropylene 50 kg, new, sewn");
    ASSERT_EQ(TextLines(object, text).Size(), 180);
    object.Inset = 500;
    EXPECT_LT(TextLines(object, text).Size(), 180);
}

} // namespace
} // namespace Quillane
