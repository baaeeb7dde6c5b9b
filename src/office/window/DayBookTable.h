#pragma once

#include "office/daybook/TableModels.h"

#include <QWidget>

class QTableView;

namespace Quillane::Office {

/// A table of a day book, with the row of its sums below it in the same columns.
class DayBookTable : public QWidget {
public:
    /// Requires: the model outlives this object. A hidden column appears only in files and on
    /// paper.
    DayBookTable(CellsModel& model, const std::vector<ColumnHeading>& headings,
                 int hiddenColumn = -1);

    void ShowBelow(std::vector<Cell> cells);
    QTableView& View() const { return *view_; }
    QTableView& Below() const { return *below_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LayOut();
    void ShareWidth();

    const std::vector<ColumnHeading>& headings_;
    BelowModel sums_;
    QTableView* view_;
    QTableView* below_;
};

} // namespace Quillane::Office
