#pragma once

#include "office/daybook/DayBook.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;

namespace Quillane::Office {

/// The filter of a day book: its days, a party, a commodity, a vehicle, and trucks still inside.
/// The initial filter is today with all arrivals.
class DayBookFilterBar : public QWidget {
public:
    DayBookFilterBar();

    std::function<void()> Changed; ///< called for each completed entry
    ArrivalFilter Filter() const;

    /// Offers these parties and commodities. A selection that is still in its list is kept.
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
