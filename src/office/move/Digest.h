#pragma once

#include "platform/ado/ResultSet.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Quillane::Office {

/// Counts, sums and checksums of a table's rows, in any order. The value of a number is the same
/// whether a database stores it as a whole number, a floating-point number or a decimal.
class Digest {
public:
    void Add(const ResultSet& block);

    long Rows() const { return rows_; }
    bool operator==(const Digest&) const = default;
    /// Describes the difference in the first column that differs: "column NetWeight: sum 3920.5,
    /// there 3920". Empty if the digests are equal. Requires: the other one has the same columns.
    std::string DifferenceTo(const Digest& there, const std::vector<std::string>& columns) const;

private:
    struct Column {
        long values = 0;            ///< that are not Null
        std::int64_t sum = 0;       ///< of the numbers, in ten-thousandths; may wrap around
        std::uint64_t checksum = 0; ///< of all values
        bool operator==(const Column&) const = default;
    };
    static std::string Difference(const Column& here, const Column& there);

    long rows_ = 0;
    std::vector<Column> columns_;
    std::uint64_t rowsChecksum_ = 0; ///< shows which values belong to one row
};

/// The checksum of one row; `Digest` uses the same one.
std::uint64_t ChecksumOfRow(const ResultSet& block, int row);

} // namespace Quillane::Office
