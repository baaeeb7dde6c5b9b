#pragma once

#include "platform/ado/ResultSet.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Quillane::Office {

/// Counts, sums and checksums of a table's rows, in whatever order they come. A number counts by
/// its value, whether a database holds it as a whole number, a floating number or a decimal.
class Digest {
public:
    void Add(const ResultSet& block);

    long Rows() const { return rows_; }
    bool operator==(const Digest&) const = default;
    /// What differs, in the first column that differs: "column NetWeight: sum 3920.5, there 3920".
    /// The other one is of the same columns. Empty where they are equal.
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
    std::uint64_t rowsChecksum_ = 0; ///< says which values belong to one row
};

/// A checksum of one row; that of `Digest`.
std::uint64_t ChecksumOfRow(const ResultSet& block, int row);

} // namespace Quillane::Office
