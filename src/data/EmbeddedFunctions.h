#pragma once

struct sqlite3;

namespace Quillane {

/// Registers the SQL functions of the accounting database in a session of the embedded database:
///
/// - `FunGetPartyName(accountNo)`: the account's name, a hyphen and the party's city; without a
///   city only the name; Null for an account that does not exist.
/// - `FunGetCommodity(commodityId)`: the name of the commodity; Null if it does not exist.
///
/// Searches call them for every row, so each function caches the names until this session or
/// another one commits a change. The prepared statements are finalized when the session closes.
/// This uses the trace callback of the session, of which SQLite allows only one. Errors: a database
/// failure.
void RegisterEmbeddedFunctions(sqlite3* session);

} // namespace Quillane
