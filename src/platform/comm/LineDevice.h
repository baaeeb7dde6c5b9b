#pragma once

#include <string>
#include <string_view>

namespace Quillane {

inline constexpr std::string_view NoSuchDevice =
    "there is no such device. Is the indicator's adapter plugged in?";

/// Why a serial device cannot be opened, as far as that is seen without opening it: it is not
/// there, or this user may not use it. Empty where nothing speaks against it.
std::string FaultOfDevice(const std::string& device);

} // namespace Quillane
