#pragma once

#include "platform/ado/odbc/OdbcColumn.h"

#include <array>
#include <cstddef>
#include <memory>

namespace Quillane {

/// Memory for the blocks that a driver fills, kept from one result to the next.
class OdbcBlock {
public:
    static constexpr std::size_t mostRows = 256;

    /// Prepares a new statement for `Fetch`. The outcome of its fetches is stored here from now on,
    /// so this object must outlive it.
    void Attach(const OdbcHandle& statement);

    /// Fetches an attached statement's next rows and returns how many there were: fewer than were
    /// asked for are the last. Fails where one of them did.
    std::size_t Fetch(const OdbcHandle& statement);

    /// Space for this number of bytes; earlier contents are lost.
    char* Room(std::size_t bytes);

private:
    std::unique_ptr<char[]> memory_;
    std::size_t size_ = 0;
    SQLULEN fetched_ = 0;
    std::array<SQLUSMALLINT, mostRows> states_{};
};

/// Reads the statement's current result to its end and keeps all rows; the statement is attached to
/// the block. Whole and floating numbers stay what they are; decimals keep the digits that the
/// server gave; a date, and a moment at midnight, becomes a date, any other moment the text
/// YYYY-MM-DDTHH:MM:SS; all else is text, bytes as hexadecimal digits.
///
/// Rows are read in blocks of a few hundred; if a column has no declared length, they are read one
/// by one, and from that column on each value in pieces.
void ReadOdbcRows(const OdbcHandle& statement, int columnCount, OdbcBlock& block,
                  ResultSet& result);

/// The same rows, handed on block by block: `take` gets some hundred rows at a time.
void ReadOdbcBlocks(const OdbcHandle& statement, int columnCount, OdbcBlock& block,
                    const BlockReader& take);

} // namespace Quillane
