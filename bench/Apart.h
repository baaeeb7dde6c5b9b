#pragma once

#include <functional>

namespace Quillane {

/// Acts in a process of its own, which begins as this one stands, and waits for its end. False
/// where it breaks off.
bool RunApart(const std::function<void()>& act);

} // namespace Quillane
