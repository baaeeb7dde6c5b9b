#include "signin/SignInDialog.h"

#include "data/CompanyProfile.h"
#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/DialogLook.h"
#include "platform/host/Version.h"
#include "platform/runtime/Failure.h"
#include "signin/UserLogin.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <chrono>

namespace Quillane {

SignInDialog::SignInDialog(UserLoginObject& login)
    : Screen("SignInDialog", "Sign in"), login_(login) {
    WireEvents();
    LayOut();
}

void SignInDialog::WireEvents() {
    BtnSignIn.Click = [this] { BtnSignIn_Click(); };
    BtnCancel.Click = [this] { Unload(); };
    TmrPause.Tick = [this] { TmrPause_Tick(); };
    TxtUserName.GotFocus = [this] { TxtUserName.SelectAll(); };
    TxtPassword.GotFocus = [this] { TxtPassword.SelectAll(); };
    NumberInTabOrder({&TxtUserName, &TxtPassword, &BtnSignIn, &BtnCancel});
}

void SignInDialog::LayOut() {
    TxtUserName.SetMaxLength(LongestUserName);
    TxtUserName.SetAccessibleName("User name");
    TxtPassword.SetMaxLength(LongestPassword);
    TxtPassword.SetPassword(true);
    TxtPassword.SetAccessibleName("Password");
    auto* fields = new QGridLayout;
    AddField(*fields, "User &name", TxtUserName);
    AddField(*fields, "&Password", TxtPassword);
    LookLikeMessage(message_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddButton(*buttons, BtnSignIn, true);
    AddButton(*buttons, BtnCancel, false);
    auto* column =
        DialogColumn(*this, ProgramTitle(), company_, "Version " + std::string(QuillaneVersion()));
    column->addLayout(fields);
    column->addWidget(&message_);
    column->addLayout(buttons);
    LookLikeText(reminder_, 2);
    column->addWidget(&reminder_);
    reminder_.hide();
    setFixedWidth(440);
}

void SignInDialog::Form_Load() {
    const bool known = CompanyProfile.Exists() && !CompanyProfile->CompanyTitle().empty();
    company_.setText(known ? ToQt(CompanyProfile->CompanyTitle()) : "Weighbridge station");
    const std::string reminder = login_.ReminderOfBackup();
    reminder_.setText(ToQt(reminder));
    reminder_.setVisible(!reminder.empty());
    if (login_.PauseLeft().count() > 0)
        ShowPause();
}

void SignInDialog::Form_KeyDown(int& key, int /*shift*/) {
    if (key == Key::Escape) {
        key = 0;
        Unload();
    } else if (key == Key::Return && ActiveControl() == &TxtUserName) {
        key = 0;
        SendTab();
    } else if (key == Key::Return && ActiveControl() == &TxtPassword) {
        key = 0;
        if (BtnSignIn.Enabled())
            BtnSignIn_Click();
    } else if (key == Key::F1) {
        key = 0;
        ShowAbout();
    }
}

void SignInDialog::BtnSignIn_Click() {
    try {
        const auto attempt = login_.SignIn(TxtUserName.Text(), TxtPassword.Text());
        if (attempt == UserLoginObject::Attempt::SignedIn)
            Unload();
        else if (attempt == UserLoginObject::Attempt::NoRights)
            Refuse("This user has no rights at this station.");
        else
            Refuse("The name or the password is wrong.");
    } catch (const Failure&) {
        ShowError();
    }
}

void SignInDialog::ShowAbout() {
    try {
        if (login_.About)
            login_.About();
    } catch (const Failure&) {
        ShowError();
    }
}

void SignInDialog::Refuse(std::string_view reason) {
    reason_ = reason;
    message_.setText(ToQt(reason));
    TxtPassword.SetText("");
    if (TxtUserName.Text().empty())
        TxtUserName.SetFocus();
    else
        TxtPassword.SetFocus();
    if (login_.PauseLeft().count() > 0)
        ShowPause();
}

void SignInDialog::ShowPause() {
    BtnSignIn.SetEnabled(false);
    TmrPause.SetEnabled(true);
    TmrPause_Tick();
}

void SignInDialog::TmrPause_Tick() {
    const auto left = std::chrono::ceil<std::chrono::seconds>(login_.PauseLeft()).count();
    if (left > 0) {
        message_.setText(ToQt(reason_ + (reason_.empty() ? "" : "\n") + "The next attempt in " +
                              std::to_string(left) + " s."));
        return;
    }
    TmrPause.SetEnabled(false);
    BtnSignIn.SetEnabled(true);
    message_.setText(ToQt(reason_));
}

std::string SignInDialog::Message() const {
    return FromQt(message_.text());
}

std::string SignInDialog::Reminder() const {
    return FromQt(reminder_.text());
}

} // namespace Quillane
