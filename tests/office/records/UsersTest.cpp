#include "office/records/Users.h"

#include "OfficeDatabase.h"

#include "signin/UserLogin.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <optional>

namespace Quillane::Office {
namespace {

using Attempt = UserLoginObject::Attempt;

class Users : public testing::Test {
protected:
    Users() { login.SetConnection(database.other); }

    std::string Add(const User& user, std::string_view password = "sack-of-wheat") {
        return AddUser(database.connection, user, password, HashCost::Minimum);
    }
    std::string Reset(std::string_view name, std::string_view password) {
        return SetPassword(database.connection, name, password, HashCost::Minimum);
    }
    std::optional<std::int32_t> LevelOf(const std::string& name) {
        for (const User& user : ReadUsers(database.other))
            if (user.name == name)
                return user.level;
        return std::nullopt;
    }

    OfficeDatabase database; ///< Nadia has level 1, "gate" level 2
    UserLoginObject login;
};

TEST_F(Users, AddedUserCanSignInAtTheStation) {
    EXPECT_EQ(Add({" Imran ", RestrictedRights}), "");
    EXPECT_EQ(login.SignIn("imran", "sack-of-wheat"), Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), RestrictedRights);
    EXPECT_EQ(login.UserName(), "Imran");
}

TEST_F(Users, NamesAreUniqueInAnyCase) {
    const std::string taken =
        "There is already a user \"Nadia\". Names are not case-sensitive. Choose another.";
    EXPECT_EQ(Add({"nadia", 2}), taken);
    EXPECT_EQ(Add({" NADIA", 1}), taken);
    EXPECT_EQ(Add({"Élodie", 2}), "");
    EXPECT_NE(Add({"éLODIE", 2}), "");
    EXPECT_EQ(ReadUsers(database.other).size(), 3U);
}

TEST_F(Users, InvalidNameIsRefused) {
    EXPECT_EQ(Add({"  ", 2}), "The name of the user is missing. Enter a name.");
    EXPECT_EQ(Add({std::string(41, 'x'), 2}),
              "The name has more than 40 characters. Choose a shorter one.");
    EXPECT_EQ(Add({"Ali\nBaba", 2}),
              "The name contains a line break or another control character. Remove it.");
    EXPECT_EQ(Add({"O'Brien محمد", 2}), "");
    EXPECT_EQ(login.SignIn("o'brien محمد", "sack-of-wheat"), Attempt::SignedIn);
}

TEST_F(Users, InvalidLevelIsRefused) {
    EXPECT_NE(Add({"Imran", -1}), "");
    EXPECT_NE(Add({"Imran", 32768}), "");
    EXPECT_EQ(Add({"Imran", 32767}), "");
}

TEST_F(Users, PasswordOfInvalidLengthIsRefusedWithTheRule) {
    EXPECT_EQ(PasswordRule(),
              "At least 8 characters, at most 128. The password is case-sensitive.");
    EXPECT_EQ(Add({"Imran", 2}, "seven77"), "The password has 7 characters. " + PasswordRule());
    EXPECT_EQ(Add({"Imran", 2}, std::string(129, 'x')),
              "The password has 129 characters. " + PasswordRule());
    EXPECT_EQ(Add({"Imran", 2}, "گندم کی بوری"), "") << "counted in characters";
    EXPECT_EQ(LevelOf("Imran"), 2);
}

TEST_F(Users, NewPasswordReplacesTheOldOne) {
    EXPECT_EQ(Reset("GATE", "new-at-the-gate"), "");
    EXPECT_EQ(login.SignIn("gate", "gate"), Attempt::Wrong);
    EXPECT_EQ(login.SignIn("gate", "new-at-the-gate"), Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), 2);
}

TEST_F(Users, PasswordOfAnUnknownUserIsNotReset) {
    EXPECT_EQ(Reset("nobody", "new-at-the-gate"),
              "There is no user \"nobody\". Update the list of users.");
    EXPECT_NE(Reset("gate", "short"), "");
    EXPECT_EQ(login.SignIn("gate", "gate"), Attempt::SignedIn);
}

TEST_F(Users, LevelIsChanged) {
    EXPECT_EQ(SetLevel(database.connection, {"gate", 2}, FullRights), "");
    EXPECT_EQ(LevelOf("gate"), FullRights);
}

TEST_F(Users, LastUserOfLevelOneCannotBeRemoved) {
    const std::string last = "\"Nadia\" is the last user of level 1. Users and lists cannot be "
                             "edited without one. Give another user level 1 first.";
    EXPECT_EQ(RemoveUser(database.connection, {"Nadia", 1}), last);
    EXPECT_EQ(SetLevel(database.connection, {"Nadia", 1}, 2), last);
    EXPECT_EQ(SetLevel(database.connection, {"Nadia", 1}, 0), last);
    EXPECT_EQ(SetLevel(database.connection, {"Nadia", 1}, 1), "");
    EXPECT_EQ(LevelOf("Nadia"), 1);
}

TEST_F(Users, OneOfTwoUsersOfLevelOneCanBeRemoved) {
    EXPECT_EQ(SetLevel(database.connection, {"gate", 2}, 1), "");
    EXPECT_EQ(RemoveUser(database.connection, {"Nadia", 1}), "");
    EXPECT_EQ(LevelOf("Nadia"), std::nullopt);
    EXPECT_EQ(LevelOf("gate"), 1);
}

TEST_F(Users, UserOfARestrictedLevelCanBeRemoved) {
    EXPECT_EQ(RemoveUser(database.connection, {"gate", 2}), "");
    EXPECT_EQ(ReadUsers(database.other).size(), 1U);
}

TEST_F(Users, LevelChangedByAnotherSessionIsReported) {
    EXPECT_EQ(SetLevel(database.other, {"gate", 2}, 3), "");
    const std::string changed = "Another user has changed the level of \"gate\" from 2 to 3 in the "
                                "meantime. Nothing was written. Check the level and try again.";
    EXPECT_EQ(SetLevel(database.connection, {"gate", 2}, 1), changed);
    EXPECT_EQ(RemoveUser(database.connection, {"gate", 2}), changed);
    EXPECT_EQ(LevelOf("gate"), 3);
    EXPECT_EQ(RemoveUser(database.other, {"gate", 3}), "");
    EXPECT_EQ(SetLevel(database.connection, {"gate", 3}, 1),
              "There is no user \"gate\". Update the list of users.");
}

// Each session still shows two users of level 1.
TEST_F(Users, TwoSessionsCannotRemoveTheLastTwoUsersOfLevelOne) {
    ASSERT_EQ(SetLevel(database.connection, {"gate", 2}, 1), "");
    EXPECT_EQ(RemoveUser(database.connection, {"Nadia", 1}), "");
    EXPECT_NE(RemoveUser(database.other, {"gate", 1}), "");
    EXPECT_EQ(LevelOf("gate"), 1);
}

TEST_F(Users, RefusedWriteLeavesTheConnectionUsable) {
    database.Refuse({.write = "INSERT", .table = "StationUsers", .words = "closed"});
    EXPECT_THROW(Add({"Imran", 2}), Failure);
    database.AcceptAgain();
    EXPECT_EQ(Add({"Imran", 2}), "");
}

} // namespace
} // namespace Quillane::Office
