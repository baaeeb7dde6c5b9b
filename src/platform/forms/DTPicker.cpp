#include "platform/forms/DTPicker.h"

#include "platform/forms/EventBoundary.h"
#include "platform/forms/Screen.h"

#include <QCalendarWidget>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace Quillane {

class DTPicker::Edit : public QDateEdit {
public:
    using QDateEdit::QDateEdit;

    void CloseCalendar() {
        // The calendar has shown its day in the box with every step, so closing it keeps the day.
        if (QWidget* popup = calendarWidget()->window(); popup != window() && popup->isVisible()) {
            popup->close();
        }
    }

    // Qt has no call that opens the calendar, only a press on the arrow.
    void OpenCalendar() {
        QStyleOptionComboBox option;
        option.initFrom(this);
        option.editable = true;
        option.subControls = QStyle::SC_All;
        const QPointF arrow =
            style()
                ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this)
                .center();
        QMouseEvent press(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        mousePressEvent(&press);
    }

protected:
    // A digit typed where a part stands complete writes that part anew; Qt would drop the digit.
    void keyPressEvent(QKeyEvent* event) override {
        const bool digit = event->text().size() == 1 && event->text().front().isDigit();
        const qsizetype whole = currentSection() == YearSection ? 4 : 2;
        if (digit && !lineEdit()->hasSelectedText() &&
            sectionText(currentSection()).size() >= whole) {
            setSelectedSection(currentSection());
        }
        QDateEdit::keyPressEvent(event);
    }

    // A wheel turned over the box in passing changes no date.
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QDateEdit::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

DTPicker::DTPicker(Screen& screen, std::string name, std::string typeName)
    : VisualControl(screen, std::move(name), std::move(typeName)),
      edit_(std::make_unique<Edit>(&screen)) {
    edit_->setCalendarPopup(true);
    edit_->setDisplayFormat("dd/MM/yyyy");
    edit_->setFocusPolicy(Qt::StrongFocus);
    SetValue(Today());
    QObject::connect(edit_.get(), &QDateEdit::dateChanged, edit_.get(), [this] {
        RunEvent([this] {
            if (Change) {
                Change();
            }
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
    const QSignalBlocker blocker(*edit_);
    edit_->setDate(QDate(static_cast<int>(date.year()),
                         static_cast<int>(static_cast<unsigned>(date.month())),
                         static_cast<int>(static_cast<unsigned>(date.day()))));
}

QWidget& DTPicker::Widget() {
    return *edit_;
}

bool DTPicker::HandleKey(int key, int shift) {
    const bool opens = (key == Key::F4 && shift == ShiftState::None) ||
                       (key == Key::Down && shift == ShiftState::Alt);
    if (opens) {
        edit_->OpenCalendar();
    }
    return opens;
}

void DTPicker::CommitEdit() {
    edit_->CloseCalendar();
    edit_->interpretText();
}

} // namespace Quillane
