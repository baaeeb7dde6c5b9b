#pragma once

namespace Quillane {

/// Starts a timer of 1.5 seconds, or restarts it. When it expires, the journal of an embedded
/// database is written back (checkpointed) into the database file, so that a copy of this file
/// is complete. If another session is using the database, the timer starts again.
void WriteBackWhenIdle();

} // namespace Quillane
