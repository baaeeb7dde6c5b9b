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

/// The serial line, receive only. Each received byte is one char of the text (Latin-1). The receive
/// buffer has 1,024 bytes; when it is full, new bytes are dropped, also from the buffer of the
/// system. A line that hangs up closes the port, and the next `Input` fails. Failures have the
/// source "Serial line" and name the port, the device and the cause.
///
/// For an indicator that pauses between its frames, a port can be read in whole bursts. `Input`
/// then returns only bytes followed by a pause of three character times and at least 50 ms, and
/// only several bursts together, so that no number is cut and the first one can be dropped.
class MSComm : public Control {
public:
    /// Settings are "rate,parity letter,data bits,stop bits": "9600,n,8,1". If the port is read in
    /// whole bursts, `Input` returns at least `leastBursts` of them.
    MSComm(Screen& screen, std::string name, std::int16_t port = 1,
           std::string_view settings = "9600,n,8,1", int leastBursts = 2);
    ~MSComm() override;

    bool PortOpen() const;
    /// Errors: opening fails with 8005 if the port is already open, with 8002 if it cannot be
    /// opened. Closing a closed port does nothing.
    void SetPortOpen(bool open);

    std::int16_t CommPort() const;
    /// Errors: 8005 if the port is open, 5 for a number below 1.
    void SetCommPort(std::int16_t port);
    const std::string& Settings() const;
    /// Errors: 8005 if the port is open, 5 for an invalid text; the settings are then not changed.
    void SetSettings(std::string_view settings);

    /// Returns everything received since the last call. Errors: 8018 if the port is closed, 8002 if
    /// it is read in whole bursts and the line has not paused for five seconds.
    std::string Input();

    /// Sets the function that maps a port number to its device; the start sets it to the station
    /// file. An empty function means the default devices.
    static void SetDevices(std::function<std::string(int port)> deviceOf);
    /// Sets the function that selects the ports to read in whole bursts, by default none. It is
    /// called at each opening.
    static void SetWholeBursts(std::function<bool(int port)> hasWholeBursts);
    /// Sets the clock that measures pauses. An empty function restores the system clock.
    static void SetClock(std::function<std::chrono::steady_clock::time_point()> clock);

private:
    void FailWhileOpen(std::string_view what) const;

    std::unique_ptr<SerialLine> line_;
};

} // namespace Quillane
