#pragma once

#include "setup/EmbeddedSchema.h"
#include "setup/ScriptBatches.h"

namespace Quillane {

class Connection;

/// How a set-up on SQL Server ended.
struct SetUpOutcome {
    bool isFinished = false; ///< false where it was cancelled
    /// Rows that a table of the site's own did not take, such as "PortSettings: DataLength".
    std::vector<std::string> rowsNotAdded{};

    explicit operator bool() const { return isFinished; }
};

/// Makes a station's database out of the database on SQL Server that the connection is on, which
/// may be empty or hold a mill's accounts. Only what is missing is made: tables, functions and
/// rows; `RenewRights` makes the roles. A row of settings, or of the company's particulars, that a
/// table of the site's own does not take is left out. Particulars of the company that the database
/// has already stay, unless they are to be replaced, and where it has users of stations, or the
/// particulars name no user, nobody is added. Sample rows, and the second user that comes with
/// them, go into a database without accounts and arrivals alone. One with an older schema number
/// gets the missing steps first; one with a newer number, or with none that can be read, fails and
/// is left as it is.
///
/// Needs the rights of the database's owner. Where it breaks off, by a failure or because
/// `progress` answers no, what was made so far stays, hinders nobody, and the next call does the
/// rest. Not finished where `progress` has answered no.
SetUpOutcome SetUpSqlServerDatabase(Connection& connection, const NewDatabase& particulars,
                                    const ScriptProgress& progress = {});

} // namespace Quillane
