#include "platform/forms/controls/DTPickerEdit.h"

#include <QCalendarWidget>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

constexpr int Century = 2000; // of a year typed as two digits

bool IsSeparator(QChar character) {
    return QStringLiteral("/-., ").contains(character);
}

bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_AltGr || key == Qt::Key_Meta;
}

bool IsCommand(const QKeyEvent& event) {
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

} // namespace

DTPicker::Edit::Edit(QWidget* parent) : QDateEdit(parent) {
    setCalendarPopup(true);
    setDisplayFormat("dd/MM/yyyy");
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->installEventFilter(this);
    connect(this, &QDateEdit::dateChanged, this, [this](QDate date) {
        if (date != taken_)
            wantedDay_ = 0;
    });
}

void DTPicker::Edit::ShowDate(QDate date) {
    const QSignalBlocker blocker(*this);
    typed_.reset();
    wantedDay_ = 0;
    setDate(date);
}

void DTPicker::Edit::CommitPart() {
    if (!typed_)
        return;
    const QString digits = *typed_;
    typed_.reset();
    taken_ = DateWithPart(digits);
    setDate(taken_);
}

void DTPicker::Edit::Finish() {
    CommitPart();
    interpretText();
    wantedDay_ = 0;
    advanced_ = false;
}

QDate DTPicker::Edit::DateWithPart(const QString& digits) {
    int wanted = wantedDay_ > 0 ? wantedDay_ : date().day();
    int month = date().month();
    int year = date().year();
    const int number = digits.toInt();
    if (currentSection() == YearSection) {
        const int typed = digits.size() == 2 ? Century + number : number;
        year = typed > minimumDate().year() ? typed : year;
    } else if (currentSection() == MonthSection) {
        month = number >= 1 && number <= 12 ? number : month;
    } else {
        wanted = number >= 1 && number <= 31 ? number : wanted;
    }
    const int last = QDate(year, month, 1).daysInMonth();
    wantedDay_ = wanted > last ? wanted : 0;
    return QDate(year, month, std::min(wanted, last));
}

bool DTPicker::Edit::PartIsWhole() const {
    if (currentSection() == YearSection)
        return typed_->size() == 4;
    return typed_->size() == 2 || typed_->toInt() > (currentSection() == MonthSection ? 1 : 3);
}

void DTPicker::Edit::Advance() {
    setSelectedSection(currentSection() == DaySection ? MonthSection : YearSection);
}

void DTPicker::Edit::TypeText(const QString& text) {
    for (const QChar character : text)
        if (character.isDigit())
            TypeDigit(character.digitValue());
        else if (IsSeparator(character))
            TypeSeparator();
}

void DTPicker::Edit::TypeDigit(int digit) {
    typed_ = typed_.value_or(QString()) + QString::number(digit);
    advanced_ = PartIsWhole();
    if (!advanced_) {
        ShowTyped();
        return;
    }
    CommitPart();
    Advance();
}

// A separator after a digit that has already moved on to the next part belongs to that digit.
void DTPicker::Edit::TypeSeparator() {
    if (!std::exchange(advanced_, false)) {
        CommitPart();
        Advance();
    }
}

void DTPicker::Edit::Erase(bool whole) {
    if (!typed_)
        typed_ = sectionText(currentSection());
    if (whole || lineEdit()->hasSelectedText())
        typed_->clear();
    typed_->chop(1);
    advanced_ = false;
    ShowTyped();
}

void DTPicker::Edit::GiveUp() {
    if (typed_)
        ShowDate(date());
}

// Writes to the line directly; Qt would change the date at each digit.
void DTPicker::Edit::ShowTyped() {
    QStringList parts = date().toString(displayFormat()).split('/');
    const int part = currentSection() == DaySection ? 0 : currentSection() == MonthSection ? 1 : 2;
    parts[part] = *typed_;
    const QSignalBlocker blocker(lineEdit());
    lineEdit()->setText(parts.join('/'));
    lineEdit()->setCursorPosition(static_cast<int>(parts.mid(0, part + 1).join('/').size()));
}

void DTPicker::Edit::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    if (IsModifier(event->key())) {
        event->ignore();
    } else if (!IsCommand(*event) && !text.isEmpty() && text.front().isPrint()) {
        TypeText(text);
    } else if (!IsCommand(*event) &&
               (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete)) {
        Erase(event->key() == Qt::Key_Delete);
    } else if (event->key() == Qt::Key_Escape) {
        GiveUp();
        event->ignore();
    } else {
        CommitPart();
        advanced_ = false;
        // Enter belongs to the screen; Qt would report a change without one.
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            event->ignore();
        else
            QDateEdit::keyPressEvent(event);
    }
}

bool DTPicker::Edit::event(QEvent* event) {
    if (event->type() != QEvent::InputMethod)
        return QDateEdit::event(event);
    TypeText(static_cast<QInputMethodEvent*>(event)->commitString());
    return true;
}

// A press places the caret in a part of a complete date.
bool DTPicker::Edit::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        CommitPart();
        advanced_ = false;
    }
    return QDateEdit::eventFilter(watched, event);
}

void DTPicker::Edit::mousePressEvent(QMouseEvent* event) {
    CommitPart();
    advanced_ = false;
    beforeCalendar_ = date();
    QDateEdit::mousePressEvent(event);
}

// The wheel does not change the date of a box that the mouse only moves across.
void DTPicker::Edit::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        CommitPart();
        QDateEdit::wheelEvent(event);
    } else {
        event->ignore();
    }
}

// Qt has no call that opens the calendar, only a press on the arrow.
void DTPicker::Edit::OpenCalendar() {
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

bool DTPicker::Edit::CalendarIsOpen() const {
    const QWidget* popup = calendarWidget()->window();
    return popup != window() && popup->isVisible();
}

// The box already shows the selected day, so closing the calendar keeps it.
void DTPicker::Edit::CloseCalendar() {
    if (CalendarIsOpen())
        calendarWidget()->window()->close();
}

void DTPicker::Edit::GiveUpCalendar() {
    CloseCalendar();
    setDate(beforeCalendar_);
}

} // namespace Quillane
