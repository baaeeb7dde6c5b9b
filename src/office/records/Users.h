#pragma once

#include "signin/PasswordHash.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {
class Connection;
}

/// The users of the stations. Each write is one transaction. It returns the empty text, or, if it
/// is refused, whole sentences: what is wrong and what to do.
namespace Quillane::Office {

struct User {
    std::string name;
    std::int32_t level = 0; ///< 0: may not sign in; 1: full rights; any other: restricted
};

inline constexpr std::int32_t FullRights = 1;
inline constexpr std::int32_t RestrictedRights = 2;
inline constexpr int ShortestPassword = 8; ///< characters

/// Reads all users, ordered by name.
std::vector<User> ReadUsers(Connection& connection);

/// The rule for passwords, which is shown before one is entered.
std::string PasswordRule();
std::string WhyPasswordIsUnfit(std::string_view password);

/// White space around the name is removed. Names are unique and not case-sensitive.
std::string AddUser(Connection& connection, const User& user, std::string_view password,
                    HashCost cost = HashCost::Interactive);
std::string SetPassword(Connection& connection, std::string_view name, std::string_view password,
                        HashCost cost = HashCost::Interactive);

// Refused if the user has been changed since it was read, or if no user with full rights would
// remain.
std::string SetLevel(Connection& connection, const User& shown, std::int32_t level);
std::string RemoveUser(Connection& connection, const User& shown);

} // namespace Quillane::Office
