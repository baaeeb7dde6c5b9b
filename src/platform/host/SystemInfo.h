#pragma once

#include <string>

namespace Quillane {

/// Information about the operating system.
struct SystemInfo {
    /// The product name of the running system, for example "Microsoft Windows XP".
    static std::string OsName();
};

} // namespace Quillane
