#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/Buttons.h"
#include "support/ScreenDriver.h"

#include <QLabel>
#include <QPixmap>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

TEST(Image, IsClickedWithoutTakingTheFocus) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("icon.png");
    QPixmap drawn(64, 64);
    drawn.fill(Qt::red);
    ASSERT_TRUE(drawn.save(path));

    TrialScreen screen;
    Image image(screen, "Image1");
    image.SetPicture(path.toStdString(), 32, 32);
    screen.layout()->addWidget(&image.Widget());
    int clicks = 0;
    image.Click = [&] { ++clicks; };
    screen.Show();
    screen.Taken();
    ScreenDriver(screen).Click(image);

    EXPECT_EQ(1, clicks);
    EXPECT_EQ(Events{}, screen.Taken());
    EXPECT_FALSE(image.CanTakeFocus());
    EXPECT_EQ(QSize(32, 32), image.Widget().size());
    EXPECT_FALSE(dynamic_cast<QLabel&>(image.Widget()).pixmap().isNull());
}

} // namespace
} // namespace Quillane::Testing
