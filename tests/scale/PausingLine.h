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
/// The station's event loop handles one event after the other: bytes that have arrived, the end of
/// the wait for a pause, and the tick of the screen. During one event the others wait.
struct PausingLine {
    using Duration = Bursts::Duration;

    std::string frame = "+012540 kg\r\n";
    int rate = 2400;       ///< ten bits make a byte
    Duration pause{};      ///< from a frame's last byte to the next one's first
    Duration start{};      ///< position in the first frame and its pause when the port is opened
    Duration adapter{};    ///< the interval at which the adapter passes bytes on; 0: immediately
    Duration busyAtMost{}; ///< the longest time for which the station is busy after a tick
    Duration tick = std::chrono::milliseconds(300);
    int leastBursts = 2; ///< 0: everything received is read, not whole bursts
    Duration time = std::chrono::seconds(10);

    /// Runs the station and reports the texts of all its ticks, except empty ones.
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
