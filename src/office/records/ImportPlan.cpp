#include "office/records/ImportPlan.h"

#include "office/records/Checks.h"
#include "office/records/Csv.h"
#include "office/records/ImportCells.h"
#include "office/records/Texts.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace Quillane::Office {

namespace {

using Kind = ImportLine::Kind;

constexpr int progressStep = 256;

class Planner {
public:
    Planner(ImportPlan& plan, Snapshot& known)
        : plan_(plan), known_(known), table_(known.rows.Described()), keys_(known) {}

    void ReadHeader(const CsvRecord& header) {
        for (const std::string& name : header.cells) {
            const auto column = ColumnOf(table_, name);
            if (column && Has(*column))
                plan_.fault = "Line " + std::to_string(header.line) + ": The column \"" + name +
                              "\" occurs twice. Remove one of them.";
            if (!column && !Trimmed(name).empty())
                plan_.unreadColumns.push_back(Trimmed(name));
            columns_.push_back(column);
        }
        if (!Has(KeyCell) && !Has(NameCell))
            plan_.fault = "Line " + std::to_string(header.line) + " names neither " +
                          std::string(table_.Key().header) + " nor " +
                          std::string(table_.Name().header) +
                          ". The first line must hold column names: " + HeadersOf(table_) + ".";
    }

    void Add(const CsvRecord& record) {
        ImportLine line{.line = record.line};
        try {
            Read(record, line);
        } catch (const Faulty& faulty) {
            line.kind = Kind::Faulty;
            line.text = faulty.reason;
            line.change = {};
        }
        plan_.lines.push_back(std::move(line));
    }

private:
    bool Has(std::size_t column) const {
        return std::ranges::find(columns_, std::optional(column)) != columns_.end();
    }

    void Read(const CsvRecord& record, ImportLine& line) {
        if (!record.fault.empty())
            throw Faulty{record.fault + " Correct the line."};
        if (record.cells.size() != columns_.size())
            throw Faulty{
                "The line has " + Counted(static_cast<long>(record.cells.size()), "cell", "cells") +
                ", the first line has " + std::to_string(columns_.size()) + ". Correct the line."};
        const Row cells = CellsOf(record);
        line.shown = ShownName(cells);
        const Row* before = FindRow(cells);
        if (before)
            line.change.before = *before;
        line.change.after = Combined(before, cells);
        if (!before && line.change.after[KeyCell].empty())
            line.change.after[KeyCell] = keys_.For(line.change.after);
        RefuseSecondOfTheSameKey(line);
        Classify(line);
    }

    /// The cells in the column order of the table, trimmed. Missing columns are empty.
    Row CellsOf(const CsvRecord& record) const {
        Row cells(table_.columns.size());
        for (std::size_t place = 0; place < columns_.size(); ++place)
            if (columns_[place])
                cells[*columns_[place]] = Trimmed(record.cells[place]);
        if (const auto number = PositiveNumber(cells[KeyCell]); table_.numbersItself && number)
            cells[KeyCell] = std::to_string(*number);
        return cells;
    }

    const Row* FindRow(const Row& cells) const {
        if (!cells[KeyCell].empty())
            return known_.rows.WithKey(cells[KeyCell]);
        std::vector<const Row*> found = known_.rows.WithName(cells[NameCell]);
        std::erase_if(found, [&](const Row* row) { return !NamesSameReferences(*row, cells); });
        if (found.size() > 1)
            throw Faulty{"Several rows have this name. Enter " + std::string(table_.Key().header) +
                         "."};
        return found.empty() ? nullptr : found.front();
    }

    bool NamesSameReferences(const Row& row, const Row& cells) const {
        for (std::size_t column = 0; column < table_.columns.size(); ++column)
            if (table_.columns[column].target && Has(column) &&
                Folded(known_.ShownCell(column, row)) != Folded(cells[column]))
                return false;
        return true;
    }

    Row Combined(const Row* before, const Row& cells) const {
        Row row = before ? *before : InitialRow(table_);
        for (std::size_t column = 0; column < table_.columns.size(); ++column)
            if (Has(column) && !(column == KeyCell && before))
                row[column] = CellFor(column, cells[column], row);
        return row;
    }

