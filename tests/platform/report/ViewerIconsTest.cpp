#include "platform/report/ViewerIcons.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

#include <vector>

namespace Quillane {
namespace {

TEST(ViewerIcons, DifferFromEachOtherAndWhenDisabled) {
    std::vector<QImage> seen;
    for (int number = 0; number <= static_cast<int>(ViewerIcon::Close); ++number) {
        const QIcon icon = IconOf(static_cast<ViewerIcon>(number));
        for (const auto mode : {QIcon::Normal, QIcon::Disabled}) {
            const QImage image = icon.pixmap(QSize(24, 20), 1.0, mode).toImage();
            for (const QImage& other : seen)
                EXPECT_NE(image, other) << number;
            seen.push_back(image);
        }
    }
    EXPECT_EQ(seen.size(), 22U);
}

TEST(ViewerIcons, AreSharpAtEveryScaleFactor) {
    for (const double scale : {1.0, 2.0, 3.0})
        EXPECT_EQ(IconOf(ViewerIcon::Print).pixmap(QSize(24, 20), scale).width(), 24 * scale);
}

} // namespace
} // namespace Quillane
