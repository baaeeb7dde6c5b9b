#include "office/backup/Contents.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/sqlite/SqliteFile.h"
#include "platform/ado/sqlite/SqliteText.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Paths.h"
#include "platform/runtime/Text.h"
#include "setup/EmbeddedFile.h"
#include "setup/EmbeddedSchema.h"
#include "setup/SchemaMessages.h"
#include "setup/SchemaUpgrade.h"

#include <cstdint>
#include <fstream>
#include <optional>
#include <sstream>

namespace Quillane::Office {

namespace {

constexpr int WithoutOthers = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
constexpr std::size_t HeaderLength = 100;

/// Reads a big-endian number of the file header.
std::uint64_t NumberAt(const std::string& header, std::size_t place, std::size_t length) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < length; ++i)
        number = number * 256 + static_cast<unsigned char>(header[place + i]);
    return number;
}

/// The length of the file according to its header.
std::uint64_t LengthInHeader(const std::string& header) {
    constexpr std::size_t pageSizeAt = 16;
    constexpr std::size_t pagesAt = 28;
    const std::uint64_t pageSize = NumberAt(header, pageSizeAt, 2);
    return (pageSize == 1 ? 65536 : pageSize) * NumberAt(header, pagesAt, 4);
}

// SQLite reports a truncated file as a damaged one.
void RefuseByHeader(const std::string& path, const std::string& name) {
    std::ifstream file(PathOf(path), std::ios::binary);
    std::string header(HeaderLength, '\0');
    file.read(header.data(), HeaderLength);
    if (file.gcount() == 0)
        FailDatabase("The file " + name + " is empty; it is not a database.");
    if (static_cast<std::size_t>(file.gcount()) < HeaderLength ||
        !header.starts_with(std::string_view("SQLite format 3\0", 16)))
        FailDatabase("The file " + name + " is not a database.");
    file.seekg(0, std::ios::end);
    const auto length = static_cast<std::uint64_t>(file.tellg());
    if (length < LengthInHeader(header))
        FailDatabase("The file " + name + " is not complete: it has " + std::to_string(length) +
                     " of " + std::to_string(LengthInHeader(header)) + " bytes. Use another copy.");
}

int EndsWork(void* work) {
    return static_cast<LongWork*>(work)->IsCancelled() ? 1 : 0;
}

Contents CheckedContents(const std::string& path, LongWork& work) {
    constexpr int instructionsBetweenLooks = 10'000;
    EmbeddedFile file(ImmutableUri(path), WithoutOthers);
    RegisterTextComparison(file.Session());
    sqlite3_progress_handler(file.Session(), instructionsBetweenLooks, EndsWork, &work);
    const std::string finding = file.FirstText("PRAGMA integrity_check(1)");
    if (finding != "ok")
        FailDatabase(finding);
    return ContentsOf(file);
}

std::optional<double> SchemaVersionOf(const Contents& contents) {
    if (contents.RowsOf("StationSchema") != 1)
        return std::nullopt;
    try {
        return ToDouble(contents.schemaVersion);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

std::string InDoubleQuotes(std::string_view name) {
    return '"' + Doubled(name, '"') + '"';
}

} // namespace

long Contents::RowsOf(const std::string& table) const {
    const auto found = rows.find(table);
    return found == rows.end() ? 0 : found->second;
}

std::string DescribeContents(const Contents& contents) {
    const long arrivals = contents.RowsOf("Arrivals");
    return std::to_string(arrivals) + (arrivals == 1 ? " arrival" : " arrivals") +
           (contents.lastArrival.empty() ? "" : ", the last one " + contents.lastArrival);
}

Contents ContentsOf(EmbeddedFile& file) {
    Contents contents;
    std::istringstream tables(
        file.FirstText("SELECT group_concat(name, char(10)) FROM sqlite_master WHERE "
                       "type = 'table' AND name NOT LIKE 'sqlite~_%' ESCAPE '~'"));
    for (std::string table; std::getline(tables, table);)
        contents.rows[table] =
            file.FirstNumber(("SELECT count(*) FROM " + InDoubleQuotes(table)).c_str());
    if (contents.rows.contains("StationSchema"))
        contents.schemaVersion = file.FirstText("SELECT SchemaVersion FROM StationSchema");
    if (contents.rows.contains("Arrivals"))
        contents.lastArrival =
            file.FirstText("SELECT ArrivalID || ' of ' || substr(ArrivalDate, 1, 10) "
                           "FROM Arrivals ORDER BY ArrivalID DESC LIMIT 1");
    return contents;
}

Contents CheckDatabase(const std::string& path, const std::string& name, LongWork& work) {
    RefuseByHeader(path, name);
    work.Begin("Checking " + name);
    try {
        return CheckedContents(path, work);
    } catch (const Failure& failure) {
        if (work.IsCancelled())
            throw Cancelled();
        FailDatabase("The file " + name + " is damaged (" + failure.Description() +
                     "). Use another copy.");
    }
}

void RefuseForeign(const std::string& path, const Contents& contents, const std::string& name) {
    EmbeddedFile file(ImmutableUri(path), WithoutOthers);
    if (!HoldsStationTables(file))
        FailDatabase("The file " + name +
                     " is a database of another program. Use a backup of a station.");
    const std::optional<double> number = SchemaVersionOf(contents);
    if (!number)
        FailDatabase(UnreadableSchemaText("the file " + name) + " Please use another copy.");
    if (*number > SchemaVersionOfProgram())
        FailDatabase(NewerSchemaText(*number, "the file " + name));
}

} // namespace Quillane::Office
