#pragma once

namespace Quillane {

/// Brings what an embedded database's journal holds into its file, once nothing has been stored for
/// a moment: a copy of the file alone is complete then. While others are at work in the database it
/// tries again, after the same moment.
void WriteBackWhenIdle();

} // namespace Quillane
