#pragma once

#include <functional>

namespace Quillane {

/// Runs a function in a forked process and waits for its end. Returns false if it fails.
bool RunApart(const std::function<void()>& act);

} // namespace Quillane
