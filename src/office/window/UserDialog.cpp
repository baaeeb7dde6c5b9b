#include "office/window/UserDialog.h"

#include "office/window/UsersPage.h"
#include "platform/forms/core/Text.h"
#include "signin/UserLogin.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QPushButton>

namespace Quillane::Office {

namespace {

constexpr int fieldHeight = 30;

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

void AddField(QFormLayout& form, const QString& caption, QWidget* field) {
    field->setMinimumHeight(fieldHeight);
    field->setAccessibleName(QString(caption).remove('&'));
    auto* label = new QLabel(caption);
    label->setMinimumHeight(fieldHeight);
    label->setBuddy(field);
    form.addRow(label, field);
}

} // namespace

UserDialog::UserDialog(OfficeSession& session, Task task, User user, QWidget* parent)
    : QDialog(parent), session_(session), task_(task), user_(std::move(user)) {
    setWindowTitle(TitleOf(task));
    FillLevels();
    LayOut();
}

void UserDialog::LayOut() {
    constexpr int width = 600;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(12);
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(8);
    name_->setText(ToQt(user_.name));
    name_->setEnabled(task_ == Task::Add);
    AddField(*form, "&Name", name_);
    if (task_ != Task::Password)
        AddField(*form, "&Level", level_);
    if (task_ != Task::Level)
        AddPasswords(*form);
    column->addLayout(form);
    column->addWidget(refusal_);
    column->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddAction(*buttons, *this, "Save", Qt::CTRL | Qt::Key_S, [this] { Save(); })->setDefault(true);
    AddAction(*buttons, *this, "Cancel  (Esc)", {}, [this] { reject(); });
    column->addLayout(buttons);
    setMinimumWidth(width);
}

void UserDialog::AddPasswords(QFormLayout& form) {
    for (QLineEdit* box : {password_, again_}) {
        box->setEchoMode(QLineEdit::Password);
        box->setMaxLength(LongestPassword + 1);
    }
    AddField(form, "&Password", password_);
    QLabel* rule = Note(ToQt(PasswordRule()));
    rule->setWordWrap(true);
    form.addRow({}, rule);
    AddField(form, "&The same again", again_);
}

// A level beyond those of the list is kept.
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
    refusal_->Say(ToQt(why));
    GrowToFit(*this);
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
