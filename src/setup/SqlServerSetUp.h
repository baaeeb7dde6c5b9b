#pragma once

#include "setup/SqlServerSchema.h"
#include "setup/SqlServerTryOut.h"

namespace Quillane {

class LongWork;

/// Makes a station's database on SQL Server ready: what is missing is made from the particulars,
/// and where an owner signs in for the set-up, the station's own sign-in becomes a user of the
/// database with the role StationOperator. `particulars` is none for a database that is complete.
/// Last, the station's sign-in is tried on what was made; a fault of it is a failure.
///
/// Whatever cancels it leaves nothing that hinders: the next call does the rest.
SetUpOutcome MakeSqlServerDatabaseReady(const SqlServerPlace& station, const OwnerSignIn& owner,
                                        const NewDatabase* particulars, LongWork& work);

} // namespace Quillane
