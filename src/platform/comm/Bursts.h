#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace Quillane {

/// Splits the received bytes into whole bursts: bytes with a pause before and after them. For
/// indicators that pause between their frames, so that no partial frame is read.
///
/// Each read of the line is reported with its time. Only a read that finds nothing, long enough
/// after the last byte, proves a pause. Two reads that both find bytes prove none, however much
/// time is between them, because the program may have been busy. If a pause is not detected, two
/// bursts are joined, which are complete nevertheless.
class Bursts {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    /// A pause of the length `silence` ends a burst. `Take` returns at least `atLeast` bursts.
    /// Bytes before the first pause after opening are dropped, because their beginning is missing.
    Bursts(Duration silence, int atLeast, Time opened);

    /// Reports a read that found these bytes and ended at this time. A burst that does not fit into
    /// the buffer of 1,024 bytes is dropped; the older ones are kept.
    void Receive(std::string_view bytes, Time end);
    /// Reports a read that found nothing and began at this time.
    void FindNothing(Time begin);

    /// Returns all whole bursts since the last call; nothing while there are too few.
    std::string Take();

    /// True if no byte has been received for the length of a pause.
    bool IsSilent() const { return silent_; }
    /// True if bytes have been received for five seconds without a pause.
    bool NeverPauses() const;

private:
    Duration silence_;
    int atLeast_;
    std::string whole_;
    int count_ = 0; ///< number of bursts in whole_
    std::string current_;
    bool currentIsWhole_ = false; ///< current_ starts with a pause and has lost no bytes
    bool silent_ = false;
    Time last_;     ///< no byte was received between this time and the last read
    Time unpaused_; ///< no pause since this time
};

} // namespace Quillane
