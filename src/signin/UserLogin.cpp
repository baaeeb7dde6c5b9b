#include "signin/UserLogin.h"

#include "data/Catalogue.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "signin/BackupReminder.h"
#include "signin/PasswordHash.h"
#include "signin/ServerSignIn.h"
#include "signin/SignInDialog.h"

#include <algorithm>
#include <optional>

namespace Quillane {

Service<UserLoginObject> UserLogin;

namespace {

// The table is small. Searching it here avoids a statement that contains the typed name.
std::optional<StationUser> SignInByTable(Connection& connection, std::string_view name,
                                         std::string_view password) {
    const QString wanted = ToQt(name);
    Recordset users = connection.Execute(ReadsUsers);
    for (; !users.Eof(); users.MoveNext()) {
        const std::string found = users.Fields("UserName").TextOrEmpty();
        if (ToQt(found).trimmed().compare(wanted, Qt::CaseInsensitive) != 0)
            continue;
        if (!PasswordMatches(users.Fields("PasswordHash").TextOrEmpty(), password))
            return std::nullopt;
        return StationUser{found, users.Fields("UserLevel").Long()};
    }
    SpendPasswordTime(password);
    return std::nullopt;
}

bool HasUsers(Connection& connection) {
    return TableExists(connection, "StationUsers") &&
           connection.Execute("Select Count(*) From StationUsers").Fields(0).Number() > 0;
}

void ReportNoUsers() {
    MsgBox({.text = "You cannot sign in: the database contains no users.\r\n"
                    "Ask the administrator of the database to add one.",
            .title = "Sign in",
            .icon = BoxIcon::Exclamation,
            .buttons = BoxButtons::Ok});
}

} // namespace

std::chrono::seconds SignInPause(int wrongInARow) {
    constexpr int free = 2;
    constexpr int longest = 30;
    if (wrongInARow <= free)
        return std::chrono::seconds(0);
    return std::chrono::seconds(std::min(longest, 1 << std::min(wrongInARow - free, 5)));
}

void UserLoginObject::SetConnection(Connection& connection) {
    connection_ = &connection;
}

void UserLoginObject::ResetLogin(int /*value*/) {
    level_ = 0;
    name_.clear();
}

bool UserLoginObject::Login() {
    ResetLogin(0);
    if (!connection_)
        Fail(FailureNumber::InvalidCall);
    if (!HasUsers(*connection_)) {
        ReportNoUsers();
        return false;
    }
    SignInDialog dialog(*this);
    dialog.ShowModal();
    return level_ != 0;
}

UserLoginObject::Attempt UserLoginObject::SignIn(std::string_view name, std::string_view password) {
    const std::string wanted = FromQt(ToQt(name).trimmed());
    const std::optional<StationUser> user = ServerChecksPasswords(*connection_)
                                                ? SignInAtServer(*connection_, wanted, password)
                                                : SignInByTable(*connection_, wanted, password);
    if (!user) {
        pauseEnd_ = std::chrono::steady_clock::now() + SignInPause(++wrongInARow_);
        return Attempt::Wrong;
    }
    wrongInARow_ = 0;
    if (user->level == 0)
        return Attempt::NoRights;
    level_ = ToInteger(static_cast<double>(user->level));
    name_ = user->name;
    return Attempt::SignedIn;
}

std::chrono::milliseconds UserLoginObject::PauseLeft() const {
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(pauseEnd_ - std::chrono::steady_clock::now());
    return std::max(left, milliseconds(0));
}

std::string UserLoginObject::ReminderOfBackup() const {
    if (!connection_ || connection_->DatabaseFile().empty())
        return {};
    return BackupReminder(StationFolder(), TheStation().WarnAfterBackupDays,
                          std::chrono::system_clock::now());
}

} // namespace Quillane
