#pragma once

#include "office/records/Users.h"
#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"

#include <QStandardItemModel>
#include <QTableView>
#include <QWidget>

namespace Quillane::Office {

/// "1 - full rights: weighments, settings, the office".
QString DescribeLevel(std::int32_t level);

/// The users of the stations: add, level, new password, remove.
class UsersPage : public QWidget {
public:
    explicit UsersPage(OfficeSession& session);

    QTableView* View() { return view_; }

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LayOut();
    void Reload();
    const User* Chosen() const;

    void Add();
    void ChangeLevel();
    void ChangePassword();
    void Remove();

    OfficeSession& session_;
    std::vector<User> users_;
    QStandardItemModel model_;
    QTableView* view_ = new QTableView;
    Notice* readOnly_ = new Notice(Notice::Kind::Information);
    std::vector<QPushButton*> writing_;
};

} // namespace Quillane::Office
