#pragma once

#include "office/move/Digest.h"
#include "office/move/TargetDatabase.h"
#include "platform/runtime/Failure.h"

#include <set>
#include <string>
#include <vector>

namespace Quillane {
class LongWork;
} // namespace Quillane

/// Moves the rows of an embedded database to a server. Nothing here depends on the kind of server.
namespace Quillane::Office {

/// The server's database must not be written: it contains rows that do not belong to this move.
class MoveRefused : public Failure {
public:
    using Failure::Failure;
};

/// The contents of a server's database before a move.
enum class TargetState {
    Free,       ///< only the rows that the schema's script adds
    Unfinished, ///< rows of an earlier move of this database
    Complete    ///< exactly the rows of the embedded database
};

/// `mark` identifies an unfinished move of this database on the server. A move replaces the rows of
/// the tables in `filledBySchema`. Errors: `MoveRefused` if there are other rows than those of this
/// database, or the unfinished move of another one. Throws `Cancelled` if the work is cancelled.
TargetState LookAtTarget(const SourceDatabase& source, TargetDatabase& target,
                         const std::string& mark, const std::set<std::string>& filledBySchema,
                         LongWork& work);

/// Errors: a table or a column does not exist on the server.
void CheckTables(const SourceDatabase& source, TargetDatabase& target);

/// By table, in the order of the source's tables.
using Digests = std::vector<Digest>;

/// Deletes the rows of the tables on the server and stores all rows there, in transactions of some
/// hundred rows. Returns the digests of the stored rows. Throws `Cancelled` if the work is
/// cancelled.
Digests CopyRows(const SourceDatabase& source, TargetDatabase& target, LongWork& work);

/// Reads all rows on the server and compares their counts, sums and checksums. Errors: the table,
/// and the first row that differs. Throws `Cancelled` if the work is cancelled.
void CompareRows(const SourceDatabase& source, const Digests& digests, TargetDatabase& target,
                 LongWork& work);

} // namespace Quillane::Office
