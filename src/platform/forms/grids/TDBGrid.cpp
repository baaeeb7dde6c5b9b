#include "platform/forms/grids/TDBGrid.h"

#include "platform/forms/controls/TDBCombo.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/grids/TDBGridView.h"

#include <utility>

namespace Quillane {

namespace {
bool IsArrow(int key) {
    return key == Key::Up || key == Key::Down || key == Key::Left || key == Key::Right;
}
} // namespace

TDBGrid::TDBGrid(Screen& screen, std::string name)
    : VisualControl(screen, std::move(name), "TDBGrid"),
      view_(std::make_unique<View>(*this, screen)) {}

TDBGrid::~TDBGrid() = default;

void TDBGrid::AddColumn(std::string_view caption, int width, CellKind kind) {
    view_->Model().AddColumn({std::string(caption), width, kind, nullptr});
}

void TDBGrid::SetDropDown(int column, TDBCombo& list) {
    view_->Model().Column(column).list = &list;
    list.SetVisible(false);
}

int TDBGrid::ColumnCount() const {
    return view_->Model().ColumnCount();
}

void TDBGrid::SetArray(RowArray& rows) {
    view_->Model().Bind(&rows);
    view_->ReBind();
}

void TDBGrid::ReBind() {
    view_->ReBind();
}

void TDBGrid::Refresh() {
    view_->GoTo(view_->Row(), view_->Column());
}

void TDBGrid::MoveFirst() {
    CommitEdit();
    view_->GoTo(0, view_->Column());
}

void TDBGrid::MoveNext() {
    CommitEdit();
    view_->GoTo(view_->Row() + 1, view_->Column());
}

void TDBGrid::Update() {
    CommitEdit();
}

std::string TDBGrid::ColumnText(int column) const {
    return view_->Model().Text(Row(), column);
}

bool TDBGrid::IsEditing() const {
    return view_->IsEditing();
}

int TDBGrid::Row() const {
    return view_->Row();
}

bool TDBGrid::TakesNumbers() const {
    return view_->Model().Column(view_->Column()).kind == CellKind::Number;
}

std::string TDBGrid::RefusedText() const {
    return FromQt(view_->RefusedText());
}

void TDBGrid::CommitEdit() {
    view_->Commit();
}

bool TDBGrid::HandleKey(int key, int shift) {
    if (key == Key::Delete && shift == ShiftState::Ctrl) {
        view_->DeleteLine(view_->Row());
        return true;
    }
    const bool opens =
        key == Key::F4 ? shift == ShiftState::None : key == Key::Down && shift == ShiftState::Alt;
    if (opens) {
        view_->ToggleList();
        return true;
    }
    if (shift != ShiftState::None)
        return false;
    return view_->IsEditing() ? HandleKeyOfEdit(key) : HandleKeyOfCell(key);
}

bool TDBGrid::HandleKeyOfEdit(int key) {
    if (key == Key::Escape) {
        view_->GiveUp();
        return true;
    }
    if (key == Key::F2) {
        view_->List().Close();
        view_->SetBegun(View::Begun::WithCaret);
        return true;
    }
    if (view_->List().IsOpen() && view_->List().MoveBy(key))
        return true;
    if (!IsArrow(key) || view_->ArrowsAreTheCarets())
        return false;
    view_->Commit();
    view_->MoveBy(key);
    return true;
}

bool TDBGrid::HandleKeyOfCell(int key) {
    if (key == Key::F2) {
        view_->BeginEdit(View::Begun::WithCaret, ToQt(ColumnText(view_->Column())));
        return true;
    }
    if (key == Key::Delete && view_->SelectedLine() >= 0) {
        view_->DeleteLine(view_->SelectedLine());
        return true;
    }
    return view_->MoveBy(key);
}

QWidget& TDBGrid::Widget() {
    return *view_;
}

QWidget& TDBGrid::FocusWidget() {
    return *view_;
}

} // namespace Quillane
