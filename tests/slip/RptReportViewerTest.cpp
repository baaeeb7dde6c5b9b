#include "slip/RptReportViewer.h"

#include "platform/forms/core/Pointer.h"
#include "platform/report/ReportPainter.h"
#include "platform/runtime/Failure.h"
#include "slip/CrpCottonWeighment.h"
#include "slip/SlipDatabase.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>

namespace Quillane {
namespace {

using Testing::RunModal;
using Testing::ScreenDriver;

ReportObject ObjectOf(ReportObjectKind kind) {
    ReportObject object;
    object.kind = kind;
    object.Top = 100;
    object.BackColor = 1;
    object.BorderColor = 2;
    object.FillColor = 3;
    object.LineColor = 4;
    return object;
}

std::unique_ptr<Report> OneOfEachKind(const char* section = "Any") {
    auto report = std::make_unique<Report>(0);
    report->Sections = {{section,
                         1000,
                         {ObjectOf(ReportObjectKind::Field), ObjectOf(ReportObjectKind::Text),
                          ObjectOf(ReportObjectKind::Box), ObjectOf(ReportObjectKind::Line)},
                         ReportSectionKind::ReportHeader}};
    return report;
}

using Colours = std::vector<int>;

/// BackColor, BorderColor, FillColor and Top of each object.
std::vector<Colours> ColoursOf(const Report& report) {
    std::vector<Colours> colours;
    for (const ReportSection& section : report.Sections) {
        for (const ReportObject& object : section.Objects)
            colours.push_back({object.BackColor, object.BorderColor, object.FillColor, object.Top});
    }
    return colours;
}

class RptReportViewerTest : public testing::Test {
protected:
    void FillWithSlip() {
        viewer_.Report = std::make_unique<CrpCottonWeighment>();
        FillSlip(*viewer_.Report, SampleContent(database_.RowsOf(1042)));
    }
    QPrintPreviewWidget& Preview() {
        return *viewer_.CRViewer91.Widget().findChild<QPrintPreviewWidget*>();
    }

