#include "signin/PasswordHash.h"

#include "platform/runtime/Failure.h"

#include <sodium.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace Quillane {

namespace {

/// A hash with the interactive cost that belongs to no password.
constexpr const char* UnmatchableHash = "$argon2id$v=19$m=65536,t=2,p=1$AAAAAAAAAAAAAAAAAAAAAA$"
                                        "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA";

constexpr std::size_t hashBytes = 32;
constexpr int base64 = sodium_base64_VARIANT_ORIGINAL_NO_PADDING;

struct SaltAndCost {
    unsigned long kibibytes = 0;
    unsigned long rounds = 0;
    std::array<unsigned char, crypto_pwhash_argon2id_SALTBYTES> salt{};
};

std::optional<SaltAndCost> SaltAndCostOf(const std::string& text) {
    SaltAndCost found;
    int saltBegin = 0;
    if (std::sscanf(text.c_str(), "$argon2id$v=19$m=%lu,t=%lu,p=1$%n", &found.kibibytes,
                    &found.rounds, &saltBegin) != 2 ||
        saltBegin == 0)
        return std::nullopt;
    const std::string salt = text.substr(static_cast<std::size_t>(saltBegin));
    std::size_t bytes = 0;
    if (sodium_base642bin(found.salt.data(), found.salt.size(), salt.data(), salt.size(), nullptr,
                          &bytes, nullptr, base64) != 0 ||
        bytes != found.salt.size())
        return std::nullopt;
    return found;
}

void StartSodium() {
    if (sodium_init() < 0)
        throw Failure(FailureNumber::InvalidCall,
                      "The password library cannot be started. Restart the computer.");
}

constexpr int OutOfMemory = 7;

/// The memory in bytes that checking a hash needs. The hash "$argon2id$v=19$m=65536,t=2,p=1$..."
/// gives it in KiB.
std::size_t MemoryOf(std::string_view hash) {
    constexpr std::string_view name = "$m=";
    const std::size_t at = hash.find(name);
    std::size_t units = 0;
    if (at != std::string_view::npos)
        std::from_chars(hash.data() + at + name.size(), hash.data() + hash.size(), units);
    return units * 1024;
}

// Without enough memory libsodium reports a wrong password, so test the allocation first.
void RefuseWithoutMemory(std::size_t bytes) {
    if (bytes == 0)
        return;
    // The write keeps the compiler from removing the allocation.
    volatile char* const memory = static_cast<char*>(std::malloc(bytes));
    if (memory)
        *memory = 0;
    std::free(const_cast<char*>(memory));
    if (!memory)
        throw Failure(OutOfMemory, "There is not enough memory to check the password. Close "
                                   "other programs and try again.");
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
        throw Failure(OutOfMemory, "There is not enough memory to protect the password. Close "
                                   "other programs and try again.");
    return text.data();
}

bool PasswordMatches(const std::string& storedHash, std::string_view password) {
    StartSodium();
    if (storedHash.size() >= crypto_pwhash_argon2id_STRBYTES)
        return false;
    RefuseWithoutMemory(MemoryOf(storedHash));
    return crypto_pwhash_argon2id_str_verify(storedHash.c_str(), password.data(),
                                             password.size()) == 0;
}

std::string HashOf(std::string_view password, const std::string& salt) {
    StartSodium();
    const std::optional<SaltAndCost> with = SaltAndCostOf(salt);
    if (!with)
        return {};
    RefuseWithoutMemory(MemoryOf(salt));
    std::array<unsigned char, hashBytes> hash{};
    if (crypto_pwhash_argon2id(hash.data(), hash.size(), password.data(), password.size(),
                               with->salt.data(), with->rounds, with->kibibytes * 1024,
                               crypto_pwhash_argon2id_ALG_ARGON2ID13) != 0)
        return {};
    std::array<char, sodium_base64_ENCODED_LEN(hashBytes, base64)> text{};
    return salt + "$" +
           sodium_bin2base64(text.data(), text.size(), hash.data(), hash.size(), base64);
}

void SpendPasswordTime(std::string_view password) {
    PasswordMatches(UnmatchableHash, password);
}

} // namespace Quillane
