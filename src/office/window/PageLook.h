#pragma once

#include <QAction>
#include <QLabel>

#include <functional>

class QBoxLayout;
class QDialog;
class QPushButton;
class QTableView;
class QVBoxLayout;
class QWidget;

/// The common look of the office's pages and dialogs.
namespace Quillane::Office {

/// The page's column of contents below its title and a line on what it is for.
QVBoxLayout* PageColumn(QWidget& page, const QString& title, const QString& purpose);

/// A button that shows its shortcut and is also pressed by it, anywhere on the page. What it does
/// may fail: that is shown. The letter after the ampersand presses it too.
QPushButton* AddAction(QBoxLayout& row, QWidget& page, const QString& caption,
                       const QKeySequence& shortcut, std::function<void()> act);

/// After a change of its text: makes a button wide enough for it.
void FitToText(QPushButton& button);

/// Wrapped text on a coloured ground, for what a user should know of the page; hidden while empty.
class Notice : public QLabel {
public:
    enum class Kind { Information, Fault };
    explicit Notice(Kind kind, QWidget* parent = nullptr);
    void Say(const QString& text);
};

/// A caption with an ampersand before the first of its letters that is not among those used, to
/// which it is added. Without one where none is left.
QString WithLetter(const QString& caption, QString& used);

/// Makes a dialog higher where its contents need more than it has.
void GrowToFit(QDialog& dialog);

/// Rows are chosen whole; Tab leaves the table; no grid, alternating ground.
void LookLikeTable(QTableView& view);

/// A heading within a page.
QLabel* Heading(const QString& text);

/// Small and grey: a note under what it belongs to.
QLabel* Note(const QString& text);

} // namespace Quillane::Office
