#pragma once

#include "platform/ado/ResultSet.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Quillane {
class EmbeddedFile;
} // namespace Quillane

namespace Quillane::Office {

/// A table of the embedded database that is moved.
struct SourceTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<std::string> key; ///< columns of the primary key; empty if there is none
    long rows = 0;
    /// The last number that the table has assigned itself; 0 if it has assigned none. It may be
    /// larger than the numbers of the rows.
    std::int64_t lastNumber = 0;
};

/// Sorts tables so that each one comes after those that it refers to: in this order their rows can
/// be stored. `links` are pairs of a table and one that it refers to; a table may refer to itself.
/// Names are not case-sensitive. Errors: two tables refer to each other.
std::vector<std::string>
ParentsFirst(const std::vector<std::string>& tables,
             const std::vector<std::pair<std::string, std::string>>& links);

/// The tables and rows of an embedded database. Requires: no other program changes them.
class SourceDatabase {
public:
    /// Requires: the file outlives this object.
    explicit SourceDatabase(EmbeddedFile& file);

    /// All tables of the file, parents first.
    const std::vector<SourceTable>& Tables() const { return tables_; }
    /// Passes on all rows, some hundred at a time. Errors: the text names the table.
    void Read(const SourceTable& table, const BlockReader& take) const;

private:
    std::vector<std::string> Names() const;
    std::vector<std::pair<std::string, std::string>>
    Links(const std::vector<std::string>& names) const;
    SourceTable Describe(const std::string& name) const;

    EmbeddedFile& file_;
    std::vector<SourceTable> tables_;
};

/// The key of a row for a message: "ArrivalID 1042"; in a table without a key the position of the
/// row, "number 3", counted from 1.
std::string NameOfRow(const SourceTable& table, const ResultSet& rows, int row, long number);

} // namespace Quillane::Office
