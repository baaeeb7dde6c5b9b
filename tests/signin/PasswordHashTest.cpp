#include "signin/PasswordHash.h"

#include <gtest/gtest.h>

#include <chrono>

namespace Quillane {

TEST(PasswordHash, IsArgon2idAndMatchesOnlyItsPassword) {
    const std::string hash = HashPassword("Grain & chaff دانہ", HashCost::Minimum);
    EXPECT_TRUE(hash.starts_with("$argon2id$")) << hash;
    EXPECT_TRUE(PasswordMatches(hash, "Grain & chaff دانہ"));
    EXPECT_FALSE(PasswordMatches(hash, "grain & chaff دانہ"));
    EXPECT_FALSE(PasswordMatches(hash, ""));
}

TEST(PasswordHash, HasASaltOfItsOwn) {
    EXPECT_NE(HashPassword("same", HashCost::Minimum), HashPassword("same", HashCost::Minimum));
}

TEST(PasswordHash, NothingMatchesATextThatIsNoHash) {
    for (const std::string& text :
         {std::string(), std::string("grain"), std::string("$argon2id$"), std::string(5000, 'x')})
        EXPECT_FALSE(PasswordMatches(text, "grain"));
}

TEST(PasswordHash, AnUnknownUserTakesAsLongAsAWrongPassword) {
    const std::string hash = HashPassword("grain");
    const auto timed = [](const auto& act) {
        auto best = std::chrono::steady_clock::duration::max();
        for (int round = 0; round < 5; ++round) {
            const auto start = std::chrono::steady_clock::now();
            act();
            best = std::min(best, std::chrono::steady_clock::now() - start);
        }
        return std::chrono::duration<double>(best).count();
    };
    const double wrong = timed([&] { PasswordMatches(hash, "chaff"); });
    const double unknown = timed([] { SpendPasswordTime("chaff"); });
    EXPECT_GT(unknown, wrong / 2);
    EXPECT_LT(unknown, wrong * 2);
}

} // namespace Quillane
