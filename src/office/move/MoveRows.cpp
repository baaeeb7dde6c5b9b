#include "office/move/MoveRows.h"

#include "office/backup/Contents.h"
#include "office/records/Texts.h"
#include "platform/ado/AdoFailure.h"
#include "platform/runtime/LongWork.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <functional>
#include <ranges>

namespace Quillane::Office {

namespace {

/// Visits one table after the other, each as a step of the work. `act` gets a function that is
/// called with the number of completed rows.
using ReportRows = std::function<void(long rows)>;

void ForEachTable(const SourceDatabase& source, const std::string& what, LongWork& work,
                  const std::function<void(std::size_t, const ReportRows&)>& act) {
    const std::vector<SourceTable>& tables = source.Tables();
    for (std::size_t i = 0; i < tables.size(); ++i) {
        work.Begin(what + " " + tables[i].name + " (table " + std::to_string(i + 1) + " of " +
                       std::to_string(tables.size()) + ")",
                   static_cast<int>(tables[i].rows));
        long done = 0;
        const ReportRows report = [&](long rows) {
            done += rows;
            if (!work.Advance(static_cast<int>(done)))
                throw Cancelled();
        };
        report(0);
        act(i, report);
    }
}

Digest DigestOnServer(const SourceTable& table, TargetDatabase& target, const ReportRows& report) {
    Digest digest;
    bool isCancelled = false;
    target.Read(table, [&](const ResultSet& block) {
        digest.Add(block);
        try {
            report(block.RowCount());
        } catch (const Cancelled&) {
            isCancelled = true;
        }
        return !isCancelled;
    });
    if (isCancelled)
        throw Cancelled();
    return digest;
}

/// The first row of the table that differs on the server; empty if all are equal. Needs eight bytes
/// for each row.
std::string RowThatDiffers(const SourceDatabase& source, const SourceTable& table,
                           TargetDatabase& target) {
    std::vector<std::uint64_t> there;
    target.Read(table, [&](const ResultSet& block) {
        for (int row = 0; row < block.RowCount(); ++row)
            there.push_back(ChecksumOfRow(block, row));
        return true;
    });
    std::ranges::sort(there);
    std::string name;
    long before = 0;
    source.Read(table, [&](const ResultSet& block) {
        for (int row = 0; row < block.RowCount() && name.empty(); ++row)
            if (!std::ranges::binary_search(there, ChecksumOfRow(block, row)))
                name = NameOfRow(table, block, row, before + row + 1);
        before += block.RowCount();
        return name.empty();
    });
    return name;
}

[[noreturn]] void FailOnDifference(const SourceDatabase& source, const SourceTable& table,
                                   TargetDatabase& target, const std::string& difference) {
    const std::string row = RowThatDiffers(source, table, target);
    FailDatabase(
        "The table " + table.name + " on the server does not hold what it holds here: " +
        difference + "." + (row.empty() ? "" : " The first row that differs is " + row + ".") +
        "\nNo other program may write to the server's database during a move, and each value "
        "must fit its column there. Please correct this, and try again.");
}

bool IsAmong(const std::set<std::string>& names, const std::string& name) {
    return std::ranges::any_of(
        names, [&](const std::string& each) { return EqualIgnoringCase(each, name); });
}

/// The counts of rows that a move would destroy, and whether each table has as many rows as here.
struct RowsThere {
    std::string described;
    bool areAsMany = true;
};

RowsThere CountRowsThere(const SourceDatabase& source, TargetDatabase& target,
                         const std::set<std::string>& filledBySchema) {
    RowsThere found;
    for (const SourceTable& table : source.Tables()) {
        const long rows = target.Has(table.name) ? target.CountOf(table.name) : 0;
        found.areAsMany = found.areAsMany && rows == table.rows;
        if (rows > 0 && !IsAmong(filledBySchema, table.name))
            found.described += (found.described.empty() ? "" : ", ") + table.name + " (" +
                               Counted(rows, "row", "rows") + ")";
    }
    return found;
}

Digests DigestsOf(const SourceDatabase& source, LongWork& work) {
    Digests digests(source.Tables().size());
    ForEachTable(source, "Reading", work, [&](std::size_t place, const ReportRows& report) {
        source.Read(source.Tables()[place], [&](const ResultSet& block) {
            digests[place].Add(block);
            report(block.RowCount());
            return true;
        });
    });
    return digests;
}

bool HoldsTheSameRows(const SourceDatabase& source, TargetDatabase& target, LongWork& work) {
    const Digests digests = DigestsOf(source, work);
    bool isSame = true;
    ForEachTable(source, "Comparing", work, [&](std::size_t place, const ReportRows& report) {
        isSame = isSame && DigestOnServer(source.Tables()[place], target, report) == digests[place];
    });
    return isSame;
}

[[noreturn]] void Refuse(const std::string& text) {
    throw MoveRefused(FailureNumber::Database, text, FailureSource::Database);
}

} // namespace

TargetState LookAtTarget(const SourceDatabase& source, TargetDatabase& target,
                         const std::string& mark, const std::set<std::string>& filledBySchema,
                         LongWork& work) {
    work.Begin("Looking at the server's database");
    const std::string unfinished = target.UnfinishedMove();
    if (unfinished == mark)
        return TargetState::Unfinished;
    if (!unfinished.empty())
        Refuse("The server's database holds the unfinished move of another database, " +
               unfinished +
               ". Please finish that move, or name an empty database. Nothing has been "
               "changed.");
    const RowsThere found = CountRowsThere(source, target, filledBySchema);
    if (found.described.empty())
        return TargetState::Free;
    if (found.areAsMany && HoldsTheSameRows(source, target, work))
        return TargetState::Complete;
    Refuse("The server's database already holds rows that are not from this station: " +
           found.described + ". Please name a database without them. Nothing has been changed.");
}

void CheckTables(const SourceDatabase& source, TargetDatabase& target) {
    for (const SourceTable& table : source.Tables()) {
        if (!target.Has(table.name))
            FailDatabase("The table " + table.name +
                         " is not on the server, because the station does not use it. Please make "
                         "it there with the same columns, or remove it here, and try again.");
        for (const std::string& column : target.MissingColumns(table))
            FailDatabase("The table " + table.name + " on the server has no column " + column +
                         ". Please add it there, and try again.");
    }
}

Digests CopyRows(const SourceDatabase& source, TargetDatabase& target, LongWork& work) {
    work.Begin("Emptying the server's tables");
    for (const SourceTable& table : std::views::reverse(source.Tables())) {
        if (work.IsCancelled())
            throw Cancelled();
        target.Clear(table.name);
    }
    Digests digests(source.Tables().size());
    ForEachTable(source, "Copying", work, [&](std::size_t place, const ReportRows& report) {
        const SourceTable& table = source.Tables()[place];
        Digest& digest = digests[place];
        target.BeginNumbers(table);
        source.Read(table, [&](const ResultSet& block) {
            target.Insert(table, block, digest.Rows());
            digest.Add(block);
            report(block.RowCount());
            return true;
        });
        target.EndNumbers(table);
    });
    return digests;
}

void CompareRows(const SourceDatabase& source, const Digests& digests, TargetDatabase& target,
                 LongWork& work) {
    ForEachTable(source, "Comparing", work, [&](std::size_t place, const ReportRows& report) {
        const SourceTable& table = source.Tables()[place];
        const Digest there = DigestOnServer(table, target, report);
        const std::string difference = digests[place].DifferenceTo(there, table.columns);
        if (!difference.empty())
            FailOnDifference(source, table, target, difference);
    });
}

} // namespace Quillane::Office
