#include "office/window/UsersPage.h"

#include "office/window/OfficeBoxes.h"
#include "office/window/UserDialog.h"
#include "platform/forms/core/Text.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>

#include <array>

namespace Quillane::Office {

QString DescribeLevel(std::int32_t level) {
    const QString number = QString::number(level);
    if (level == 0)
        return number + " - may not sign in";
    return number + (level == FullRights ? " - full rights, and the office"
                                         : " - restricted rights, and the day book");
}

UsersPage::UsersPage(OfficeSession& session) : session_(session) {
    LayOut();
    readOnly_->Say(ToQt(
        session.whyReadOnly(session.connection, std::array<std::string_view, 1>{"StationUsers"})));
    for (QPushButton* button : writing_)
        button->setEnabled(readOnly_->text().isEmpty());
    Reload();
}

void UsersPage::LayOut() {
    QVBoxLayout* column =
        PageColumn(*this, "Users",
                   "The users of the stations and of the office. A change takes effect at the next "
                   "sign-in.");
    column->addWidget(readOnly_);
    LookLikeTable(*view_);
    view_->setModel(&model_);
    view_->setAccessibleName("Users");
    view_->installEventFilter(this);
    column->addWidget(view_, 1);
    auto* row = new QHBoxLayout;
    writing_ = {AddAction(*row, *this, "&Add...", Qt::CTRL | Qt::Key_N, [this] { Add(); }),
                AddAction(*row, *this, "Change &level...", Qt::Key_F2, [this] { ChangeLevel(); }),
                AddAction(*row, *this, "New &password...", Qt::CTRL | Qt::Key_P,
                          [this] { ChangePassword(); }),
                AddAction(*row, *this, "&Remove...", Qt::Key_Delete, [this] { Remove(); })};
    row->addStretch();
    AddAction(*row, *this, "Read again", Qt::Key_F5, [this] { Reload(); });
    column->addLayout(row);
    setFocusProxy(view_);
    connect(view_, &QTableView::doubleClicked, this,
            [this] { Guarded(window(), [this] { ChangeLevel(); }); });
}

void UsersPage::Reload() {
    const User* chosen = Chosen();
    const std::string name = chosen ? chosen->name : session_.user;
    users_ = ReadUsers(session_.connection);
    model_.clear();
    model_.setHorizontalHeaderLabels({"Name", "Level"});
    int place = 0;
    for (const User& user : users_) {
        if (user.name == name)
            place = model_.rowCount();
        model_.appendRow(
            {new QStandardItem(ToQt(user.name)), new QStandardItem(DescribeLevel(user.level))});
    }
    view_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    view_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    view_->selectRow(place);
}

const User* UsersPage::Chosen() const {
    const int row = view_->currentIndex().row();
    return row >= 0 && row < static_cast<int>(users_.size())
               ? &users_[static_cast<std::size_t>(row)]
               : nullptr;
}

void UsersPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        Guarded(window(), [this] { Reload(); });
}

bool UsersPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            writing_[1]->click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void UsersPage::Add() {
    UserDialog dialog(session_, UserDialog::Task::Add, {}, window());
    dialog.exec();
    Reload();
}

void UsersPage::ChangeLevel() {
    if (!Chosen() || !readOnly_->text().isEmpty())
        return;
    UserDialog dialog(session_, UserDialog::Task::Level, *Chosen(), window());
    dialog.exec();
    Reload();
}

void UsersPage::ChangePassword() {
    if (!Chosen())
        return;
    const std::string name = Chosen()->name;
    UserDialog dialog(session_, UserDialog::Task::Password, *Chosen(), window());
    if (dialog.exec() == QDialog::Accepted)
        Inform(window(), "\"" + name + "\" has a new password.");
    Reload();
}

void UsersPage::Remove() {
    if (!Chosen())
        return;
    const User user = *Chosen();
    const std::string self = user.name == session_.user ? " You are signed in as this user." : "";
    if (!Ask(window(), "Remove the user \"" + user.name + "\"?" + self, "&Remove"))
        return;
    if (const std::string why = RemoveUser(session_.connection, user); !why.empty())
        Warn(window(), why);
    Reload();
}

} // namespace Quillane::Office
