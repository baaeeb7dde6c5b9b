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

/// How long the next attempt to sign in has to wait after so many wrong ones in a row: not at all
/// after the first two, then twice as long each time, up to half a minute. Nobody is locked out.
std::chrono::seconds SignInPause(int wrongInARow);

/// The statement of the sign-in, the only one that reads the passwords' hashes.
inline constexpr const char* ReadsUsers =
    "Select UserName, PasswordHash, UserLevel From StationUsers";

/// The signed-in user.
class UserLoginObject {
public:
    /// Puts up the sign-in dialog, modally, and returns when the user has signed in or given up.
    /// The value says whether someone is signed in; the system ignores it.
    bool Login();
    void SetConnection(Connection& connection);
    /// Forgets the signed-in user.
    void ResetLogin(int value);
    /// 0: nobody. 1: full rights. Any other: a signed-in user with restricted rights.
    std::int16_t UserLevel() const { return level_; }
    const std::string& UserName() const { return name_; } ///< as it is stored

    enum class Attempt { SignedIn, Wrong, NoRights };
    /// What the dialog runs: signs in the user of this name (case and blanks around it do not
    /// matter) and password. A name that nobody has takes as long as a wrong password.
    Attempt SignIn(std::string_view name, std::string_view password);
    /// What is left of the pause that wrong attempts have earned; 0 when the next may come.
    std::chrono::milliseconds PauseLeft() const;

    /// What is to be said of the backups of an embedded database; runs no statement.
    std::string ReminderOfBackup() const;

    /// What F1 shows in the dialog; nothing where it is empty.
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
