#pragma once

#include "signin/PasswordHash.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {
class Connection;
}

/// The users of the stations. Each write is one transaction, and gives the reason where it is
/// refused: what is wrong and what to do, in whole sentences. It is empty where all is done.
namespace Quillane::Office {

struct User {
    std::string name;
    std::int32_t level = 0; ///< 0: may not sign in; 1: full rights; any other: restricted
};

inline constexpr std::int32_t FullRights = 1;
inline constexpr std::int32_t RestrictedRights = 2;
inline constexpr int ShortestPassword = 8; ///< characters

/// In the order of their names.
std::vector<User> ReadUsers(Connection& connection);

/// What is asked of a password, told before it is typed.
std::string PasswordRule();
std::string WhyPasswordIsUnfit(std::string_view password);

/// The name is taken without blanks around it; two users never have the same name, whatever its
/// case.
std::string AddUser(Connection& connection, const User& user, std::string_view password,
                    HashCost cost = HashCost::Interactive);
std::string SetPassword(Connection& connection, std::string_view name, std::string_view password,
                        HashCost cost = HashCost::Interactive);

// Refused where the user is not as shown, and where nobody with full rights would be left.
std::string SetLevel(Connection& connection, const User& shown, std::int32_t level);
std::string RemoveUser(Connection& connection, const User& shown);

} // namespace Quillane::Office
