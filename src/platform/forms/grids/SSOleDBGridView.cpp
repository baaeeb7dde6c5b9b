#include "platform/forms/grids/SSOleDBGridView.h"

#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/grids/SSOleDBGridHeader.h"
#include "platform/forms/grids/SSOleDBGridScrollBar.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace Quillane {

/// What a recordset runs when its current row moves; a separate type, so that a grid can
/// recognise its own handler.
struct SSOleDBGrid::View::RowMoved {
    View* view;
    void operator()() const { view->CurrentRowMoved(); }
};

SSOleDBGrid::View::View(SSOleDBGrid& grid, QWidget& parent)
    : QAbstractScrollArea(&parent), grid_(grid), header_(std::make_unique<Header>(*this)) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(2);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBar(new SSOleDBGridScrollBar(this));
    // Always shown, because the columns would otherwise shift while a filter is typed.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalScrollBar()->setFocusPolicy(Qt::NoFocus);
    Fit();
}

SSOleDBGrid::View::~View() {
    ReleaseMoved();
}

void SSOleDBGrid::View::AddColumn(Column column) {
    columns_.push_back(std::move(column));
    header_->update();
    viewport()->update();
}

// The caller may be about to change the columns.
SSOleDBGrid::Column& SSOleDBGrid::View::ColumnNamed(std::string_view name) {
    const auto found = std::ranges::find_if(
        columns_, [name](const Column& column) { return EqualIgnoringCase(column.name, name); });
    if (found == columns_.end())
        Fail(FailureNumber::SubscriptOutOfRange);
    header_->update();
    viewport()->update();
    return *found;
}

void SSOleDBGrid::View::SetSource(std::shared_ptr<Recordset> rows) {
    ReleaseMoved();
    rows_ = std::move(rows);
    TakeMoved();
    Fit();
    verticalScrollBar()->setValue(CurrentLine().value_or(0));
    viewport()->update();
}

void SSOleDBGrid::View::TakeMoved() {
    if (rows_)
        rows_->Moved = RowMoved{this};
}

void SSOleDBGrid::View::ReleaseMoved() {
    const RowMoved* handler = rows_ ? rows_->Moved.target<RowMoved>() : nullptr;
    if (handler && handler->view == this)
        rows_->Moved = nullptr;
}

// Also runs if a filter has changed the number of rows.
void SSOleDBGrid::View::CurrentRowMoved() {
    Fit();
    if (const auto line = CurrentLine(); line && !choosing_)
        BringIntoView(*line);
    viewport()->update();
}

int SSOleDBGrid::View::LineCount() const {
    return rows_ && rows_->State() == adStateOpen ? rows_->RecordCount() : 0;
}

std::optional<int> SSOleDBGrid::View::CurrentLine() const {
    const int count = LineCount();
    if (count == 0 || rows_->Position() >= count)
        return std::nullopt;
    return rows_->Position();
}

int SSOleDBGrid::View::TopLine() const {
    return verticalScrollBar()->value();
}

int SSOleDBGrid::View::LinesInView() const {
    return std::max(1, viewport()->height() / lineHeight_);
}

void SSOleDBGrid::View::GoTo(int line) {
    const int count = LineCount();
    if (count == 0)
        return;
    const int there = std::clamp(line, 0, count - 1);
    rows_->SetPosition(there);
    // The row may have been current already, but scrolled out of view.
    BringIntoView(there);
}

bool SSOleDBGrid::View::MoveBy(int key) {
    const int count = LineCount();
    const int line = CurrentLine().value_or(count);
    const int page = std::max(1, LinesInView() - 1);
    switch (key) {
    case Key::Up:
        GoTo(line - 1);
        return true;
    case Key::Down:
        GoTo(line + 1);
        return true;
    case Key::PageUp:
        GoTo(line - page);
        return true;
    case Key::PageDown:
        GoTo(line + page);
        return true;
    case Key::Home:
        GoTo(0);
        return true;
    case Key::End:
        GoTo(count - 1);
        return true;
    default:
        return false;
    }
}

void SSOleDBGrid::View::BringIntoView(int line) {
    const int top = TopLine();
    verticalScrollBar()->setValue(std::clamp(top, line - LinesInView() + 1, line));
}

// Sets the position of the header, the height of a line and the range of the scroll bar.
void SSOleDBGrid::View::Fit() {
    lineHeight_ = fontMetrics().height() * 3 / 2;
    const int headerHeight = lineHeight_ + 2;
    if (viewportMargins().top() != headerHeight)
        setViewportMargins(0, headerHeight, 0, 0);
    const QRect area = viewport()->geometry();
    header_->setGeometry(area.left(), area.top() - headerHeight, area.width(), headerHeight);
    fittedLines_ = LineCount();
    verticalScrollBar()->setPageStep(LinesInView());
    verticalScrollBar()->setRange(0, std::max(0, fittedLines_ - LinesInView()));
}

void SSOleDBGrid::View::FitAgain() {
    fittingSoon_ = false;
    CurrentRowMoved();
}

void SSOleDBGrid::View::SetLineColours(std::optional<LineColours> colours) {
    lineColours_ = colours;
    viewport()->update();
}

void SSOleDBGrid::View::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    const auto line = CurrentLine();
    const int linesBefore = verticalScrollBar()->pageStep();
    const bool seen = line && *line >= TopLine() && *line < TopLine() + linesBefore;
    Fit();
    if (seen)
        BringIntoView(*line);
}

void SSOleDBGrid::View::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Fit();
}

// The frame shows whether the grid has the focus.
void SSOleDBGrid::View::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    update();
}

void SSOleDBGrid::View::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    update();
}

// The control has handled the keys that move the current line already; the screen handles all
// others.
void SSOleDBGrid::View::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

// A partly visible line at the lower edge is not scrolled into view by a press: the second press of
// a double click must hit the same line.
void SSOleDBGrid::View::ChooseAt(QPoint point) {
    const int line = TopLine() + point.y() / lineHeight_;
    if (line >= LineCount())
        return;
    const QScopedValueRollback choosing(choosing_, true);
    rows_->SetPosition(line);
}

void SSOleDBGrid::View::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        RunEvent([&] { ChooseAt(event->position().toPoint()); });
}

void SSOleDBGrid::View::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    RunEvent([&] {
        ChooseAt(event->position().toPoint());
        if (grid_.DblClick)
            grid_.DblClick();
    });
}

} // namespace Quillane
