#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace Quillane {

/// What a line receives, taken in whole bursts: bytes with a silence before and after them. For
/// indicators that pause between their frames, so that nothing is read that ends within a frame.
///
/// Each look at the line is reported with its time. Only a look that finds nothing, long enough
/// after the last byte, proves a silence. Two looks that both bring bytes prove none, however far
/// apart they are: the program may have been busy, and not the line silent. A silence that is not
/// seen joins two bursts, which are whole all the same.
class Bursts {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    /// A silence of this length ends a burst, and at least so many bursts are taken at once. What
    /// comes before the first silence after the opening is dropped: its beginning is missing.
    Bursts(Duration silence, int atLeast, Time opened);

    /// A look brought these bytes, and ended at this time. A burst that does not fit into the
    /// buffer of 1,024 bytes is dropped; the older ones are kept.
    void Receive(std::string_view bytes, Time end);
    /// A look brought nothing, and began at this time.
    void FindNothing(Time begin);

    /// All whole bursts since the last call; nothing while there are too few.
    std::string Take();

    /// Nothing has come for the length of a silence.
    bool IsSilent() const { return silent_; }
    /// Bytes have come for five seconds, and the looks were close enough to see any silence.
    bool NeverPauses() const;

private:
    Duration silence_;
    int atLeast_;
    std::string whole_;
    int count_ = 0; ///< of the bursts in whole_
    std::string current_;
    bool currentIsWhole_ = false; ///< it has its beginning, and nothing of it was dropped
    bool silent_ = false;
    Time last_;     ///< no byte came between this time and the last look
    Time unpaused_; ///< no silence since this time
};

} // namespace Quillane
