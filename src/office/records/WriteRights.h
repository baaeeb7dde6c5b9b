#pragma once

#include <span>
#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// What a server says of a table and of whoever has signed in.
struct TableRights {
    bool mayWrite = true; ///< insert, update and delete
    bool madeHere = true; ///< by the set-up of a station
    std::string owner{};  ///< of the table
    std::string database{};
    std::string signIn{};
};

/// On the embedded database, which only opens for writing, everything may be written.
TableRights ReadTableRights(Connection& connection, std::string_view table);

/// Why a list may only be read, whose it is, and what to do; empty where it may be written.
std::string WhyReadOnly(const TableRights& rights);

/// The same for a list that is kept in several tables: of the first that may not be written.
std::string WhyReadOnly(Connection& connection, std::span<const std::string_view> tables);

} // namespace Quillane::Office