    SlipDatabase database_;
    RptReportViewer viewer_;
};

TEST_F(RptReportViewerTest, OpensWithNetWeightAndMoundsInView) {
    FillWithSlip();
    std::vector<std::string> shown;
    for (const ReportSection& section : viewer_.Report->Sections)
        for (const ReportObject& object : section.Objects)
            if (object.ShowAtOpening)
                shown.push_back(object.field.name + std::to_string(object.field.parameter));
    // Each with its font size for one weighing and for two.
    EXPECT_EQ(shown, (std::vector<std::string>{"Net0", "Net0", "5", "5"}));
}

TEST_F(RptReportViewerTest, OpensMaximizedOnThePageWidth) {
    FillWithSlip();
    bool shown = false;
    RunModal(viewer_, [&](Screen& screen) {
        shown = true;
        EXPECT_EQ(screen.windowTitle(), "Previewing Report");
        EXPECT_TRUE(screen.isMaximized());
        EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
        EXPECT_EQ(viewer_.CRViewer91.PageCount(), 1);
        EXPECT_EQ(Preview().zoomMode(), QPrintPreviewWidget::FitToWidth);
        screen.Unload();
    });
    EXPECT_TRUE(shown);
}

TEST_F(RptReportViewerTest, DrawsTheReportUnderTheHourglass) {
    FillWithSlip();
    MousePointer seen = MousePointer::Default;
    viewer_.Report->Sections[0].Objects.push_back(viewer_.Report->Sections[2].Objects[0]);
    viewer_.Report->Sections[0].Objects.back().field.formula = [&](const ReportContext&) {
        seen = CurrentMousePointer();
        return std::string();
    };
    viewer_.Load();
    EXPECT_EQ(seen, MousePointer::Hourglass);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(RptReportViewerTest, PropagatesAFailureOfTheReport) {
    FillWithSlip();
    auto rows = std::make_shared<Recordset>();
    rows->Open("Select 1 As Other", database_.connection);
    viewer_.Report->Database.SetDataSource(rows, 3, 1);
    EXPECT_THROW(viewer_.ShowModal(), Failure);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    FillWithSlip();
    viewer_.Load();
    EXPECT_EQ(viewer_.CRViewer91.PageCount(), 1);
}

TEST_F(RptReportViewerTest, FailsWithoutAReport) {
    EXPECT_THROW(viewer_.Load(), Failure);
}

TEST_F(RptReportViewerTest, FillsTheScreenAtEverySize) {
    FillWithSlip();
    viewer_.Load();
    for (const QSize size : {QSize(1280, 800), QSize(640, 480), QSize(90, 40)}) {
        viewer_.setWindowState(Qt::WindowNoState);
        viewer_.Show();
        viewer_.resize(size);
        EXPECT_EQ(viewer_.size(), size);
        EXPECT_EQ(viewer_.CRViewer91.Widget().geometry(), QRect(QPoint(0, 0), size));
    }
    viewer_.Unload();
}

TEST_F(RptReportViewerTest, MovesItsViewerToTheCornerWhenResized) {
    FillWithSlip();
    viewer_.Load();
    viewer_.CRViewer91.SetTop(7);
    viewer_.CRViewer91.SetLeft(9);
    viewer_.setWindowState(Qt::WindowNoState);
    viewer_.Show();
    viewer_.resize(640, 480);
    EXPECT_EQ(viewer_.CRViewer91.Top(), 0);
    EXPECT_EQ(viewer_.CRViewer91.Left(), 0);
    viewer_.Unload();
}

TEST_F(RptReportViewerTest, ClosesByItsKeysAndItsButton) {
    for (const QKeyCombination key : {QKeyCombination(Qt::Key_Escape), Qt::CTRL | Qt::Key_Q}) {
        FillWithSlip();
        RunModal(viewer_, [&](Screen& screen) {
            ScreenDriver(screen).Press(key);
            EXPECT_FALSE(screen.IsLoaded());
        });
    }
    FillWithSlip();
    RunModal(viewer_, [&](Screen& screen) {
        viewer_.CRViewer91.CloseButtonClicked();
        EXPECT_FALSE(screen.IsLoaded());
    });
}

TEST_F(RptReportViewerTest, GivesTheFocusToThePages) {
    FillWithSlip();
    RunModal(viewer_, [&](Screen& screen) {
        EXPECT_EQ(screen.ActiveControlName(), "CRViewer91");
        screen.Unload();
    });
}

TEST_F(RptReportViewerTest, RemovesTheColours) {
    viewer_.Report = OneOfEachKind();
    const std::vector<Colours> stripped{
        {-1, 0, 3, 100}, {-1, 0, 3, 100}, {1, 2, 16777215, 100}, {1, 2, 3, 100}};
    viewer_.RemoveObjectColors();
    EXPECT_EQ(ColoursOf(*viewer_.Report), stripped);
    viewer_.RemoveObjectColors();
    EXPECT_EQ(ColoursOf(*viewer_.Report), stripped);
}

TEST_F(RptReportViewerTest, PrintsAReportWithoutSections) {
    viewer_.Report = std::make_unique<Report>(0);
    viewer_.RemoveObjectColors();
    viewer_.SetBorderColor();
    EXPECT_TRUE(viewer_.Report->Sections.empty());
    viewer_.Report->Sections.push_back({"Empty", 100, {}, {}});
    viewer_.RemoveObjectColors();
    viewer_.Load();
    EXPECT_TRUE(viewer_.CRViewer91.SavePdf(database_.Folder() + "/empty.pdf"));
    EXPECT_TRUE(std::filesystem::exists(database_.Folder() + "/empty.pdf"));
}

TEST_F(RptReportViewerTest, ColoursBorders) {
    viewer_.Report = OneOfEachKind();
    viewer_.SetBorderColor();
    EXPECT_EQ(ColoursOf(*viewer_.Report),
              (std::vector<Colours>{
                  {1, 5222503, 3, 100}, {1, 5222503, 3, 100}, {1, 2, 3, 100}, {1, 2, 3, 100}}));
}

TEST_F(RptReportViewerTest, MovesTheObjectsOfOneSectionToItsTop) {
    viewer_.Report = OneOfEachKind("TSection5");
    viewer_.SetBorderColor();
    EXPECT_EQ(ColoursOf(*viewer_.Report), (std::vector<Colours>{{14547931, 5222503, 3, 0},
                                                                {14547931, 5222503, 3, 0},
                                                                {14547931, 2, 3, 0},
                                                                {14547931, 2, 3, 0}}));
}

TEST_F(RptReportViewerTest, KeepsThePositionsWhenTheBordersAreColoured) {
    FillWithSlip();
    const auto before = ColoursOf(*viewer_.Report);
    viewer_.SetBorderColor();
    const auto after = ColoursOf(*viewer_.Report);
    for (std::size_t object = 0; object < before.size(); ++object) {
        EXPECT_EQ(after[object][0], before[object][0]);
        EXPECT_EQ(after[object][3], before[object][3]);
    }
}

/// True if the title or the weights have a fill colour, checked at points without text.
bool HasFills(const Report& report) {
    QImage image(595, 842, QImage::Format_RGB32);
    image.setDotsPerMeterX(2835);
    image.setDotsPerMeterY(2835);
    image.fill(Qt::white);
    QPainter painter(&image);
    ReportPainter(report).PaintPage(painter, 1);
    painter.end();
    for (const QPoint point : {QPoint(60, 122), QPoint(400, 295)}) {
        if (image.pixelColor(point) != QColor(Qt::white))
            return true;
    }
    return false;
}

TEST_F(RptReportViewerTest, RemovesTheColoursBeforePrinting) {
    FillWithSlip();
    viewer_.Load();
    EXPECT_TRUE(HasFills(*viewer_.Report));
    viewer_.CRViewer91.PrinterInstalled = [] { return true; };
    viewer_.CRViewer91.ChoosePrinter = [&](QPrinter& printer) {
        EXPECT_FALSE(HasFills(*viewer_.Report));
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(database_.Folder() + "/paper.pdf"));
        return true;
    };
    viewer_.CRViewer91.PrintReport();
    viewer_.CRViewer91.PrintReport();
    EXPECT_FALSE(HasFills(*viewer_.Report));
    EXPECT_TRUE(std::filesystem::exists(database_.Folder() + "/paper.pdf"));
}

TEST_F(RptReportViewerTest, RemovesTheColoursBeforeSaving) {
    FillWithSlip();
    viewer_.Load();
    EXPECT_TRUE(viewer_.CRViewer91.SavePdf(database_.Folder() + "/slip.pdf"));
    EXPECT_FALSE(HasFills(*viewer_.Report));
}

TEST_F(RptReportViewerTest, ReleasesItsReportWhenItCloses) {
    FillWithSlip();
    RunModal(viewer_, [&](Screen& screen) {
        EXPECT_TRUE(viewer_.CRViewer91.SavePdf(database_.Folder() + "/open.pdf"));
        screen.Unload();
    });
    ASSERT_NE(viewer_.Report, nullptr);
    EXPECT_FALSE(viewer_.CRViewer91.SavePdf(database_.Folder() + "/closed.pdf"));
    EXPECT_FALSE(std::filesystem::exists(database_.Folder() + "/closed.pdf"));
}

TEST_F(RptReportViewerTest, UsesANewReportForEachSlip) {
    FillWithSlip();
    RunModal(viewer_, [](Screen& screen) { screen.Unload(); });
    viewer_.Report = OneOfEachKind();
    RunModal(viewer_, [&](Screen& screen) {
        EXPECT_EQ(viewer_.CRViewer91.PageCount(), 1);
        screen.Unload();
    });
}

} // namespace
} // namespace Quillane
