// Counts the calls of libsodium's check. The definition here comes before the library's, to which
// it passes each call on.

#include "signin/HashChecks.h"

#include <dlfcn.h>

#include <utility>

namespace {

std::vector<std::string> checks;

std::string CostOf(const std::string& hash) {
    const std::size_t begin = hash.find("m=");
    return begin == std::string::npos ? hash : hash.substr(begin, hash.find('$', begin) - begin);
}

} // namespace

extern "C" int crypto_pwhash_argon2id_str_verify(const char* hash, const char* password,
                                                 unsigned long long length) {
    using Check = int (*)(const char*, const char*, unsigned long long);
    static const auto check =
        reinterpret_cast<Check>(dlsym(RTLD_NEXT, "crypto_pwhash_argon2id_str_verify"));
    checks.push_back(CostOf(hash));
    return check(hash, password, length);
}

namespace Quillane::Testing {

std::vector<std::string> TakeHashChecks() {
    return std::exchange(checks, {});
}

} // namespace Quillane::Testing
