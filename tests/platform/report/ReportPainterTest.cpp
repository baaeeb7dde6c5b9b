#include "platform/report/ReportPainter.h"

#include "platform/report/ReportSamples.h"
#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPdfWriter>

namespace Quillane {
namespace {

/// An A4 page at 72 dots per inch: one dot is 20 twips.
QImage Painted(const ReportPainter& painter, int page = 1) {
    QImage image(596, 842, QImage::Format_RGB32);
    image.setDotsPerMeterX(2835);
    image.setDotsPerMeterY(2835);
    image.fill(Qt::white);
    QPainter device(&image);
    painter.PaintPage(device, page);
    return image;
}

/// One object in a report header.
class OneObject : public Report {
public:
    explicit OneObject(ReportObject object) : Report(0) {
        object.Left = 1280;
        object.Top = 1280;
        Sections = {{"Header", 4000, {std::move(object)}, ReportSectionKind::ReportHeader}};
    }
    ReportObject& Object() { return Sections[0].Objects[0]; }
};

constexpr QPoint inside{150, 105}; ///< a point inside an object at 2000, 2000 twips
const QColor red(255, 0, 0);

TEST(ReportPainter, ReadsColoursWithBlueInTheHighByte) {
    OneObject report(BoxObject(2000, 1000, 0x0000FF));
    EXPECT_EQ(Painted(ReportPainter(report)).pixelColor(inside), red);
    report.Object().FillColor = 0xFF8040;
    EXPECT_EQ(Painted(ReportPainter(report)).pixelColor(inside), QColor(0x40, 0x80, 0xFF));
}

TEST(ReportPainter, PlacesByTwipsFromTheMargins) {
    OneObject report(BoxObject(2000, 1000, 0x0000FF));
    const QImage image = Painted(ReportPainter(report));
    EXPECT_EQ(image.pixelColor(101, 101), red);
    EXPECT_EQ(image.pixelColor(198, 148), red);
    EXPECT_EQ(image.pixelColor(98, 125), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(202, 125), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(150, 98), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(150, 152), QColor(Qt::white));
}

TEST(ReportPainter, UsesTheColoursAtTheTimeOfPainting) {
    OneObject report(BoxObject(2000, 1000, 0x0000FF));
    const ReportPainter painter(report);
    report.Object().FillColor = 0xFFFFFF;
    EXPECT_EQ(Painted(painter).pixelColor(inside), QColor(Qt::white));
}

TEST(ReportPainter, FillsATextObjectByItsBackColour) {
    OneObject report(TextObject("", 1000));
    EXPECT_EQ(Painted(ReportPainter(report)).pixelColor(inside), QColor(Qt::white));
    report.Object().BackColor = 0x0000FF;
    EXPECT_EQ(Painted(ReportPainter(report)).pixelColor(inside), red);
}

TEST(ReportPainter, DrawsABorderOnlyIfThereIsOne) {
    OneObject report(TextObject("", 1000));
    report.Object().BorderColor = 0;
    const QImage blank = Painted(ReportPainter(report));
    report.Object().HasBorder = true;
    const QImage framed = Painted(ReportPainter(report));
    report.Object().BorderColor = -1;
    EXPECT_NE(framed, blank);
    EXPECT_EQ(Painted(ReportPainter(report)), blank);
}

TEST(ReportPainter, WritesTexts) {
    OneObject report(TextObject(""));
    const QImage blank = Painted(ReportPainter(report));
    report.Object().text = "Wheat";
    const QImage written = Painted(ReportPainter(report));
    EXPECT_NE(written, blank);
    report.Object().TextColor = 0x0000FF;
    EXPECT_NE(Painted(ReportPainter(report)), written);
}

TEST(ReportPainter, DrawsLines) {
    ReportObject line = BoxObject(2000, 0, -1);
    line.kind = ReportObjectKind::Line;
    line.LineColor = 0;
    line.LineWidth = 80;
    OneObject report(line);
    EXPECT_EQ(Painted(ReportPainter(report)).pixelColor(150, 100), QColor(Qt::black));
}

TEST(ReportPainter, RefusesAMissingPage) {
    const Report report(0);
    const ReportPainter painter(report);
    EXPECT_EQ(painter.PageCount(), 1);
    EXPECT_THROW(Painted(painter, 0), Failure);
    EXPECT_THROW(Painted(painter, 2), Failure);
}

TEST(ReportPainter, SetsThePaperOfTheDevice) {
    RowSource source;
    QPdfWriter writer(QString::fromStdString(source.Folder() + "/paper.pdf"));
    Report report(0);
    report.PaperOrientation = 1;
    ApplyPaper(writer, report);
    EXPECT_EQ(writer.pageLayout().pageSize().id(), QPageSize::A4);
    EXPECT_EQ(writer.pageLayout().orientation(), QPageLayout::Portrait);
    EXPECT_EQ(writer.pageLayout().fullRectPoints(), QRect(0, 0, 595, 842));
    EXPECT_EQ(writer.pageLayout().paintRectPoints(), QRect(0, 0, 595, 842));
    report.PaperOrientation = 2;
    ApplyPaper(writer, report);
    EXPECT_EQ(writer.pageLayout().fullRectPoints(), QRect(0, 0, 842, 595));
}

} // namespace
} // namespace Quillane
