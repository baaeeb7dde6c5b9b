#pragma once

#include "office/records/Users.h"
#include "office/window/FormDialog.h"
#include "office/window/OfficeSession.h"

#include <QComboBox>
#include <QLineEdit>

#include <optional>

namespace Quillane::Office {

/// A form for a new user, or for the level or the password of a user. A refused entry keeps it
/// open.
class UserDialog : public FormDialog {
public:
    enum class Task { Add, Level, Password };
    /// For a new user `user` is empty.
    UserDialog(OfficeSession& session, Task task, User user, QWidget* parent);

    QLineEdit* NameBox() { return name_; }
    QComboBox* LevelBox() { return level_; }

private:
    void LayOut();
    void AddPasswords();
    void FillLevels();
    void Save() override;
    std::string WhyRefused();

    OfficeSession& session_;
    Task task_;
    User user_;
    QLineEdit* name_ = new QLineEdit;
    QComboBox* level_ = new QComboBox;
    QLineEdit* password_ = new QLineEdit;
    QLineEdit* again_ = new QLineEdit;
};

} // namespace Quillane::Office