    std::string CellFor(std::size_t place, const std::string& cell, const Row& row) const {
        const Column& column = table_.columns[place];
        if (column.kind == CellKind::Flag)
            return FlagCell(column, cell);
        if (!column.target || cell.empty())
            return cell;
        // If several rows have this name, the one that the row refers to now is meant.
        if (!row[place].empty() && Folded(known_.ShownCell(place, row)) == Folded(cell))
            return row[place];
        return KeyNamed(known_.targets.at(column.target->name), cell);
    }

    void RefuseSecondOfTheSameKey(const ImportLine& line) {
        const auto [place, isFirst] =
            lines_.try_emplace(Folded(line.change.after[KeyCell]), line.line);
        if (!isFirst)
            throw Faulty{"The same " + std::string(table_.one) + " is in line " +
                         std::to_string(place->second) + " already. Remove one of them."};
    }

    void Classify(ImportLine& line) {
        if (line.change.before == line.change.after) {
            line.kind = Kind::Unchanged;
            line.change = {};
            return;
        }
        const std::vector<Finding> findings = Check(known_, line.change.before, line.change.after);
        if (Refuses(findings))
            throw Faulty{InOneLine(TextOf(findings, Finding::Weight::Refuses))};
        line.kind = line.change.before ? Kind::Changed : Kind::New;
        line.text = InOneLine(TextOf(findings, Finding::Weight::Warns));
        known_.rows.Put(line.change.after);
    }

    static std::string InOneLine(std::string text) {
        std::ranges::replace(text, '\n', ' ');
        return text;
    }

    ImportPlan& plan_;
    Snapshot& known_;
    const Table& table_;
    KeyProposals keys_;
    std::vector<std::optional<std::size_t>> columns_; ///< of each column of the file
    std::unordered_map<std::string, int> lines_;      ///< by folded key
};

} // namespace

long ImportPlan::Count(Kind kind) const {
    return std::ranges::count(lines, kind, &ImportLine::kind);
}

std::vector<RowChange> ImportPlan::Changes() const {
    std::vector<RowChange> changes;
    for (const ImportLine& line : lines)
        if (line.kind == Kind::New || line.kind == Kind::Changed)
            changes.push_back(line.change);
    return changes;
}

std::string ImportPlan::Summary() const {
    return std::to_string(Count(Kind::New)) + " new, " + std::to_string(Count(Kind::Changed)) +
           " changed, " + std::to_string(Count(Kind::Unchanged)) + " unchanged, " +
           std::to_string(Count(Kind::Faulty)) + " faulty";
}

ImportPlan PlanImport(Snapshot known, std::string_view csvText, const Progress& progress) {
    ImportPlan plan{.table = &known.rows.Described()};
    const CsvFile file = ReadCsv(csvText);
    plan.fault = file.fault;
    if (plan.fault.empty() && file.records.empty())
        plan.fault =
            "The file is empty. Its first line must hold column names: " + HeadersOf(*plan.table) +
            ".";
    if (!plan.fault.empty())
        return plan;
    Planner planner(plan, known);
    planner.ReadHeader(file.records.front());
    for (std::size_t record = 1; record < file.records.size() && plan.fault.empty(); ++record) {
        planner.Add(file.records[record]);
        const int done = static_cast<int>(record);
        if (progress && done % progressStep == 0 && !progress(done))
            plan.fault = "The import was cancelled. Nothing was written.";
    }
    return plan;
}

std::string ExportText(const Snapshot& known) {
    const Table& table = known.rows.Described();
    std::vector<std::string> headers;
    for (const Column& column : table.columns)
        headers.emplace_back(column.header);
    std::string text = std::string(Utf8Mark) + CsvLine(headers);
    for (const Row& row : known.rows.Rows()) {
        std::vector<std::string> cells;
        for (std::size_t column = 0; column < table.columns.size(); ++column)
            cells.push_back(known.ShownCell(column, row));
        text += CsvLine(cells);
    }
    return text;
}

} // namespace Quillane::Office
