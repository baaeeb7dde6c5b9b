#pragma once

#include <string>

namespace Quillane {

/// Why a serial device cannot be opened, as far as that is seen without opening it: it is not
/// there, or this user may not use it. Empty where nothing speaks against it.
std::string FaultOfDevice(const std::string& device);
/// The first of these faults.
std::string NoSuchDevice();

} // namespace Quillane
