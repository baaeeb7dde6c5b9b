#include "platform/report/ViewerPane.h"

#include "platform/forms/core/EventBoundary.h"
#include "platform/report/ViewerIcons.h"

#include <QAction>
#include <QGraphicsView>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>

namespace Quillane {

namespace {

constexpr std::array zoomSteps{25, 50, 75, 100, 125, 150, 200, 300, 400};

} // namespace

ViewerPane::ViewerPane(QWidget* parent)
    : QWidget(parent), printer_(QPrinter::HighResolution),
      preview_(new QPrintPreviewWidget(&printer_, this)), toolbar_(new QToolBar(this)) {
    printer_.setOutputFormat(QPrinter::PdfFormat);
    toolbar_->setIconSize({24, 20});
    toolbar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    AddPaging();
    AddZooming();
    AddPrinting();
    AddScrolling(Qt::Key_PageDown, 1);
    AddScrolling(Qt::Key_PageUp, -1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(toolbar_);
    column->addWidget(preview_, 1);
    KeepTop();
    Pages().setAccessibleName(tr("Pages of the report"));
    connect(preview_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { PaintRequested(*printer); });
    connect(preview_, &QPrintPreviewWidget::previewChanged, this, [this] { Refresh(); });
    Refresh();
}

QWidget& ViewerPane::Pages() const {
    return *preview_->findChild<QGraphicsView*>();
}

QAction& ViewerPane::AddAction(const QString& text, const QString& hint, const QKeySequence& key,
                               const QIcon& icon, const std::function<void()>& triggered) {
    QAction* action = toolbar_->addAction(icon, text);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WindowShortcut);
    const QString shown = key.toString(QKeySequence::NativeText);
    action->setToolTip(shown.isEmpty() ? hint : QStringLiteral("%1 (%2)").arg(hint, shown));
    connect(action, &QAction::triggered, this, [triggered] { RunEvent(triggered); });
    auto* button = static_cast<QToolButton*>(toolbar_->widgetForAction(action));
    button->setFocusPolicy(Qt::NoFocus);
    if (text.isEmpty())
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setAccessibleName(hint);
    return *action;
}

void ViewerPane::AddPaging() {
    const auto show = [this](auto pageOf) { return [this, pageOf] { ShowPage(pageOf()); }; };
    first_ = &AddAction({}, tr("First page"), tr("Ctrl+Home"), IconOf(ViewerIcon::FirstPage),
                        show([] { return 1; }));
    previous_ =
        &AddAction({}, tr("Previous page"), tr("Ctrl+PgUp"), IconOf(ViewerIcon::PreviousPage),
                   show([this] { return preview_->currentPage() - 1; }));
    place_ = new QLabel(this);
    place_->setContentsMargins(8, 0, 8, 0);
    toolbar_->addWidget(place_);
    next_ = &AddAction({}, tr("Next page"), tr("Ctrl+PgDown"), IconOf(ViewerIcon::NextPage),
                       show([this] { return preview_->currentPage() + 1; }));
    last_ = &AddAction({}, tr("Last page"), tr("Ctrl+End"), IconOf(ViewerIcon::LastPage),
                       show([this] { return preview_->pageCount(); }));
    toolbar_->addSeparator();
}

void ViewerPane::AddZooming() {
    AddAction({}, tr("Zoom out"), tr("Ctrl+-"), IconOf(ViewerIcon::ZoomOut),
              [this] { ZoomByStep(-1); });
    QAction& in = AddAction({}, tr("Zoom in"), tr("Ctrl++"), IconOf(ViewerIcon::ZoomIn),
                            [this] { ZoomByStep(1); });
    in.setShortcuts({tr("Ctrl++"), tr("Ctrl+=")});
    AddAction(tr("Page width"), tr("Fit to page width"), tr("Ctrl+1"),
              IconOf(ViewerIcon::PageWidth), [this] { FitWidth(); });
    AddAction(tr("Whole page"), tr("Show the whole page"), tr("Ctrl+2"),
              IconOf(ViewerIcon::WholePage), [this] { FitPage(); });
    toolbar_->addSeparator();
}

void ViewerPane::AddPrinting() {
    AddAction(tr("Print"), tr("Print"), tr("Ctrl+P"), IconOf(ViewerIcon::Print),
              [this] { PrintRequested(); });
    AddAction(tr("Save as PDF"), tr("Save as PDF"), tr("Ctrl+S"), IconOf(ViewerIcon::SavePdf),
              [this] { SaveRequested(); });
    AddSpace();
    AddAction(tr("Close"), tr("Close the preview (Esc)"), {}, IconOf(ViewerIcon::Close),
              [this] { CloseRequested(); });
}

void ViewerPane::AddSpace() {
    auto* space = new QWidget(this);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    toolbar_->addWidget(space);
}

void ViewerPane::AddScrolling(const QKeySequence& key, int direction) {
    auto* action = new QAction(this);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [this, direction] { ScrollByScreen(direction); });
    addAction(action);
}

/// The pages are below each other; scrolling changes the current one.
void ViewerPane::ScrollByScreen(int direction) {
    if (preview_->zoomMode() == QPrintPreviewWidget::FitInView)
        return ShowPage(preview_->currentPage() + direction);
    Scroll().setValue(Scroll().value() + direction * Scroll().pageStep());
    atTop_ = Scroll().value() == Scroll().minimum();
}

QScrollBar& ViewerPane::Scroll() const {
    return *static_cast<QGraphicsView&>(Pages()).verticalScrollBar();
}

/// Fitting the pages to another size keeps their middle in place, and so would open the preview
/// somewhere below the first page's top.
void ViewerPane::KeepTop() {
    connect(&Scroll(), &QScrollBar::actionTriggered, this, [this] { atTop_ = false; });
    const auto toTop = [this] {
        if (atTop_)
            Scroll().setValue(Scroll().minimum());
    };
    connect(&Scroll(), &QScrollBar::rangeChanged, this, toTop, Qt::QueuedConnection);
}

void ViewerPane::ShowPage(int number) {
    preview_->setCurrentPage(std::clamp(number, 1, std::max(1, preview_->pageCount())));
    atTop_ = preview_->currentPage() == 1;
    if (atTop_)
        Scroll().setValue(Scroll().minimum());
    Refresh();
}

void ViewerPane::ZoomTo(int percent) {
    preview_->setZoomFactor(percent / 100.0);
}

void ViewerPane::FitWidth() {
    preview_->fitToWidth();
}

void ViewerPane::FitPage() {
    preview_->fitInView();
}

void ViewerPane::ZoomByStep(int direction) {
    const int now = static_cast<int>(std::lround(preview_->zoomFactor() * 100));
    if (direction > 0) {
        const auto* larger = std::upper_bound(zoomSteps.begin(), zoomSteps.end(), now);
        ZoomTo(larger == zoomSteps.end() ? zoomSteps.back() : *larger);
    } else {
        const auto* notSmaller = std::lower_bound(zoomSteps.begin(), zoomSteps.end(), now);
        ZoomTo(notSmaller == zoomSteps.begin() ? zoomSteps.front() : *(notSmaller - 1));
    }
}

void ViewerPane::Refresh() {
    const int page = preview_->currentPage();
    const int count = preview_->pageCount();
    place_->setText(tr("Page %1 of %2").arg(page).arg(count));
    first_->setEnabled(page > 1);
    previous_->setEnabled(page > 1);
    next_->setEnabled(page < count);
    last_->setEnabled(page < count);
}

} // namespace Quillane
