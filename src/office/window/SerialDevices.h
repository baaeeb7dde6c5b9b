#pragma once

#include <string>
#include <vector>

namespace Quillane::Office {

/// A serial device of this computer.
struct SerialDevice {
    std::string device;      ///< the name for [Ports]: the permanent one if there is one
    std::string systemName;  ///< "/dev/ttyUSB0"
    std::string description; ///< "FT232R USB UART, FTDI"; may be empty
    std::string access;      ///< who may open it, and what to do if this user may not
};

/// The devices that exist at this moment.
std::vector<SerialDevice> SerialDevices();

/// Describes who may open a device: "May be opened (group dialout)".
std::string DescribeAccess(const std::string& device);

} // namespace Quillane::Office
