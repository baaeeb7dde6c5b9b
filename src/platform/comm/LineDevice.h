#pragma once

#include <string>

namespace Quillane {

/// Returns why a serial device cannot be opened, without opening it: it does not exist, or this
/// user has no permission. Empty if neither is the case.
std::string FaultOfDevice(const std::string& device);
/// The text for a missing device.
std::string NoSuchDevice();

} // namespace Quillane
