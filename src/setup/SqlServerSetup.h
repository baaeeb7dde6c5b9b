#pragma once

#include "setup/SqlServerDatabaseSetup.h"
#include "setup/SqlServerTryOut.h"

namespace Quillane {

class LongWork;

/// Prepares a database on SQL Server for a station:
/// 1. creates what is missing from the particulars; null for a database that is complete,
/// 2. if an owner signs in for the set-up, makes the station's sign-in a user of the database with
///    the role StationOperator,
/// 3. tests the station's sign-in.
///
/// Errors: a Failure if one of these fails. After a failure or a cancellation the next call does
/// the rest.
SetupOutcome PrepareSqlServerDatabase(const SqlServerTarget& station, const OwnerSignIn& owner,
                                      const NewDatabase* particulars, LongWork& work);

} // namespace Quillane
