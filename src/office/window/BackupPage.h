#pragma once

#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"

#include <QStandardItemModel>
#include <QTableView>
#include <QWidget>

#include <functional>
#include <map>
#include <string>

namespace Quillane {
class LongWork;
}

namespace Quillane::Office {

/// The copies of an embedded database, "Back up now", the check of the copies and their restore. If
/// the database is on a server, the page describes how backups are made there.
class BackupPage : public QWidget {
public:
    explicit BackupPage(OfficeSession& session);

    /// Asks for a copy in any folder; empty if the user cancels. Replaced by tests.
    std::function<QString(QWidget* over, const QString& folder)> AskFile;

    QTableView* Copies() { return copies_; }
    QString Place() const { return place_->text(); }
    QString Remark() const { return remark_->text(); }

    /// Reads the folder again.
    void Reload();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void LayOut();
    void AddRow(const std::string& file, const QString& kind);
    void ShowCopies();
    void ShowRemark();
    std::string Folder() const;
    /// The file of the selected row; empty if there is none.
    std::string Chosen() const;

    void BackUpNow();
    void CheckAll();
    /// Checks a copy and notes the result; empty if the copy can be restored.
    std::string Check(const std::string& file, LongWork& work);
    void RestoreOther();
    void Restore(const std::string& file);
    bool IsConfirmed(const std::string& file);

    OfficeSession& session_;
    std::string database_;                      ///< its file; empty on a server
    std::map<std::string, QString> findings_{}; ///< of the checks, by file
    QStandardItemModel model_;
    QLabel* place_ = Note({});
    QTableView* copies_ = new QTableView;
    QLabel* remark_ = Note({}); ///< the complete finding of the selected row
};

} // namespace Quillane::Office
