#pragma once

#include "platform/ado/odbc/OdbcColumn.h"

#include <array>
#include <cstddef>
#include <memory>

namespace Quillane {

/// Memory for the blocks that a driver fills. It is used again for the next results.
class OdbcBlock {
public:
    static constexpr std::size_t mostRows = 256;

    /// Prepares a new statement for `Fetch`. From now on its fetches store their outcome here.
    /// Requires: this object outlives the statement.
    void Attach(const OdbcHandle& statement);

    /// Fetches the next rows of an attached statement and returns their number. Fewer rows than
    /// requested are the last ones. Errors: the fetch of a row has failed.
    std::size_t Fetch(const OdbcHandle& statement);

    /// Memory of this size in bytes. Its earlier contents are lost.
    char* Room(std::size_t bytes);

private:
    std::unique_ptr<char[]> memory_;
    std::size_t size_ = 0;
    SQLULEN fetched_ = 0;
    std::array<SQLUSMALLINT, mostRows> states_{};
};

/// Reads the statement's current result to its end and keeps all rows. The statement must be
/// attached to the block. Whole and floating-point numbers are kept, and decimals with all digits
/// of the server. A date, or a moment at midnight, becomes a date; any other moment becomes the
/// text YYYY-MM-DDTHH:MM:SS. Everything else becomes text, bytes as hexadecimal digits.
///
/// Rows are read in blocks of a few hundred; if a column has no declared length, they are read one
/// by one, and from that column on each value in pieces.
void ReadOdbcRows(const OdbcHandle& statement, int columnCount, OdbcBlock& block,
                  ResultSet& result);

/// The same, but passes the rows on block by block: `take` gets a few hundred rows at a time.
void ReadOdbcBlocks(const OdbcHandle& statement, int columnCount, OdbcBlock& block,
                    const BlockReader& take);

} // namespace Quillane
