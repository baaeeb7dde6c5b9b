#pragma once

#include <string>
#include <vector>

namespace Quillane::Office {

/// A serial device of this computer.
struct SerialDevice {
    std::string device;      ///< the name that [Ports] takes: the lasting one where there is one
    std::string systemName;  ///< "/dev/ttyUSB0"
    std::string description; ///< "FT232R USB UART, FTDI"; may be empty
    std::string access;      ///< who may open it, and what to do where this user may not
};

/// The devices that exist now.
std::vector<SerialDevice> SerialDevices();

/// Who may open a device: "May be opened (group dialout)".
std::string DescribeAccess(const std::string& device);

} // namespace Quillane::Office
