#pragma once

#include <functional>

namespace Quillane {

/// The memory, in bytes, that an action has added to this process, and the peak.
struct MemoryGrowth {
    explicit MemoryGrowth(const std::function<void()>& act);

    double resident; ///< resident pages afterwards
    double peak;     ///< maximum of the resident pages
    double heap;     ///< heap in use afterwards, as counted by the allocator
};

} // namespace Quillane
