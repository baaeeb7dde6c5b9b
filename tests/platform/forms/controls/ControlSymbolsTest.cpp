#include "platform/forms/controls/ControlSymbols.h"

#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Text.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>

namespace Quillane::Testing {
namespace {

QString AllBytes() {
    QString all;
    for (int code = 0; code < 256; ++code)
        all += QChar(code);
    return all;
}

TEST(NameOfUnseen, IsTheNameInManualsOrTheCode) {
    const std::map<int, const char*> cases{{0x00, "NUL"}, {0x02, "STX"}, {0x0A, "LF"}, {0x0D, "CR"},
                                           {0x1F, "US"},  {0x20, ""},    {'0', ""},    {0x7E, ""},
                                           {0x7F, "DEL"}, {0x80, "80"},  {0xA0, "A0"}, {0xA1, ""},
                                           {0xAD, "AD"},  {0xB0, ""},    {0xFF, ""},   {0x627, ""}};
    for (const auto& [code, name] : cases)
        EXPECT_EQ(NameOfUnseen(QChar(code)), name) << code;
}

class ControlSymbolsTest : public testing::Test {
protected:
    ControlSymbolsTest() {
        box.SetFont("Courier New", 14, false);
        box.SetControlSymbols(true);
        screen.Show();
        screen.Second.SetFocus(); // no caret in the pictures
    }

    QImage Picture(const QString& text) {
        box.SetText(FromQt(text));
        return box.Widget().grab().toImage();
    }

    TrialScreen screen;
    TextBox& box = screen.First;
};

TEST_F(ControlSymbolsTest, ShowEachByteDifferently) {
    std::map<QString, int> shown;
    for (int code = 0; code < 256; ++code) {
        const QImage image = Picture(QString("1") + QChar(code) + "2");
        const QByteArray bits(reinterpret_cast<const char*>(image.constBits()),
                              image.sizeInBytes());
        const auto [place, added] = shown.emplace(QString::fromLatin1(bits.toHex()), code);
        EXPECT_TRUE(added) << code << " looks as " << place->second;
    }
}

TEST_F(ControlSymbolsTest, DoNotChangeTheText) {
    Picture(AllBytes());
    EXPECT_EQ(box.Text(), FromQt(AllBytes()));
    EXPECT_EQ(dynamic_cast<QLineEdit&>(box.Widget()).text(), AllBytes());
    box.SetFocus();
    ScreenDriver(screen).Press(Qt::CTRL | Qt::Key_A).Press(Qt::CTRL | Qt::Key_C);
    EXPECT_EQ(QApplication::clipboard()->text(), AllBytes());
}

TEST_F(ControlSymbolsTest, AreNotShownByOtherBoxes) {
    const QImage shown = Picture("1\x02");
    box.SetControlSymbols(false);
    EXPECT_NE(Picture("1\x02"), shown);
    EXPECT_EQ(Picture("1\x02"), Picture("1\x03"));
}

/// The first and the last column in which two pictures differ.
std::pair<int, int> DifferingColumns(const QImage& one, const QImage& other) {
    int first = one.width(), last = -1;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y)) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
    return {first, last};
}

// Also at the end of a text that does not fit into the box, where the caret is.
TEST_F(ControlSymbolsTest, AreAtThePositionsOfTheirCharacters) {
    const double digit = QFontMetricsF(box.Widget().font()).horizontalAdvance('0');
    for (const int digits : {3, 1000}) {
        const QString front(digits, '7');
        const auto [first, last] =
            DifferingColumns(Picture(front + "\r\n\x02+12"), Picture(front + "   +12"));
        const QRect caret = box.Widget().inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const double end = caret.x() + caret.width() / 2.0;
        EXPECT_NEAR(first, end - 6 * digit, 2) << digits;
        EXPECT_NEAR(last, end - 3 * digit, 2) << digits;
    }
}

} // namespace
} // namespace Quillane::Testing
