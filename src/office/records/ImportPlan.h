#pragma once

#include "office/records/RowWrites.h"
#include "office/records/Rows.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Office {

/// The change that one record of a CSV file would make to a list.
struct ImportLine {
    enum class Kind { New, Changed, Unchanged, Faulty };

    int line = 0; ///< of the file, from 1
    Kind kind = Kind::Faulty;
    RowChange change{};  ///< of a new or changed row
    std::string shown{}; ///< the name of the row in the preview, as given in the file
    std::string text{};  ///< the reason of a fault, or the warnings
};

/// The changes that a CSV file would make to a list. Nothing is written yet.
struct ImportPlan {
    const Table* table = nullptr;
    std::string fault{};                      ///< why the file cannot be imported; empty if it can
    std::vector<std::string> unreadColumns{}; ///< columns of the file that the list does not have
    std::vector<ImportLine> lines{};

    long Count(ImportLine::Kind kind) const;
    /// Of the new and changed rows, in the order of the file.
    std::vector<RowChange> Changes() const;
    /// "12 new, 3 changed, 40 unchanged, 1 faulty".
    std::string Summary() const;
};

/// Compares a file with a list. A row is found by its key. Without a key it is found by its name, a
/// party by name and city. A new row without a key gets a proposed one. Columns that the file does
/// not have are not changed. The rules are the same as on the screens. `progress` receives the
/// number of records done; if it returns false, the import is cancelled and the plan has a fault.
ImportPlan PlanImport(Snapshot known, std::string_view csvText, const Progress& progress = {});

/// Formats a list as a CSV file: UTF-8 with a byte order mark; references are written as names.
std::string ExportText(const Snapshot& known);

} // namespace Quillane::Office
