#pragma once

#include <functional>

namespace Quillane {

/// What an action leaves behind in this process, in bytes, and what it took on the way.
struct MemoryGrowth {
    explicit MemoryGrowth(const std::function<void()>& act);

    double resident; ///< pages in memory, afterwards
    double peak;     ///< the same at its highest
    double heap;     ///< by the allocator's own count, afterwards
};

} // namespace Quillane
