#pragma once

#include "office/records/Users.h"
#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>

#include <optional>

class QFormLayout;

namespace Quillane::Office {

/// A form for a new user, or for the level or the password of one. What is refused keeps it open.
class UserDialog : public QDialog {
public:
    enum class Task { Add, Level, Password };
    /// Of a new user `user` is empty.
    UserDialog(OfficeSession& session, Task task, User user, QWidget* parent);

    QLineEdit* NameBox() { return name_; }
    QComboBox* LevelBox() { return level_; }
    QString Refusal() const { return refusal_->text(); }

private:
    void LayOut();
    void AddPasswords(QFormLayout& form);
    void FillLevels();
    void Save();
    std::string WhyRefused();

    OfficeSession& session_;
    Task task_;
    User user_;
    QLineEdit* name_ = new QLineEdit;
    QComboBox* level_ = new QComboBox;
    QLineEdit* password_ = new QLineEdit;
    QLineEdit* again_ = new QLineEdit;
    Notice* refusal_ = new Notice(Notice::Kind::Fault);
};

} // namespace Quillane::Office
