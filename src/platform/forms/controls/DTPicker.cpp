#include "platform/forms/controls/DTPicker.h"

#include "platform/forms/controls/DTPickerEdit.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"

namespace Quillane {

DTPicker::DTPicker(Screen& screen, std::string name, std::string typeName)
    : VisualControl(screen, std::move(name), std::move(typeName)),
      edit_(std::make_unique<Edit>(&screen)) {
    SetValue(Today());
    QObject::connect(edit_.get(), &QDateEdit::dateChanged, edit_.get(), [this] {
        RunEvent([this] {
            if (Change)
                Change();
        });
    });
}

DTPicker::~DTPicker() = default;

Date DTPicker::Value() const {
    const QDate date = edit_->date();
    return Date(std::chrono::year(date.year()),
                std::chrono::month(static_cast<unsigned>(date.month())),
                std::chrono::day(static_cast<unsigned>(date.day())));
}

void DTPicker::SetValue(Date date) {
    edit_->ShowDate(QDate(static_cast<int>(date.year()),
                          static_cast<int>(static_cast<unsigned>(date.month())),
                          static_cast<int>(static_cast<unsigned>(date.day()))));
}

QWidget& DTPicker::Widget() {
    return *edit_;
}

bool DTPicker::HandleKey(int key, int shift) {
    const bool opens = (key == Key::F4 && shift == ShiftState::None) ||
                       (key == Key::Down && shift == ShiftState::Alt);
    if (opens)
        edit_->OpenCalendar();
    return opens;
}

bool DTPicker::HandleDropDownKey(int key, int shift) {
    if (key != Key::Escape || shift != ShiftState::None || !edit_->CalendarIsOpen())
        return false;
    edit_->GiveUpCalendar();
    return true;
}

void DTPicker::CommitEdit() {
    edit_->CloseCalendar();
    edit_->Finish();
}

} // namespace Quillane
