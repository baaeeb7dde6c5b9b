#include "platform/forms/grids/SSOleDBGrid.h"

#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/grids/SSOleDBGridView.h"

#include <utility>

namespace Quillane {

SSOleDBGrid::SSOleDBGrid(Screen& screen, std::string name)
    : VisualControl(screen, std::move(name), "SSOleDBGrid"),
      view_(std::make_unique<View>(*this, screen)) {}

SSOleDBGrid::~SSOleDBGrid() = default;

void SSOleDBGrid::AddColumn(std::string_view name, std::string_view caption, int width,
                            std::string_view format) {
    view_->AddColumn({std::string(name), std::string(caption), width, std::string(format), {}});
}

SSOleDBGrid::Column& SSOleDBGrid::Columns(std::string_view name) {
    return view_->ColumnNamed(name);
}

void SSOleDBGrid::SetDataSource(std::shared_ptr<Recordset> rows) {
    view_->SetSource(std::move(rows));
}

int SSOleDBGrid::Rows() const {
    return view_->LineCount();
}

void SSOleDBGrid::MoveFirst() {
    view_->GoTo(0);
}

void SSOleDBGrid::MoveLast() {
    view_->GoTo(Rows() - 1);
}

void SSOleDBGrid::SetActiveRowStyle(Colour foreColour, Colour backColour) {
    view_->SetLineColours(View::LineColours{foreColour, backColour});
}

void SSOleDBGrid::SetActiveRowHighlighted() {
    view_->SetLineColours(std::nullopt);
}

QWidget& SSOleDBGrid::Widget() {
    return *view_;
}

bool SSOleDBGrid::HandleKey(int key, int shift) {
    const bool toAnEnd = key == Key::Home || key == Key::End;
    const bool moves = shift == ShiftState::None || (shift == ShiftState::Ctrl && toAnEnd);
    return moves && view_->MoveBy(key);
}

} // namespace Quillane
