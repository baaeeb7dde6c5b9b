#pragma once

#include "platform/comm/Bursts.h"
#include "scale/Decoding.h"

#include <chrono>
#include <functional>
#include <random>
#include <string>

namespace Quillane::Testing {

/// An indicator that pauses after each frame, and a station that reads it, in simulated time.
///
/// The station's event loop takes one event after the other: bytes that have arrived, the end of
/// the wait for a silence, the tick of the screen. While it handles one, the others wait.
struct PausingLine {
    using Duration = Bursts::Duration;

    std::string frame = "+012540 kg\r\n";
    int rate = 2400;       ///< ten bits make a byte
    Duration pause{};      ///< from a frame's last byte to the next one's first
    Duration start{};      ///< into the first frame and its pause, when the port opens
    Duration adapter{};    ///< the adapter hands bytes over this far apart; 0: at once
    Duration busyAtMost{}; ///< the station is busy for up to so long after a tick
    Duration tick = std::chrono::milliseconds(300);
    int leastBursts = 2; ///< 0: everything received is read, not whole bursts
    Duration time = std::chrono::seconds(10);

    /// Runs the station and reports all that its ticks read, empty reads left out.
    void Read(const std::function<void(const std::string& rawText)>& take) const;
};

/// What the readings of the weighment screen show.
struct Readings {
    int all = 0;
    int right = 0;
    int wrong = 0; ///< the others change nothing
};

/// Adds the readings of one run, with these settings, of an indicator that shows this weight.
void Count(Readings& readings, const PausingLine& line, const LiveReading& settings, double weight);

} // namespace Quillane::Testing
