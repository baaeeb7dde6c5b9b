#pragma once

#include <set>
#include <string>
#include <string_view>

namespace Quillane {

/// What a schema holds, one line each, so that two schemas can be laid side by side:
///
///     column Parties 2 CityId INTEGER
///     column Parties 4 IsSeller INTEGER not null default
///     key Parties (PartyId)
///     unique BagsTypes (BagsType)
///     index Parties (CityId)
///     link Parties (CityId) to Cities (CityId)
///
/// Types go by the names that the embedded schema uses.
using SchemaLines = std::set<std::string>;

/// The lines that only the first of two schemas has.
SchemaLines OnlyIn(const SchemaLines& lines, const SchemaLines& others);

/// Runs the script on an embedded database in memory and asks that.
SchemaLines LinesOfEmbeddedSchema(const char* script);

/// Reads the CREATE TABLE, CREATE INDEX and ALTER TABLE ... FOREIGN KEY statements of a script for
/// SQL Server, wherever they stand. A type that the embedded schema has no name for is told as is.
SchemaLines LinesOfSqlServerSchema(std::string_view script);

} // namespace Quillane
