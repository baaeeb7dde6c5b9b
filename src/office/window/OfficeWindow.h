#pragma once

#include "office/window/Pages.h"

#include <QMainWindow>

#include <vector>

class QStackedWidget;
class QTreeWidget;

namespace Quillane::Office {

/// The office's main window: a navigation list at the left, the selected page at its right. A user
/// of level 1 has all pages, other users have those that are open to all.
class OfficeWindow : public QMainWindow {
public:
    explicit OfficeWindow(OfficeSession& session, std::span<const PageEntry> pages = AllPages());

    /// The titles in the navigation.
    QStringList Titles() const;
    void ShowPage(int place);
    /// Shows the page with this title, if the user may see it.
    void ShowPage(const QString& title);
    /// The shown page; null if the user may see none.
    QWidget* CurrentPage() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void FillNavigation(std::span<const PageEntry> pages);
    void LayOut();
    void ShowWho();
    QWidget* MadePage(int place);
    QString Unsaved() const;

    OfficeSession& session_;
    std::vector<PageEntry> entries_; ///< that this user may see
    std::vector<QWidget*> made_;     ///< null if the page has not been shown yet
    QTreeWidget* navigation_;
    QStackedWidget* stack_;
};

} // namespace Quillane::Office
