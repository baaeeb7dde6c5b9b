#pragma once

#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"

#include <QListWidget>
#include <QWidget>

namespace Quillane::Office {

/// The backups of an embedded database, and "Back up now"; for one on a server how it is done
/// there.
class BackupPage : public QWidget {
public:
    explicit BackupPage(OfficeSession& session);

    QListWidget* Backups() { return backups_; }
    QString Place() const { return place_->text(); }

    /// Reads the folder again.
    void Reload();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void LayOut();
    void BackUpNow();
    std::string Folder() const;

    OfficeSession& session_;
    std::string database_; ///< its file; empty on a server
    QLabel* place_ = Note({});
    QListWidget* backups_ = new QListWidget;
};

} // namespace Quillane::Office
