#include "platform/report/CRViewer9.h"

#include "platform/report/ReportSamples.h"
#include "platform/report/ViewerScreen.h"
#include "platform/runtime/Failure.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QGraphicsView>
#include <QPrintPreviewWidget>
#include <QScrollBar>
#include <QToolButton>

namespace Quillane {
namespace {

using Testing::ScreenDriver;

class CRViewer9Test : public testing::Test {
protected:
    void View(int rows) {
        report_ = std::make_unique<ListReport>(source_.Numbers(rows));
        screen_.Viewer.SetReportSource(*report_);
        screen_.Viewer.ViewReport();
        screen_.Show();
    }
    void ShowOnALowDisplay(Report& report) {
        screen_.resize(1280, 690);
        screen_.Viewer.SetReportSource(report);
        screen_.Viewer.ViewReport();
        screen_.Viewer.Zoom(1);
        screen_.Show();
    }
    QPrintPreviewWidget& Preview() {
        return *screen_.Viewer.Widget().findChild<QPrintPreviewWidget*>();
    }
    QScrollBar& Scroll() { return *Preview().findChild<QGraphicsView*>()->verticalScrollBar(); }
    QToolButton& Button(const char* name) {
        for (QToolButton* button : screen_.Viewer.Widget().findChildren<QToolButton*>()) {
            if (button->accessibleName() == QLatin1String(name))
                return *button;
        }
        throw std::runtime_error(name);
    }

    RowSource source_;
    ViewerScreen screen_;
    std::unique_ptr<ListReport> report_;
};

TEST_F(CRViewer9Test, DrawsThePagesOfItsReport) {
    View(25);
    EXPECT_EQ(screen_.Viewer.PageCount(), 3);
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 1);
}

TEST_F(CRViewer9Test, ShowsAReportWithoutSections) {
    Report empty(0);
    screen_.Viewer.SetReportSource(empty);
    screen_.Viewer.ViewReport();
    EXPECT_EQ(screen_.Viewer.PageCount(), 1);
}

TEST_F(CRViewer9Test, FailsWithoutAReport) {
    EXPECT_THROW(screen_.Viewer.ViewReport(), Failure);
    View(1);
    screen_.Viewer.ClearReportSource();
    EXPECT_THROW(screen_.Viewer.ViewReport(), Failure);
}

TEST_F(CRViewer9Test, PropagatesAFailureOfTheReport) {
    ListReport report(source_.Query("Select 1 As other"));
    screen_.Viewer.SetReportSource(report);
    try {
        screen_.Viewer.ViewReport();
        FAIL() << "the column n is missing";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::ItemNotFound);
    }
    View(1);
    EXPECT_EQ(screen_.Viewer.PageCount(), 1);
}

TEST_F(CRViewer9Test, HasItsZoomLevels) {
    View(1);
    screen_.Viewer.Zoom(1);
    EXPECT_EQ(Preview().zoomMode(), QPrintPreviewWidget::FitToWidth);
    screen_.Viewer.Zoom(2);
    EXPECT_EQ(Preview().zoomMode(), QPrintPreviewWidget::FitInView);
    for (const int percent : {25, 100, 400}) {
        screen_.Viewer.Zoom(percent);
        EXPECT_EQ(Preview().zoomMode(), QPrintPreviewWidget::CustomZoom);
        EXPECT_NEAR(Preview().zoomFactor(), percent / 100.0, 0.001);
    }
    for (const int level : {-1, 0, 3, 24, 401})
        EXPECT_THROW(screen_.Viewer.Zoom(level), Failure) << level;
}

TEST_F(CRViewer9Test, TakesTheGivenPosition) {
    screen_.Viewer.SetTop(3);
    screen_.Viewer.SetLeft(4);
    screen_.Viewer.SetHeight(120);
    screen_.Viewer.SetWidth(160);
    EXPECT_EQ(screen_.Viewer.Widget().geometry(), QRect(4, 3, 160, 120));
    screen_.Viewer.SetWidth(1);
    screen_.Viewer.SetHeight(1);
    EXPECT_EQ(screen_.Viewer.Width(), 1);
    EXPECT_EQ(screen_.Viewer.Height(), 1);
}

