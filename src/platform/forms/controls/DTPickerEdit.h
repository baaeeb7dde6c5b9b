#pragma once

#include "platform/forms/controls/DTPicker.h"

#include <QDateEdit>

#include <optional>

namespace Quillane {

/// The box of a date picker. Typed digits change the date part by part: a day or a month when no
/// more digits fit or a separator follows, the year with its fourth digit. Leaving the box uses the
/// digits typed so far; a year may then have two. A number that is not valid for its part changes
/// nothing. The typed day is remembered until the box is left, so that 31 can be typed while the
/// month shown has fewer days.
class DTPicker::Edit : public QDateEdit {
public:
    explicit Edit(QWidget* parent);

    void ShowDate(QDate date);
    /// Ends the typing of the current part.
    void CommitPart();
    /// To be called when the box is left: the next digit starts again.
    void Finish();

    void OpenCalendar();
    void CloseCalendar();
    /// Closes the calendar and restores the date from before it was opened.
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
    int wantedDay_ = 0;            ///< a typed day that the month shown does not have
    QDate taken_;                  ///< the date after the last typed part
    QDate beforeCalendar_;
};

} // namespace Quillane
