#pragma once

#include "setup/EmbeddedSchema.h"
#include "setup/ScriptBatches.h"

namespace Quillane {

class Connection;

/// The result of a set-up on SQL Server.
struct SetupOutcome {
    bool isFinished = false; ///< false if it was cancelled
    /// Rows that a table of the site did not accept, such as "PortSettings: DataLength".
    std::vector<std::string> rowsNotAdded{};

    explicit operator bool() const { return isFinished; }
};

/// Turns the database of the connection into a station's database. It may be empty or contain a
/// mill's accounts. Only missing tables, functions and rows are created; `RenewRights` creates the
/// roles.
/// - A row of settings, or of the company's particulars, that a table of the site does not
///   accept is left out.
/// - Particulars of the company in the database stay unless they are to be replaced.
/// - The first user is added only if there are no users of stations, and if the particulars
///   contain one.
/// - Sample rows, and the second user that comes with them, are added only to a database without
///   accounts and arrivals.
/// - A database with an older schema version is upgraded first.
///
/// Requires: the rights of the database's owner. Errors: a Failure if the schema version is newer
/// or cannot be read; the database is then not changed. After any other failure, and after
/// `progress` has returned false, everything created so far stays, and the next call completes it.
SetupOutcome SetUpSqlServerDatabase(Connection& connection, const NewDatabase& particulars,
                                    const ScriptProgress& progress = {});

} // namespace Quillane