TEST_F(CRViewer9Test, PagesByKeys) {
    View(25);
    ScreenDriver driver(screen_);
    screen_.Viewer.SetFocus();
    const std::pair<QKeyCombination, int> moves[] = {
        {Qt::CTRL | Qt::Key_PageDown, 2}, {Qt::CTRL | Qt::Key_End, 3},
        {Qt::CTRL | Qt::Key_PageDown, 3}, {Qt::CTRL | Qt::Key_PageUp, 2},
        {Qt::CTRL | Qt::Key_Home, 1},     {Qt::CTRL | Qt::Key_PageUp, 1}};
    for (const auto& [key, page] : moves) {
        driver.Press(key);
        EXPECT_EQ(screen_.Viewer.CurrentPage(), page) << key.toCombined();
    }
}

TEST_F(CRViewer9Test, ScrollsByScreenfulsThroughThePages) {
    View(25);
    ScreenDriver driver(screen_);
    screen_.Viewer.SetFocus();
    screen_.Viewer.Zoom(1);
    const int top = Scroll().value();
    driver.Press(Qt::Key_PageDown);
    EXPECT_EQ(Scroll().value(), top + Scroll().pageStep());
    for (int press = 0; press < 5; ++press)
        driver.Press(Qt::Key_PageDown);
    EXPECT_EQ(Scroll().value(), Scroll().maximum());
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 3);
    for (int press = 0; press < 6; ++press)
        driver.Press(Qt::Key_PageUp);
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 1);
}

TEST_F(CRViewer9Test, StaysAtTheTopUntilTheOperatorScrolls) {
    const auto isAtTop = [this] { return Scroll().value() == Scroll().minimum(); };
    View(25);
    screen_.Viewer.Zoom(1);
    for (const QSize size : {QSize(700, 500), QSize(1200, 900)}) {
        screen_.resize(size);
        EXPECT_TRUE(Testing::WaitFor(isAtTop));
    }
    ScreenDriver driver(screen_);
    screen_.Viewer.SetFocus();
    driver.Press(Qt::Key_PageDown);
    EXPECT_FALSE(isAtTop());
    screen_.resize(900, 600);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isAtTop());
    screen_.Viewer.ViewReport();
    EXPECT_TRUE(isAtTop());
}

TEST_F(CRViewer9Test, TurnsWholePages) {
    View(25);
    ScreenDriver driver(screen_);
    screen_.Viewer.SetFocus();
    screen_.Viewer.Zoom(2);
    driver.Press(Qt::Key_PageDown);
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 2);
    driver.Press(Qt::Key_PageUp);
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 1);
}

TEST_F(CRViewer9Test, EnablesPagingOnlyIfThereIsAPage) {
    View(25);
    EXPECT_FALSE(Button("First page").isEnabled());
    EXPECT_FALSE(Button("Previous page").isEnabled());
    Button("Last page").click();
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 3);
    EXPECT_FALSE(Button("Next page").isEnabled());
    EXPECT_FALSE(Button("Last page").isEnabled());
    Button("Previous page").click();
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 2);
    Button("First page").click();
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 1);
}

TEST_F(CRViewer9Test, ZoomsInSteps) {
    View(1);
    screen_.Viewer.Zoom(100);
    Button("Zoom in").click();
    EXPECT_NEAR(Preview().zoomFactor(), 1.25, 0.001);
    Button("Zoom out").click();
    Button("Zoom out").click();
    EXPECT_NEAR(Preview().zoomFactor(), 0.75, 0.001);
    screen_.Viewer.Zoom(400);
    Button("Zoom in").click();
    EXPECT_NEAR(Preview().zoomFactor(), 4.0, 0.001);
    screen_.Viewer.Zoom(25);
    Button("Zoom out").click();
    EXPECT_NEAR(Preview().zoomFactor(), 0.25, 0.001);
    Button("Fit to page width").click();
    EXPECT_EQ(Preview().zoomMode(), QPrintPreviewWidget::FitToWidth);
    Button("Show the whole page").click();
    EXPECT_EQ(Preview().zoomMode(), QPrintPreviewWidget::FitInView);
}

