#pragma once

#include <set>
#include <string>
#include <string_view>

namespace Quillane {

/// The contents of a schema, one line each, so that two schemas can be compared:
///
///     column Parties 2 CityId INTEGER
///     column Parties 4 IsSeller INTEGER not null default
///     key Parties (PartyId)
///     unique BagsTypes (BagsType)
///     index Parties (CityId)
///     link Parties (CityId) to Cities (CityId)
///
/// Types have the names that the embedded schema uses.
using SchemaLines = std::set<std::string>;

/// The lines that only the first of two schemas contains.
SchemaLines OnlyIn(const SchemaLines& lines, const SchemaLines& others);

/// Runs the script on an embedded database in memory and reads the schema of that database.
SchemaLines LinesOfEmbeddedSchema(const char* script);

/// Reads the CREATE TABLE, CREATE INDEX and ALTER TABLE ... FOREIGN KEY statements of a script for
/// SQL Server. A type that the embedded schema does not have is listed with its own name.
SchemaLines LinesOfSqlServerSchema(std::string_view script);

} // namespace Quillane
