#include "platform/report/ViewerPane.h"

#include "platform/forms/core/EventBoundary.h"
#include "platform/report/ViewerIcons.h"

#include <QAction>
#include <QGraphicsItem>
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
    KeepOpening();
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
    button->setFocusPolicy(Qt::TabFocus);
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

/// The pages are arranged vertically; scrolling changes the current one.
void ViewerPane::ScrollByScreen(int direction) {
    if (preview_->zoomMode() == QPrintPreviewWidget::FitInView)
        return ShowPage(preview_->currentPage() + direction);
    Scroll().setValue(Scroll().value() + direction * Scroll().pageStep());
    openingPart_ = 0;
    atOpening_ = Scroll().value() == Scroll().minimum();
}

QScrollBar& ViewerPane::Scroll() const {
    return *static_cast<QGraphicsView&>(Pages()).verticalScrollBar();
}

/// Fitting the pages to another size keeps their centre in place. The preview would then not show
/// the part that must be visible when it opens.
void ViewerPane::KeepOpening() {
    connect(&Scroll(), &QScrollBar::actionTriggered, this, [this] { atOpening_ = false; });
    const auto scroll = [this] {
        if (atOpening_)
            Scroll().setValue(OpeningScroll());
    };
    connect(&Scroll(), &QScrollBar::rangeChanged, this, scroll, Qt::QueuedConnection);
}

/// A page is an item of the view with its corner at 0,0 and the same border on each side.
int ViewerPane::OpeningScroll() const {
    const auto& view = static_cast<QGraphicsView&>(Pages());
    const QList<QGraphicsItem*> pages = view.items();
    if (openingPart_ == 0 || pages.isEmpty())
        return Scroll().minimum();
    const auto* first = *std::min_element(pages.begin(), pages.end(), [](auto* one, auto* other) {
        return one->scenePos().y() < other->scenePos().y();
    });
    const QRectF around = first->boundingRect();
    const double border = -around.top();
    const double edge = openingPart_ * (around.height() - 2 * border) + border / 4;
    const int below = view.mapFromScene(first->mapToScene(0, edge)).y() - view.viewport()->height();
    return std::max(Scroll().minimum(), Scroll().value() + below);
}

void ViewerPane::OpenAt(double part) {
    openingPart_ = part;
    atOpening_ = true;
    Scroll().setValue(OpeningScroll());
}

void ViewerPane::ShowPage(int number) {
    preview_->setCurrentPage(std::clamp(number, 1, std::max(1, preview_->pageCount())));
    openingPart_ = 0;
    atOpening_ = preview_->currentPage() == 1;
    if (atOpening_)
        Scroll().setValue(Scroll().minimum());
    Refresh();
}

void ViewerPane::MoveFocus(bool forward) {
    QList<QWidget*> order{&Pages()};
    for (auto* button : toolbar_->findChildren<QToolButton*>())
        if (button->isVisible() && button->isEnabled() && button->focusPolicy() != Qt::NoFocus)
            order.append(button);
    const auto count = order.size();
    const auto here = std::max(order.indexOf(window()->focusWidget()), qsizetype{0});
    order[(here + (forward ? 1 : count - 1)) % count]->setFocus(Qt::TabFocusReason);
}

bool ViewerPane::PressButton() {
    auto* button = qobject_cast<QToolButton*>(window()->focusWidget());
    if (!button)
        return false;
    button->click();
    return true;
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
