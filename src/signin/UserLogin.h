#pragma once

#include "data/Service.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace Quillane {

class Connection;

inline constexpr int LongestUserName = 40;  ///< characters
inline constexpr int LongestPassword = 128; ///< characters

/// The pause before the next attempt after this many wrong attempts in a row: none after the first
/// two, then 2 seconds, doubled each time up to 30 seconds. No user is locked out.
std::chrono::seconds SignInPause(int wrongInARow);

/// The statement of the sign-in. It is the only statement that may read the password hashes.
inline constexpr const char* ReadsUsers =
    "Select UserName, PasswordHash, UserLevel From StationUsers";

/// The signed-in user.
class UserLoginObject {
public:
    /// Shows the modal sign-in dialog. Returns true if a user has signed in; no caller uses the
    /// result. Requires: `SetConnection` has been called.
    bool Login();
    void SetConnection(Connection& connection);
    /// Signs the user out. `value` is not used.
    void ResetLogin(int value);
    /// 0: nobody is signed in. 1: full rights. Any other value: restricted rights.
    std::int16_t UserLevel() const { return level_; }
    const std::string& UserName() const { return name_; } ///< as stored in the database

    enum class Attempt { SignedIn, Wrong, NoRights };
    /// Signs in the user with this name and password. The name is not case-sensitive, and blanks
    /// around it are ignored. An unknown name takes as long as a wrong password.
    Attempt SignIn(std::string_view name, std::string_view password);
    /// The rest of the pause after wrong attempts; 0 if the next attempt is allowed.
    std::chrono::milliseconds PauseLeft() const;

    /// The reminder that the last backup of an embedded database is old; empty if there is none.
    /// Runs no statement.
    std::string ReminderOfBackup() const;

    /// Called by F1 in the dialog. May be empty.
    std::function<void()> About;

private:
    Connection* connection_ = nullptr;
    std::int16_t level_ = 0;
    std::string name_;
    int wrongInARow_ = 0;
    std::chrono::steady_clock::time_point pauseEnd_{};
};

extern Service<UserLoginObject> UserLogin;

} // namespace Quillane
