#pragma once

#include <map>
#include <string>

namespace Quillane {
class EmbeddedFile;
class LongWork;
} // namespace Quillane

namespace Quillane::Office {

/// Thrown where the work is broken off; nothing of it counts.
struct BrokenOff {};

/// What a database holds, as far as two states of it are compared.
struct Contents {
    std::string schemaNumber;         ///< empty where there is none
    std::map<std::string, long> rows; ///< by table
    std::string lastArrival;          ///< "1042 of 2026-11-20"; empty where there is none

    long RowsOf(const std::string& table) const;
    bool operator==(const Contents&) const = default;
};

Contents ContentsOf(EmbeddedFile& file);

/// Looks through a file that nobody else writes, all of it, and gives what it holds. Fails with a
/// text that calls the file by the given name: where it is empty, no database, shorter than its
/// contents, or damaged. Leaves no other file next to it.
Contents LookThrough(const std::string& path, const std::string& name, LongWork& work);

/// Fails where a station of this program could not work on the database, or not without loss: its
/// tables are missing, or its schema number is not one that this program knows.
void RefuseForeign(const std::string& path, const Contents& contents, const std::string& name);

} // namespace Quillane::Office
