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

/// The server's database may not be written: it holds what does not belong to this move.
class MoveRefused : public Failure {
public:
    using Failure::Failure;
};

/// What a server's database holds before a move.
enum class TargetState {
    Free,       ///< no rows but those that the schema's script adds
    Unfinished, ///< what an earlier move of this database has left
    Complete    ///< all rows of the embedded database, and no others
};

/// `mark` is what an unfinished move of this database is known by there. Rows of the tables in
/// `filledBySchema` are replaced by a move. Fails (`MoveRefused`) where there are other rows than
/// ours, or the unfinished move of another database. Throws `Cancelled` where the work is
/// cancelled.
TargetState LookAtTarget(const SourceDatabase& source, TargetDatabase& target,
                         const std::string& mark, const std::set<std::string>& filledBySchema,
                         LongWork& work);

/// Fails where a table or a column is not on the server.
void CheckTables(const SourceDatabase& source, TargetDatabase& target);

/// By table, in the order of the source's tables.
using Digests = std::vector<Digest>;

/// Empties the tables on the server and stores all rows there, in transactions of some hundred
/// rows. Gives what has been stored. Throws `Cancelled` where the work is cancelled.
Digests CopyRows(const SourceDatabase& source, TargetDatabase& target, LongWork& work);

/// Reads all rows on the server and compares their counts, sums and checksums. Fails with the
/// table, and with the first row that differs. Throws `Cancelled` where the work is cancelled.
void CompareRows(const SourceDatabase& source, const Digests& digests, TargetDatabase& target,
                 LongWork& work);

} // namespace Quillane::Office