TEST_F(CRViewer9Test, EveryButtonHasANameAndShowsItsKey) {
    const std::pair<const char*, const char*> keys[] = {{"First page", "Ctrl+Home"},
                                                        {"Previous page", "Ctrl+PgUp"},
                                                        {"Next page", "Ctrl+PgDown"},
                                                        {"Last page", "Ctrl+End"},
                                                        {"Zoom out", "Ctrl+-"},
                                                        {"Zoom in", "Ctrl++"},
                                                        {"Fit to page width", "Ctrl+1"},
                                                        {"Show the whole page", "Ctrl+2"},
                                                        {"Print", "Ctrl+P"},
                                                        {"Save as PDF", "Ctrl+S"},
                                                        {"Close the preview (Esc)", "Esc"}};
    for (const auto& [name, key] : keys)
        EXPECT_TRUE(Button(name).toolTip().contains(QLatin1String(key))) << name;
    EXPECT_EQ(screen_.Viewer.Widget().accessibleName(), "Report preview");
    EXPECT_FALSE(screen_.Viewer.FocusWidget().accessibleName().isEmpty());
}

/// The lines of a picture that contain red, from the top.
std::vector<int> RedLines(const QImage& picture) {
    std::vector<int> lines;
    for (int y = 0; y < picture.height(); ++y)
        if (picture.pixelColor(picture.width() / 2, y) == QColor(Qt::red))
            lines.push_back(y);
    return lines;
}

/// A page with one text on a red background at this distance from the top.
std::unique_ptr<Report> RedTextAt(int top, bool shownAtOpening) {
    ReportObject text;
    text.Top = top;
    text.Width = 11906 - 1440;
    text.Height = 600;
    text.BackColor = 0x0000FF;
    text.text = "8203";
    text.ShowAtOpening = shownAtOpening;
    auto report = std::make_unique<Report>(0);
    report->Sections = {{"Page", 12000, {text}, ReportSectionKind::ReportHeader}};
    return report;
}

TEST_F(CRViewer9Test, OpensWithTheMarkedTextInViewOnALowDisplay) {
    const auto seen = [this] {
        const auto& view = *Preview().findChild<QGraphicsView*>();
        const QImage picture = view.viewport()->grab().toImage();
        const std::vector<int> lines = RedLines(picture);
        return lines.size() > 30 && lines.back() < picture.height() - 1;
    };
    for (const bool shownAtOpening : {true, false}) {
        const auto report = RedTextAt(8000, shownAtOpening);
        ShowOnALowDisplay(*report);
        if (shownAtOpening)
            EXPECT_TRUE(Testing::WaitFor(seen));
        else
            EXPECT_TRUE(Testing::WaitFor([&] { return !seen(); }))
                << "without the mark, at the top";
        screen_.Unload();
        screen_.Viewer.ClearReportSource();
    }
}

TEST_F(CRViewer9Test, StaysAtTheTopIfTheMarkedTextIsInViewThere) {
    const auto report = RedTextAt(1000, true);
    ShowOnALowDisplay(*report);
    EXPECT_TRUE(Testing::WaitFor([&] { return Scroll().maximum() > Scroll().minimum(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(Scroll().value(), Scroll().minimum());
}

TEST_F(CRViewer9Test, MovesByTabFromButtonToButtonAndPressesThem) {
    View(25);
    ScreenDriver driver(screen_);
    screen_.Viewer.SetFocus();
    const auto focused = [this] { return screen_.focusWidget()->accessibleName().toStdString(); };
    std::vector<std::string> order;
    do {
        driver.Press(Qt::Key_Tab);
        order.push_back(focused());
    } while (order.size() < 20 && screen_.focusWidget() != &screen_.Viewer.FocusWidget());
    EXPECT_EQ(order, (std::vector<std::string>{"Next page", "Last page", "Zoom out", "Zoom in",
                                               "Fit to page width", "Show the whole page", "Print",
                                               "Save as PDF", "Close the preview (Esc)",
                                               "Report preview"}));
    driver.Press(Qt::Key_Tab).Press(Qt::Key_Return);
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 2);
    driver.Press(Qt::Key_Space);
    EXPECT_EQ(screen_.Viewer.CurrentPage(), 3);
    driver.Press(Qt::SHIFT | Qt::Key_Tab);
    EXPECT_EQ(screen_.ActiveControl(), &screen_.Viewer);
}

TEST_F(CRViewer9Test, AsksToBeClosed) {
    int asked = 0;
    Button("Close the preview (Esc)").click();
    screen_.Viewer.CloseButtonClicked = [&] { ++asked; };
    Button("Close the preview (Esc)").click();
    EXPECT_EQ(asked, 1);
}

} // namespace
} // namespace Quillane
