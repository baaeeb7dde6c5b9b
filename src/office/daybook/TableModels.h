#pragma once

#include "office/daybook/Cells.h"

#include <QAbstractTableModel>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Tables of a day book for views: units in the headings, numbers at the right.
namespace Quillane::Office {

/// Shows cells below headings.
class CellsModel : public QAbstractTableModel {
public:
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    virtual const std::vector<ColumnHeading>& Headings() const = 0;
    /// Null where the row cannot be had.
    virtual const std::vector<Cell>* CellsAt(int row) const = 0;
    virtual bool IsMarked(int /*row*/) const { return false; } ///< drawn in another colour
};

/// The arrivals of a day book, of which it holds those pages that have been looked at last.
class ArrivalsModel : public CellsModel {
public:
    /// Begins with what the book has read.
    void Show(std::shared_ptr<const DayBook> book);
    /// Takes over what the book has read since.
    void TakeMore();
    /// Told why a page could not be read, once for a book; its rows are then blank.
    std::function<void(const std::string&)> Failed;

    int rowCount(const QModelIndex& parent = {}) const override;
    /// How many arrivals are in memory.
    std::size_t RowsHeld() const;

protected:
    const std::vector<ColumnHeading>& Headings() const override { return ArrivalHeadings(); }
    const std::vector<Cell>* CellsAt(int row) const override;
    bool IsMarked(int row) const override;

private:
    struct Page {
        int number = 0;
        std::vector<std::vector<Cell>> rows;
    };
    const Page* PageWith(int row) const;
    const Page& ReadPage(int number) const;

    std::shared_ptr<const DayBook> book_;
    int rows_ = 0;
    mutable std::deque<Page> pages_; ///< the last one used in front
    mutable bool hasFailed_ = false;
};

/// The sums of a day book by day, party or commodity.
class SumsModel : public CellsModel {
public:
    explicit SumsModel(SumsBy by) : by_(by) {}
    void Show(const DayBook& book);
    int rowCount(const QModelIndex& parent = {}) const override;

protected:
    const std::vector<ColumnHeading>& Headings() const override { return SumHeadings(by_); }
    const std::vector<Cell>* CellsAt(int row) const override;

private:
    SumsBy by_;
    std::vector<std::vector<Cell>> rows_;
};

/// The one row of sums below a table.
class BelowModel : public CellsModel {
public:
    void Show(const std::vector<ColumnHeading>& headings, std::vector<Cell> cells);
    int rowCount(const QModelIndex& parent = {}) const override;

protected:
    const std::vector<ColumnHeading>& Headings() const override { return *headings_; }
    const std::vector<Cell>* CellsAt(int row) const override;

private:
    const std::vector<ColumnHeading>* headings_ = &ArrivalHeadings();
    std::vector<Cell> cells_;
};

} // namespace Quillane::Office
