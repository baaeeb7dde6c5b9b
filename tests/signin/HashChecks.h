#pragma once

#include <string>
#include <vector>

namespace Quillane::Testing {

/// The costs of libsodium's password checks since the last call, as the hash names them:
/// "m=65536,t=2,p=1". The duration of a check depends on its cost.
std::vector<std::string> TakeHashChecks();

} // namespace Quillane::Testing
