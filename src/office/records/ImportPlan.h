#pragma once

#include "office/records/RowWrites.h"
#include "office/records/Rows.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Office {

/// What a record of a CSV file would do to a list.
struct ImportLine {
    enum class Kind { New, Changed, Unchanged, Faulty };

    int line = 0; ///< of the file, from 1
    Kind kind = Kind::Faulty;
    RowChange change{};  ///< of a new or changed row
    std::string shown{}; ///< what the row is called, as far as the file says it
    std::string text{};  ///< the reasons of a fault, or what the rules warn of
};

/// What a CSV file would do to a list; nothing is written yet.
struct ImportPlan {
    const Table* table = nullptr;
    std::string fault{};                      ///< why nothing of the file can be taken; else empty
    std::vector<std::string> unreadColumns{}; ///< of the file, which the list does not have
    std::vector<ImportLine> lines{};

    long Count(ImportLine::Kind kind) const;
    /// Of the new and changed rows, in the order of the file.
    std::vector<RowChange> Changes() const;
    /// "12 new, 3 changed, 40 unchanged, 1 faulty".
    std::string Summary() const;
};

/// Compares a file with a list. A row is found by its key; where the file gives none, by its name,
/// a party by name and city. A new row without a key gets the proposed one. A column that the file
/// does not have stays as it is. The rules are those of the screens. `progress` is told how many
/// records are done; where it breaks the work off, the plan has a fault that says so.
ImportPlan PlanImport(Snapshot known, std::string_view csvText, const Progress& progress = {});

/// A list as a CSV file: UTF-8 with a byte order mark, names in place of the numbers of references.
std::string ExportText(const Snapshot& known);

} // namespace Quillane::Office
