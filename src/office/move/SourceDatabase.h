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
    std::vector<std::string> key; ///< columns of the primary key; empty where there is none
    long rows = 0;
    /// The last number that the table gave out by itself; 0 where it never did. It may be beyond
    /// those of the rows.
    std::int64_t lastNumber = 0;
};

/// The order in which rows can be stored: a table comes after the tables that it refers to.
/// `links` are pairs of a table and one that it refers to; a table may refer to itself. Names are
/// not case-sensitive. Tables that refer to each other fail.
std::vector<std::string>
ParentsFirst(const std::vector<std::string>& tables,
             const std::vector<std::pair<std::string, std::string>>& links);

/// The tables and rows of an embedded database. Requires: no other program changes them.
class SourceDatabase {
public:
    /// The file must live as long as this.
    explicit SourceDatabase(EmbeddedFile& file);

    /// All tables of the file, parents first.
    const std::vector<SourceTable>& Tables() const { return tables_; }
    /// Gives all rows, some hundred at a time. Fails with the name of the table.
    void Read(const SourceTable& table, const BlockReader& take) const;

private:
    std::vector<std::string> Names() const;
    std::vector<std::pair<std::string, std::string>>
    Links(const std::vector<std::string>& names) const;
    SourceTable Describe(const std::string& name) const;

    EmbeddedFile& file_;
    std::vector<SourceTable> tables_;
};

/// The key of a row as a message names it: "ArrivalID 1042"; "number 3" in a table without a key,
/// counted from 1.
std::string NameOfRow(const SourceTable& table, const ResultSet& rows, int row, long number);

} // namespace Quillane::Office
