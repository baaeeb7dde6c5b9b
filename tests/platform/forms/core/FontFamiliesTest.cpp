#include "platform/forms/core/FontFamilies.h"

#include <QApplication>
#include <QFontInfo>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace Quillane {
namespace {

QList<QGlyphRun> Drawn(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    return layout.glyphRuns();
}

TEST(FontFamilies, BeginWithTheNamedOne) {
    for (const char* name : {"Arial", "Liberation Serif", "no font of this name"}) {
        const QFont font(FontFamilies(name), 11);
        EXPECT_EQ(font.family(), name);
        EXPECT_EQ(QFontInfo(font).family(), QFontInfo(QFont(name)).family()) << name;
    }
}

TEST(FontFamilies, HaveEveryLetterOfUrduInOneFont) {
    const QFont font(FontFamilies("Arial"), 11);
    for (const char* word :
         {"ابپتٹثجچحخدڈذرڑزژسشصضطظعغفقکگلمنںوہھءیے", "لاہور", "چوہدری", "ؤئۓآ"}) {
        const QList<QGlyphRun> runs = Drawn(QString::fromUtf8(word), font);
        ASSERT_EQ(runs.size(), 1) << word;
        EXPECT_FALSE(runs.front().glyphIndexes().contains(0)) << word;
    }
}

TEST(FontFamilies, LeaveLatinLettersToTheNamedOne) {
    const QList<QGlyphRun> runs = Drawn("LEB-4217 é", QFont(FontFamilies("Arial"), 11));
    ASSERT_EQ(runs.size(), 1);
    EXPECT_EQ(runs.front().rawFont().familyName(), QFontInfo(QFont("Arial")).family());
}

} // namespace
} // namespace Quillane
