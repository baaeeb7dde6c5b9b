#pragma once

#include "office/daybook/Cells.h"

#include <QAbstractTableModel>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Models of the tables of a day book: units in the headings, numbers right-aligned.
namespace Quillane::Office {

/// A model of cells with headings.
class CellsModel : public QAbstractTableModel {
public:
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    virtual const std::vector<ColumnHeading>& Headings() const = 0;
    /// Null if the row cannot be read.
    virtual const std::vector<Cell>* CellsAt(int row) const = 0;
    virtual bool IsMarked(int /*row*/) const { return false; } ///< drawn in another colour
};

/// The arrivals of a day book; caches the pages used last.
class ArrivalsModel : public CellsModel {
public:
    /// Starts with the arrivals that the book has read.
    void Show(std::shared_ptr<const DayBook> book);
    /// Adds the arrivals that the book has read since.
    void TakeMore();
    /// Called with the reason, once per book, if a page cannot be read; its rows are then blank.
    std::function<void(const std::string&)> Failed;

    int rowCount(const QModelIndex& parent = {}) const override;
    /// The number of arrivals in memory.
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
    mutable std::deque<Page> pages_; ///< most recently used first
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

/// The row of totals below a table.
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
