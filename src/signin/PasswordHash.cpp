#include "signin/PasswordHash.h"

#include "platform/runtime/Failure.h"

#include <sodium.h>

#include <array>

namespace Quillane {

namespace {

/// A hash at the interactive cost that no password of anybody's is behind.
constexpr const char* NobodysHash = "$argon2id$v=19$m=65536,t=2,p=1$AAAAAAAAAAAAAAAAAAAAAA$"
                                    "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA";

void StartSodium() {
    if (sodium_init() < 0)
        throw Failure(FailureNumber::InvalidCall, "The password library cannot be started");
}

} // namespace

std::string HashPassword(std::string_view password, HashCost cost) {
    StartSodium();
    const bool minimum = cost == HashCost::Minimum;
    std::array<char, crypto_pwhash_argon2id_STRBYTES> text{};
    const int outcome = crypto_pwhash_argon2id_str(
        text.data(), password.data(), password.size(),
        minimum ? crypto_pwhash_argon2id_OPSLIMIT_MIN : crypto_pwhash_argon2id_OPSLIMIT_INTERACTIVE,
        minimum ? crypto_pwhash_argon2id_MEMLIMIT_MIN
                : crypto_pwhash_argon2id_MEMLIMIT_INTERACTIVE);
    if (outcome != 0)
        throw Failure(7, "There is not enough memory to protect the password");
    return text.data();
}

bool PasswordMatches(const std::string& storedHash, std::string_view password) {
    StartSodium();
    return storedHash.size() < crypto_pwhash_argon2id_STRBYTES &&
           crypto_pwhash_argon2id_str_verify(storedHash.c_str(), password.data(),
                                             password.size()) == 0;
}

void SpendPasswordTime(std::string_view password) {
    PasswordMatches(NobodysHash, password);
}

} // namespace Quillane
