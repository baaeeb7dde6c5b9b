#pragma once

#include <cstdlib>
#include <unistd.h>

namespace Quillane {

constexpr unsigned nobody = 65534;

/// This process gives up the rights of root, who may do everything. No change for another user. For
/// the child process of `EXPECT_EXIT`.
inline void BecomeNobody() {
    constexpr int notPossibleHere = 77;
    if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
        std::_Exit(notPossibleHere);
}

} // namespace Quillane
