#pragma once

#include <cstdint>
#include <string>

namespace Quillane {

class Connection;

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
    const std::string& UserName() const { return name_; }

private:
    friend class SignInDialog;
    Connection* connection_ = nullptr;
    std::int16_t level_ = 0;
    std::string name_;
};

} // namespace Quillane
