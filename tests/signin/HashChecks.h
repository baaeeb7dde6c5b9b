#pragma once

#include <string>
#include <vector>

namespace Quillane::Testing {

/// The cost of each password check of libsodium since the last call, as the hash names it:
/// "m=65536,t=2,p=1". The time of a check follows from its cost.
std::vector<std::string> TakeHashChecks();

} // namespace Quillane::Testing
