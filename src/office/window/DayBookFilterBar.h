#pragma once

#include "office/daybook/DayBook.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;

namespace Quillane::Office {

/// What a day book is of: its days, and a party, a commodity, a vehicle, trucks still inside.
/// Begins with today and all arrivals.
class DayBookFilterBar : public QWidget {
public:
    DayBookFilterBar();

    std::function<void()> Changed; ///< for each entry that is finished
    ArrivalFilter Filter() const;

    /// Offers these parties and commodities; what is chosen stays where it is still there.
    void Offer(const DayBookNames& names);

private:
    void LayOut();
    void AddPeriods();
    void TakePeriod(int place);
    void ReportChange() const;

    QComboBox* period_;
    QDateEdit* from_;
    QDateEdit* to_;
    QComboBox* party_;
    QComboBox* commodity_;
    QLineEdit* vehicle_;
    QCheckBox* inside_;
    bool isFilling_ = false;
};

} // namespace Quillane::Office
