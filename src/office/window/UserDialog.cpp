#include "office/window/UserDialog.h"

#include "office/window/UsersPage.h"
#include "platform/forms/core/Text.h"
#include "signin/UserLogin.h"

namespace Quillane::Office {

namespace {

QString TitleOf(UserDialog::Task task) {
    switch (task) {
    case UserDialog::Task::Add:
        return "Add a user";
    case UserDialog::Task::Level:
        return "Change the level";
    default:
        return "Give a new password";
    }
}

} // namespace

UserDialog::UserDialog(OfficeSession& session, Task task, User user, QWidget* parent)
    : FormDialog(TitleOf(task), parent), session_(session), task_(task), user_(std::move(user)) {
    FillLevels();
    LayOut();
}

void UserDialog::LayOut() {
    constexpr int width = 600;
    name_->setText(ToQt(user_.name));
    name_->setEnabled(task_ == Task::Add);
    AddCaptioned(Form(), "&Name", name_);
    if (task_ != Task::Password)
        AddCaptioned(Form(), "&Level", level_);
    if (task_ != Task::Level)
        AddPasswords();
    Finish(width);
}

void UserDialog::AddPasswords() {
    for (QLineEdit* box : {password_, again_}) {
        box->setEchoMode(QLineEdit::Password);
        box->setMaxLength(LongestPassword + 1);
    }
    AddCaptioned(Form(), "&Password", password_);
    QLabel* rule = Note(ToQt(PasswordRule()));
    rule->setWordWrap(true);
    Form().addRow({}, rule);
    AddCaptioned(Form(), "&The same again", again_);
}

// A level that is not in the list is kept.
void UserDialog::FillLevels() {
    std::vector<std::int32_t> levels{FullRights, RestrictedRights, 0};
    const bool isNew = task_ == Task::Add;
    if (!isNew && std::ranges::find(levels, user_.level) == levels.end())
        levels.push_back(user_.level);
    for (const std::int32_t level : levels)
        level_->addItem(DescribeLevel(level), level);
    level_->setCurrentIndex(level_->findData(isNew ? RestrictedRights : user_.level));
}

void UserDialog::Save() {
    const std::string why = WhyRefused();
    Refuse(why);
    if (why.empty())
        accept();
}

std::string UserDialog::WhyRefused() {
    const std::int32_t level = level_->currentData().toInt();
    if (task_ == Task::Level)
        return level == user_.level ? std::string() : SetLevel(session_.connection, user_, level);
    const std::string password = FromQt(password_->text());
    if (password != FromQt(again_->text()))
        return "The two passwords differ. Please type both again.";
    if (task_ == Task::Password)
        return SetPassword(session_.connection, user_.name, password, session_.hashCost);
    return AddUser(session_.connection, {FromQt(name_->text()), level}, password,
                   session_.hashCost);
}

} // namespace Quillane::Office
