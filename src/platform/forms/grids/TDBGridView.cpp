#include "platform/forms/grids/TDBGridView.h"

#include "platform/forms/controls/DropDownSearch.h"
#include "platform/forms/controls/TDBCombo.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/grids/TDBGridPainting.h"

#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>

namespace Quillane {

namespace {
constexpr int RowsOfAPage = 10;
}

TDBGrid::View::View(TDBGrid& grid, QWidget& parent)
    : QTableView(&parent), grid_(grid), painter_(std::make_unique<Painter>(*this)),
      editor_(viewport()), list_(*this) {
    setModel(&model_);
    setItemDelegate(painter_.get());
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setAttribute(Qt::WA_InputMethodEnabled);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setSectionsClickable(true);
    connect(verticalHeader(), &QHeaderView::sectionPressed, this,
            [this](int row) { RunEvent([this, row] { SelectLine(row); }); });
    editor_.hide();
    editor_.setTextMargins(2, 0, 2, 0);
    editor_.SelectsOnEntry = false;
    editor_.Edited = [this](bool added) { TextTyped(added); };
    list_.Chosen = [this](int row) {
        editor_.setText(NameAt(*Names(), row));
        list_.Close();
        Commit();
    };
    FitRows();
}

TDBGrid::View::~View() {
    setModel(nullptr);
}

void TDBGrid::View::ReBind() {
    GiveUp();
    selectedLine_ = -1;
    model_.Reset();
    FitColumns();
    GoTo(0, 0);
}

int TDBGrid::View::Row() const {
    return std::max(0, currentIndex().row());
}

int TDBGrid::View::Column() const {
    return std::max(0, currentIndex().column());
}

void TDBGrid::View::GoTo(int row, int column) {
    if (model_.IsStale())
        model_.Reset();
    const QModelIndex cell = model_.index(std::clamp(row, 0, model_.RowCount()),
                                          std::clamp(column, 0, model_.ColumnCount() - 1));
    selectedLine_ = -1;
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    if (cell.isValid())
        scrollTo(cell);
    viewport()->update();
}

bool TDBGrid::View::MoveBy(int key) {
    const int row = Row();
    const int column = Column();
    const int last = model_.ColumnCount() - 1;
    switch (key) {
    case Key::Up:
        GoTo(row - 1, column);
        return true;
    case Key::Down:
        GoTo(row + 1, column);
        return true;
    case Key::PageUp:
        GoTo(row - RowsOfAPage, column);
        return true;
    case Key::PageDown:
        GoTo(row + RowsOfAPage, column);
        return true;
    case Key::Home:
        GoTo(row, 0);
        return true;
    case Key::End:
        GoTo(row, last);
        return true;
    case Key::Left:
        if (column > 0 || row > 0)
            column > 0 ? GoTo(row, column - 1) : GoTo(row - 1, last);
        return true;
    case Key::Right:
        if (column < last || row < model_.RowCount())
            column < last ? GoTo(row, column + 1) : GoTo(row + 1, 0);
        return true;
    default:
        return false;
    }
}

void TDBGrid::View::SelectLine(int row) {
    Commit();
    GoTo(row, Column());
    selectedLine_ = row;
    viewport()->update();
}

void TDBGrid::View::DeleteLine(int row) {
    GiveUp();
    const int column = Column();
    GoTo(row, column);
    if (row >= model_.RowCount())
        return;
    model_.DeleteRow(row);
    GoTo(row, column);
    if (grid_.Change)
        grid_.Change();
}

void TDBGrid::View::keyPressEvent(QKeyEvent* event) {
    event->ignore();
    if (editing_) {
        PassToEditor(event);
        return;
    }
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    const bool clears = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    if (!plain || !(clears || MayType(event->text())))
        return;
    BeginEdit(Begun::ByTyping, QString());
    event->accept();
    if (!clears)
        editor_.event(event);
}

/// A key that the editor has ignored arrives here and must not be handled a second time.
void TDBGrid::View::PassToEditor(QKeyEvent* event) {
    if (window()->focusWidget() == &editor_)
        return;
    editor_.setFocus();
    editor_.event(event);
}

void TDBGrid::View::inputMethodEvent(QInputMethodEvent* event) {
    const bool types = !event->preeditString().isEmpty() || MayType(event->commitString());
    if (!editing_ && types)
        BeginEdit(Begun::ByTyping, QString());
    if (editing_)
        editor_.event(event);
}

void TDBGrid::View::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (editing_)
        editor_.setFocus();
}

void TDBGrid::View::FitColumns() {
    int wanted = 0;
    for (int column = 0; column < model_.ColumnCount(); ++column)
        wanted += model_.Column(column).width;
    int left = viewport()->width();
    const double scale = wanted == 0 ? 1.0 : static_cast<double>(left) / wanted;
    for (int column = 0; column < model_.ColumnCount(); ++column) {
        const bool last = column == model_.ColumnCount() - 1;
        const int width = last ? left : static_cast<int>(model_.Column(column).width * scale);
        setColumnWidth(column, width);
        left -= width;
    }
}

void TDBGrid::View::FitRows() {
    const int height = fontMetrics().height() + 12;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    horizontalHeader()->setMinimumHeight(height);
    verticalHeader()->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("000")) + 12);
}

void TDBGrid::View::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
    PlaceEditor();
}

void TDBGrid::View::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    PlaceEditor();
}

void TDBGrid::View::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitRows();
}

} // namespace Quillane
