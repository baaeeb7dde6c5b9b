#include "signin/PasswordHash.h"

#include "platform/runtime/Failure.h"
#include "signin/HashChecks.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace Quillane {
namespace {

TEST(PasswordHash, IsArgon2idAndMatchesOnlyItsPassword) {
    const std::string hash = HashPassword("Grain & chaff دانہ", HashCost::Minimum);
    EXPECT_TRUE(hash.starts_with("$argon2id$")) << hash;
    EXPECT_TRUE(PasswordMatches(hash, "Grain & chaff دانہ"));
    EXPECT_FALSE(PasswordMatches(hash, "grain & chaff دانہ"));
    EXPECT_FALSE(PasswordMatches(hash, ""));
}

TEST(PasswordHash, HasItsOwnSalt) {
    EXPECT_NE(HashPassword("same", HashCost::Minimum), HashPassword("same", HashCost::Minimum));
}

TEST(PasswordHash, TextThatIsNotAHashMatchesNothing) {
    for (const std::string& text :
         {std::string(), std::string("grain"), std::string("$argon2id$"), std::string(5000, 'x')})
        EXPECT_FALSE(PasswordMatches(text, "grain"));
}

/// Limits the process to little more memory than it uses, and ends it with the message of the
/// action.
template <typename Act>
[[noreturn]] void EndInWordsWithoutMemory(const Act& act) {
    const std::string hash = HashPassword("grain", HashCost::Minimum);
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    constexpr rlim_t more = 16 << 20; // an interactive hash takes 64 MB
    const rlim_t most = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + more;
    const rlimit limit{most, most};
    ::setrlimit(RLIMIT_AS, &limit);
    try {
        act();
        std::fputs("no failure", stderr);
    } catch (const Failure& failure) {
        std::fputs(failure.what(), stderr);
    }
    std::_Exit(0);
}

bool IsSanitized() {
#ifdef __SANITIZE_ADDRESS__
    return true;
#else
    return false;
#endif
}

TEST(PasswordHashDeathTest, TooLittleMemoryIsNotReportedAsAWrongPassword) {
    if (IsSanitized())
        GTEST_SKIP() << "the sanitizer needs more memory than the limit allows";
    const std::string hash = HashPassword("grain");
    const char* words =
        "There is not enough memory to check the password. Close other programs and try again.$";
    const auto ended = testing::ExitedWithCode(0);
    EXPECT_EXIT(EndInWordsWithoutMemory([&] { PasswordMatches(hash, "grain"); }), ended, words);
    EXPECT_EXIT(EndInWordsWithoutMemory([&] { PasswordMatches(hash, "chaff"); }), ended, words);
    EXPECT_EXIT(EndInWordsWithoutMemory([&] { SpendPasswordTime("grain"); }), ended, words);
    EXPECT_EXIT(
        EndInWordsWithoutMemory([&] { HashPassword("grain"); }), ended,
        "There is not enough memory to protect the password. Close other programs and try again.$");
}

TEST(PasswordHash, UnknownUserCostsAsMuchAsAWrongPassword) {
    const std::string hash = HashPassword("grain");
    Testing::TakeHashChecks();
    PasswordMatches(hash, "chaff");
    const std::vector<std::string> wrong = Testing::TakeHashChecks();
    SpendPasswordTime("chaff");
    EXPECT_EQ(Testing::TakeHashChecks(), wrong);
    EXPECT_EQ(wrong.size(), 1U);
}

TEST(PasswordHash, IsComputedAgainFromItsSaltAndCost) {
    const std::string stored = HashPassword("wheat", HashCost::Minimum);
    const std::string salt = stored.substr(0, stored.rfind('$'));
    EXPECT_EQ(HashOf("wheat", salt), stored);
    EXPECT_NE(HashOf("Wheat", salt), stored);
    EXPECT_NE(HashOf("", salt), stored);
}

TEST(PasswordHash, InvalidSaltGivesNoHash) {
    for (const char* salt :
         {"", "$", "grain", "$argon2id$v=19$m=8,t=1,p=1$", "$argon2id$v=19$m=8,t=1,p=1$c2FsdA",
          "$argon2id$v=19$m=8,t=1,p=2$AAAAAAAAAAAAAAAAAAAAAA",
          "$argon2i$v=19$m=8,t=1,p=1$AAAAAAAAAAAAAAAAAAAAAA",
          "$argon2id$v=19$m=8,t=1,p=1$AAAAAAAAAAAAAAAAAAAAAA$AAAA"})
        EXPECT_EQ(HashOf("wheat", salt), "") << salt;
}

} // namespace
} // namespace Quillane
