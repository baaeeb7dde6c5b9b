#pragma once

#include "office/window/ListModel.h"
#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"

#include <QLineEdit>
#include <QTabBar>
#include <QTableView>
#include <QWidget>

#include <functional>

class QBoxLayout;

namespace Quillane::Office {

/// The lists that the stations offer: search, add, change, retire, delete, CSV import and export.
class ListsPage : public QWidget {
public:
    explicit ListsPage(OfficeSession& session);

    /// Asks for the file to read or to write; empty if the user cancels. Replaced by tests.
    std::function<QString(QWidget* over)> AskFileToRead;
    std::function<QString(QWidget* over, const QString& proposed)> AskFileToWrite;

    QTabBar* Lists() { return lists_; }
    QLineEdit* SearchBox() { return search_; }
    QTableView* View() { return view_; }
    ListFilter& Shown() { return filter_; }
    QString ReadOnlyText() const { return readOnly_->text(); }

    /// Reads the list again; the selected row stays selected.
    void Reload();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LayOut();
    void AddTopRow(QBoxLayout& column);
    void AddBottomRow(QBoxLayout& column);
    void ChangeList();
    void SizeColumns();
    void ShowState();

    const Table& CurrentTable() const;
    /// The selected row; null if there is none.
    const Row* Chosen() const;
    void Choose(const std::string& key);

    void Add();
    void Edit();
    void Retire();
    void Delete();
    void Import();
    void Export();

    OfficeSession& session_;
    ListModel model_;
    ListFilter filter_{model_};
    bool mayWrite_ = true;

    QTabBar* lists_ = new QTabBar;
    QLineEdit* search_ = new QLineEdit;
    QLabel* count_ = Note({});
    Notice* readOnly_ = new Notice(Notice::Kind::Information);
    QTableView* view_ = new QTableView;
    QPushButton* add_ = nullptr;
    QPushButton* edit_ = nullptr;
    QPushButton* retire_ = nullptr;
    QPushButton* delete_ = nullptr;
    QPushButton* import_ = nullptr;
};

} // namespace Quillane::Office
