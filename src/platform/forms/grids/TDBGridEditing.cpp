#include "platform/forms/controls/DropDownSearch.h"
#include "platform/forms/controls/TDBCombo.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/grids/TDBGridPainting.h"
#include "platform/forms/grids/TDBGridView.h"

#include <QMouseEvent>

#include <algorithm>

namespace Quillane {

namespace {

constexpr qsizetype LongestNumber = 9;

/// Digits and at most one point, with the length of a number of bags.
bool IsNumber(const QString& text) {
    const auto digits =
        std::count_if(text.begin(), text.end(), [](QChar c) { return c >= '0' && c <= '9'; });
    const auto points = text.count('.');
    return digits + points == text.size() && points <= 1 && text.size() <= LongestNumber;
}

} // namespace

const RowArray* TDBGrid::View::Names() {
    const TDBCombo* list = CurrentColumn().list;
    return list == nullptr ? nullptr : list->Array().get();
}

bool TDBGrid::View::MayType(const QString& text) {
    if (!currentIndex().isValid() || text.isEmpty() || !text.front().isPrint())
        return false;
    return CurrentColumn().kind != CellKind::Number || IsNumber(text);
}

void TDBGrid::View::BeginEdit(Begun begun, const QString& text) {
    GoTo(Row(), Column());
    if (!currentIndex().isValid())
        return;
    editing_ = true;
    refused_.clear();
    begun_ = begun;
    const bool number = CurrentColumn().kind == CellKind::Number;
    editor_.setText(text);
    editor_.Admits = nullptr;
    if (number)
        editor_.Admits = [](const QString& added, const QString& rest) {
            return IsNumber(rest + added);
        };
    editor_.setAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    editor_.setAccessibleName(ToQt(CurrentColumn().caption));
    PlaceEditor();
    editor_.show();
    editor_.setFocus();
}

void TDBGrid::View::TextTyped(bool added) {
    const RowArray* names = Names();
    if (names == nullptr)
        return;
    const QString typed = editor_.text();
    const NameMatch match = MatchName(*names, typed);
    const auto found = match.named ? match.named : match.beginning;
    if (added && !match.named && match.beginning)
        editor_.Complete(NameAt(*names, *match.beginning));
    DropDown(found);
}

void TDBGrid::View::DropDown(std::optional<int> highlighted) {
    const QRect cell = CellRect();
    list_.Open(*Names(), *CurrentColumn().list,
               QRect(viewport()->mapToGlobal(cell.topLeft()), cell.size()));
    list_.Highlight(highlighted);
}

void TDBGrid::View::ToggleList() {
    if (list_.IsOpen()) {
        list_.Close();
        return;
    }
    if (Names() == nullptr)
        return;
    if (!editing_) {
        BeginEdit(Begun::ByTyping, ToQt(model_.Text(Row(), Column())));
        editor_.selectAll();
    }
    const NameMatch match = MatchName(*Names(), editor_.text());
    DropDown(match.named ? match.named : match.beginning);
}

/// The text that the pending edit stores; none if the cell keeps its former text.
std::optional<QString> TDBGrid::View::TextToStore() {
    const RowArray* names = Names();
    const auto highlighted = list_.Highlighted();
    if (names == nullptr)
        return editor_.text();
    if (highlighted && *highlighted < names->RowCount())
        return NameAt(*names, *highlighted);
    if (editor_.text().isEmpty())
        return editor_.text();
    const NameMatch match = MatchName(*names, editor_.text());
    const auto row = match.named ? match.named : match.beginning;
    return row ? std::optional(NameAt(*names, *row)) : std::nullopt;
}

void TDBGrid::View::Commit() {
    if (!editing_)
        return;
    const auto stored = TextToStore();
    refused_ = stored ? QString() : editor_.text();
    EndEdit();
    const int row = Row();
    const int column = Column();
    const std::string text = FromQt(stored.value_or(QString()));
    if (!stored || text == model_.Text(row, column))
        return;
    model_.SetText(row, column, text);
    if (grid_.Change)
        grid_.Change();
    if (grid_.AfterColUpdate)
        grid_.AfterColUpdate();
}

void TDBGrid::View::GiveUp() {
    if (editing_)
        EndEdit();
}

void TDBGrid::View::EndEdit() {
    editing_ = false;
    list_.Close();
    // Hiding the line while it has the focus would move the focus to another control.
    if (window()->focusWidget() == &editor_)
        setFocus();
    editor_.hide();
    viewport()->update();
}

QRect TDBGrid::View::CellRect() const {
    return visualRect(currentIndex());
}

QRect TDBGrid::View::ArrowRect() const {
    const bool drops =
        currentIndex().isValid() && const_cast<View*>(this)->CurrentColumn().list != nullptr;
    if (!drops)
        return {};
    const QRect cell = CellRect();
    return {cell.right() - GridArrowWidth + 1, cell.top(), GridArrowWidth, cell.height()};
}

void TDBGrid::View::PlaceEditor() {
    if (!editing_)
        return;
    editor_.setGeometry(CellRect().adjusted(0, 0, -ArrowRect().width(), 0));
    list_.Close();
}

void TDBGrid::View::Press(QPoint position) {
    if (ArrowRect().contains(position)) {
        ToggleList();
        return;
    }
    const QModelIndex pressed = indexAt(position);
    const int row = pressed.row();
    const int column = pressed.column();
    Commit();
    if (row >= 0)
        GoTo(row, column);
}

void TDBGrid::View::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || grid_.Owner().ActiveControl() != &grid_)
        return;
    const QPoint position = event->pos();
    RunEvent([this, position] { Press(position); });
}

void TDBGrid::View::mouseMoveEvent(QMouseEvent*) {}

void TDBGrid::View::mouseReleaseEvent(QMouseEvent*) {}

void TDBGrid::View::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool opens =
        event->button() == Qt::LeftButton && !editing_ && grid_.Owner().ActiveControl() == &grid_ &&
        indexAt(event->pos()) == currentIndex() && !ArrowRect().contains(event->pos());
    if (opens)
        BeginEdit(Begun::WithCaret, ToQt(model_.Text(Row(), Column())));
}

} // namespace Quillane
