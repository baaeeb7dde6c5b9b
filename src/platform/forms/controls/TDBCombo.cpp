#include "platform/forms/controls/TDBCombo.h"

#include "platform/forms/controls/DropDownSearch.h"
#include "platform/forms/controls/TDBComboBox.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Failure.h"

#include <QScopedValueRollback>

#include <utility>

namespace Quillane {

TDBCombo::TDBCombo(Screen& screen, std::string name)
    : VisualControl(screen, std::move(name), "TDBCombo"),
      box_(std::make_unique<Box>(*this, screen)) {
    ApplyColours();
}

TDBCombo::~TDBCombo() = default;

std::string TDBCombo::Text() const {
    return FromQt(box_->Edit().Text());
}

void TDBCombo::SetText(std::string_view text) {
    box_->List().Close();
    box_->Edit().ShowText(ToQt(text));
    typed_ = false;
    SetCurrent(text.empty() ? std::nullopt : FindRow(0, text));
}

void TDBCombo::ClearFields() {
    box_->List().Close();
    bound_ = false;
    current_.reset();
}

void TDBCombo::SetArray(std::shared_ptr<RowArray> rows) {
    ClearFields();
    rows_ = std::move(rows);
}

const std::shared_ptr<RowArray>& TDBCombo::Array() const {
    return rows_;
}

void TDBCombo::ReBind() {
    ClearFields();
    bound_ = rows_ != nullptr;
    const std::string text = Text();
    SetCurrent(text.empty() ? std::nullopt : FindRow(0, text));
}

bool TDBCombo::HoldsRow(int row) const {
    return bound_ && row >= 0 && row < rows_->RowCount();
}

std::string TDBCombo::ColumnText(int column) const {
    if (!current_)
        Fail(FailureNumber::InvalidUseOfNull);
    return rows_->Get(*current_, column);
}

std::optional<int> TDBCombo::FindRow(int column, std::string_view text) const {
    const int rowCount = bound_ ? rows_->RowCount() : 0;
    for (int row = 0; row < rowCount; ++row)
        if (rows_->Get(row, column) == text)
            return row;
    return std::nullopt;
}

std::optional<int> TDBCombo::Bookmark() const {
    return current_;
}

void TDBCombo::SetBookmark(std::optional<int> row) {
    if (!row) {
        current_.reset();
        return;
    }
    if (!HoldsRow(*row))
        Fail(FailureNumber::SubscriptOutOfRange);
    box_->List().Close();
    Take(*row);
}

void TDBCombo::SetCurrent(std::optional<int> row) {
    if (row == current_)
        return;
    current_ = row;
    if (row && RowChange)
        RowChange();
}

void TDBCombo::Take(int row) {
    if (!HoldsRow(row))
        return;
    box_->Edit().ShowText(NameAt(*rows_, row));
    typed_ = false;
    SetCurrent(row);
}

void TDBCombo::TakeHighlighted() {
    const auto row = box_->List().Highlighted();
    box_->List().Close();
    if (row)
        Take(*row);
}

void TDBCombo::RefuseUnlisted() {
    if (!typed_ || refusing_ || !Layout.LimitToList || box_->Edit().Text().isEmpty())
        return;
    if (current_) {
        Take(*current_);
        return;
    }
    if (!NotInList) {
        SetText("");
        return;
    }
    const QScopedValueRollback refusing(refusing_, true);
    NotInList();
}

void TDBCombo::CommitEdit() {
    TakeHighlighted();
    RefuseUnlisted();
}

void TDBCombo::TextTyped(bool added) {
    typed_ = true;
    const QString typed = box_->Edit().Text();
    const auto row = RowTyped(typed, added);
    if (typed.isEmpty())
        box_->List().Highlight(std::nullopt);
    else if (bound_ && (Layout.AutoDropDown || IsDroppedDown()))
        DropDown(row || !Layout.LimitToList ? row : MatchName(*rows_, typed).beginning);
    SetCurrent(row);
}

std::optional<int> TDBCombo::RowTyped(const QString& typed, bool added) {
    if (!bound_)
        return std::nullopt;
    if (current_ && HoldsRow(*current_) &&
        NameAt(*rows_, *current_).compare(typed, Qt::CaseInsensitive) == 0)
        return current_;
    const NameMatch match = MatchName(*rows_, typed);
    if (match.named || !match.beginning || !added || !Layout.AutoCompletion)
        return match.named;
    box_->Edit().Complete(NameAt(*rows_, *match.beginning));
    return match.beginning;
}

void TDBCombo::DropDown(std::optional<int> highlighted) {
    box_->List().Open(*rows_, *this, box_->GlobalField());
    box_->List().Highlight(highlighted);
}

void TDBCombo::ToggleDropDown() {
    if (IsDroppedDown()) {
        box_->List().Close();
        return;
    }
    if (bound_)
        DropDown(current_ ? current_ : MatchName(*rows_, box_->Edit().Text()).beginning);
}

bool TDBCombo::IsDroppedDown() const {
    return box_->List().IsOpen();
}

bool TDBCombo::MoveChoice(int key) {
    if (IsDroppedDown())
        return box_->List().MoveBy(key);
    const auto row = DropDownList::RowAfter(current_, key, bound_ ? rows_->RowCount() : 0);
    if (row)
        Take(*row);
    return row.has_value();
}

bool TDBCombo::HandleKey(int key, int shift) {
    const bool opens = key == Key::F4
                           ? shift == ShiftState::None
                           : shift == ShiftState::Alt && (key == Key::Down || key == Key::Up);
    if (opens) {
        ToggleDropDown();
        return true;
    }
    if (shift == ShiftState::None && MoveChoice(key))
        return true;
    if (key == Key::Escape && IsDroppedDown()) {
        box_->List().Close();
        return true;
    }
    if (key == Key::Return)
        CommitEdit();
    else if (key == Key::Tab)
        TakeHighlighted();
    return false;
}

// A disabled list looks disabled, and its text stays legible.
void TDBCombo::ApplyColours() {
    VisualControl::ApplyColours();
    QPalette palette = box_->palette();
    palette.setColor(QPalette::Disabled, QPalette::Base,
                     ToQt(BackColor() == White ? ClosedGrey : BackColor()));
    palette.setColor(QPalette::Disabled, QPalette::Text, ToQt(ClosedText));
    box_->setPalette(palette);
}

QWidget& TDBCombo::Widget() {
    return *box_;
}

QWidget& TDBCombo::FocusWidget() {
    return box_->Edit();
}

} // namespace Quillane
