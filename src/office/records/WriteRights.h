#pragma once

#include <span>
#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// The rights of the current login on a table.
struct TableRights {
    bool mayWrite = true;     ///< insert, update and delete
    bool isOfStations = true; ///< created by the set-up of a station
    std::string owner{};      ///< of the table
    std::string database{};
    std::string signIn{};
};

/// Reads the rights. In the embedded database everything may be written.
TableRights ReadTableRights(Connection& connection, std::string_view table);

/// Describes why a list is read-only, which program owns it, and what to do; empty if it is
/// writable.
std::string WhyReadOnly(const TableRights& rights);

/// The same for a list of several tables: describes the first that is not writable.
std::string WhyReadOnly(Connection& connection, std::span<const std::string_view> tables);

} // namespace Quillane::Office
