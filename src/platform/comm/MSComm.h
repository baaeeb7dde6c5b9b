#pragma once

#include "platform/forms/core/Control.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

/// The serial line, receive only. Bytes become text one for one (Latin-1: byte value is character
/// code, held here as one char each). The receive buffer is 1,024 bytes; when it is full the oldest
/// are kept and what comes after is dropped, also out of the system's buffer. A line that hangs up
/// closes the port, and the next `Input` fails. Failures carry the source "Serial line" and say to
/// the operator which port and device it is and what is wrong with it.
class MSComm : public Control {
public:
    /// Settings are "rate,parity letter,data bits,stop bits": "9600,n,8,1".
    MSComm(Screen& screen, std::string name, std::int16_t port = 1,
           std::string settings = "9600,n,8,1");
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

    /// Everything received since the last read, and empties the buffer. Fails (8018) when closed.
    std::string Input();

    /// Which device a port number means; the start-up fills it from the station file. An empty
    /// function brings the default back: /dev/ttyS(n-1), or COMn.
    static void SetDevices(std::function<std::string(int port)> deviceOf);

private:
    struct Line;
    std::unique_ptr<Line> line_;
};

} // namespace Quillane
