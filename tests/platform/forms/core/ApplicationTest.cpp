#include "platform/forms/core/Application.h"

#include <QFont>
#include <QPalette>
#include <QStyle>

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(Application, HasTheSameLookOnEverySystem) {
    EXPECT_EQ("fusion", QApplication::style()->name().toStdString());
    EXPECT_EQ("Arial", QApplication::font().family().toStdString());
    EXPECT_EQ(11, QApplication::font().pointSize());
    const QPalette palette = QApplication::palette();
    EXPECT_EQ(QColor(Qt::white), palette.color(QPalette::Base));
    EXPECT_GT(palette.color(QPalette::Window).lightness(), 200);
    EXPECT_EQ(QColor(Qt::black), palette.color(QPalette::Text));
}

TEST(Application, DoesNotQuitWhenItsLastWindowCloses) {
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
}

} // namespace
} // namespace Quillane
