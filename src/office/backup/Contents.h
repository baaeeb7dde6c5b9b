#pragma once

#include <map>
#include <string>

namespace Quillane {
class EmbeddedFile;
class LongWork;
} // namespace Quillane

namespace Quillane::Office {

/// Thrown when an operation has been cancelled.
struct Cancelled {};

/// A summary of a database, used to compare two states of it.
struct Contents {
    std::string schemaVersion;        ///< empty if there is none
    std::map<std::string, long> rows; ///< number of rows by table
    std::string lastArrival;          ///< "1042 of 2026-11-20"; empty if there is none

    long RowsOf(const std::string& table) const;
    bool operator==(const Contents&) const = default;
};

/// "299 arrivals, the last one 1042 of 2026-11-20".
std::string DescribeContents(const Contents& contents);

Contents ContentsOf(EmbeddedFile& file);

/// Checks a complete database file and returns its contents. Requires: no other program writes the
/// file. Leaves no other file next to it. Errors: a failure that uses the given name of the file if
/// it is empty, not a database, truncated or damaged.
Contents CheckDatabase(const std::string& path, const std::string& name, LongWork& work);

/// Fails if a station of this program cannot use the database: its tables are missing, or its
/// schema version is missing or newer than the program.
void RefuseForeign(const std::string& path, const Contents& contents, const std::string& name);

} // namespace Quillane::Office
