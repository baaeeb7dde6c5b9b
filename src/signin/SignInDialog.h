#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Timer.h"

namespace Quillane {

class UserLoginObject;

/// Asks for a user name and a password. Enter moves from the name to the password; from the
/// password it signs in. Esc cancels. F1 shows the versions and the station. After repeated wrong
/// passwords the button is disabled for some seconds, with a countdown.
class SignInDialog : public Screen {
public:
    explicit SignInDialog(UserLoginObject& login);

    TextBox TxtUserName{*this, "TxtUserName"};
    TextBox TxtPassword{*this, "TxtPassword"};
    CommandButton BtnSignIn{*this, "BtnSignIn", "&Sign in"};
    CommandButton BtnCancel{*this, "BtnCancel", "Cancel"};
    Timer TmrPause{*this, "TmrPause", 200, false};

    /// The message below the boxes.
    std::string Message() const;
    /// The message about the database's backups; empty if there is none.
    std::string Reminder() const;

protected:
    void Form_Load() override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void WireEvents();
    void LayOut();
    void BtnSignIn_Click();
    void TmrPause_Tick();
    void ShowAbout();
    void Refuse(std::string_view reason);
    void ShowPause();

    UserLoginObject& login_;
    Label company_{""};
    Label message_{""};
    Label reminder_{""};
    std::string reason_;
};

} // namespace Quillane
