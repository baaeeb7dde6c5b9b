#pragma once

struct sqlite3;

namespace Quillane {

/// Gives a session of the embedded database the functions that the accounting database has:
///
/// - `FunGetPartyName(accountNo)`: the account's name, a hyphen and the party's city; just the name
///   where there is no city; Null for an account that does not exist.
/// - `FunGetCommodity(commodityId)`: the commodity's name; Null for one that does not exist.
///
/// Searches call them for every row. Each keeps the names that it has found until this session or
/// another commits a change, and one prepared look-up for the session, which it lets go when the
/// session closes (by the session's one trace hook, which this takes for itself).
void RegisterEmbeddedFunctions(sqlite3* session);

} // namespace Quillane
