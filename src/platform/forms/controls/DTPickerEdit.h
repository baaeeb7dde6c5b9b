#pragma once

#include "platform/forms/controls/DTPicker.h"

#include <QDateEdit>

#include <optional>

namespace Quillane {

/// The box of a date picker. What is typed is taken part by part: a day or month when no further
/// digit fits or a separator follows it, a year with its fourth digit; leaving the box takes what
/// stands there, of a year also two digits. A number that the part cannot be leaves it as it was.
/// The day that was typed is kept in mind until the box is left, so that the 31st may be typed
/// while the month still shown is a shorter one.
class DTPicker::Edit : public QDateEdit {
public:
    explicit Edit(QWidget* parent);

    void ShowDate(QDate date);
    /// Takes the part that is being typed.
    void CommitPart();
    /// The box is left: typing begins anew.
    void Finish();

    void OpenCalendar();
    void CloseCalendar();
    /// Closes it with the date that stood there before.
    void GiveUpCalendar();
    bool CalendarIsOpen() const;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void TypeText(const QString& text);
    void TypeDigit(int digit);
    void TypeSeparator();
    void Erase(bool whole);
    void GiveUp();
    void Advance();
    void ShowTyped();
    bool PartIsWhole() const;
    QDate DateWithPart(const QString& digits);

    std::optional<QString> typed_; ///< digits of the part that is being typed
    bool advanced_ = false;        ///< the last digit has moved on to the next part
    int wantedDay_ = 0;            ///< a day that the month shown is too short for
    QDate taken_;                  ///< what typing last made of the date
    QDate beforeCalendar_;
};

} // namespace Quillane
