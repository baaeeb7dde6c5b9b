#pragma once

#include "platform/forms/core/Control.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

class SerialLine;

/// The serial line, receive only. Bytes become text one for one (Latin-1: byte value is character
/// code, held here as one char each). The receive buffer is 1,024 bytes; when it is full the oldest
/// are kept and what comes after is dropped, also out of the system's buffer. A line that hangs up
/// closes the port, and the next `Input` fails. Failures carry the source "Serial line" and say to
/// the operator which port and device it is and what is wrong with it.
///
/// A port may be read in whole bursts instead, for an indicator that pauses between its frames:
/// `Input` then gives bytes only up to a silence of three characters' time and at least 50 ms, and
/// only where there are several such bursts, so that none of its numbers is cut and the first one
/// may be thrown away.
class MSComm : public Control {
public:
    /// Settings are "rate,parity letter,data bits,stop bits": "9600,n,8,1". Where the port is read
    /// in whole bursts, `Input` gives at least so many at once.
    MSComm(Screen& screen, std::string name, std::int16_t port = 1,
           std::string_view settings = "9600,n,8,1", int leastBursts = 2);
    ~MSComm() override;

    bool PortOpen() const;
    /// True on an open port fails (8005), on one that cannot be opened (8002). False on a closed
    /// port does nothing.
    void SetPortOpen(bool open);

    std::int16_t CommPort() const;
    /// Fails (8005) while the port is open, (5) for a number below 1.
    void SetCommPort(std::int16_t port);
    const std::string& Settings() const;
    /// Fails (8005) while the port is open; a text of another form fails (5), nothing changes.
    void SetSettings(std::string_view settings);

    /// Everything received since the last read, and empties the buffer. Fails (8018) when closed,
    /// and (8002) where a port that is read in whole bursts has not paused for five seconds.
    std::string Input();

    /// Which device a port number means; the start-up fills it from the station file. With an empty
    /// function it is the one of a station file that names no ports.
    static void SetDevices(std::function<std::string(int port)> deviceOf);
    /// Which ports are read in whole bursts, likewise; asked at each opening. By default none is.
    static void SetWholeBursts(std::function<bool(int port)> hasWholeBursts);
    /// The clock that measures silences; an empty function brings the system's back.
    static void SetClock(std::function<std::chrono::steady_clock::time_point()> clock);

private:
    void FailWhileOpen(std::string_view what) const;

    std::unique_ptr<SerialLine> line_;
};

} // namespace Quillane
