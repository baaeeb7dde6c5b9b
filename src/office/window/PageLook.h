#pragma once

#include <QAction>
#include <QLabel>

#include <functional>

class QAbstractButton;
class QBoxLayout;
class QDialog;
class QFormLayout;
class QPushButton;
class QTableView;
class QVBoxLayout;
class QWidget;

/// The common look of the office's pages and dialogs.
namespace Quillane::Office {

/// The column of the page's contents, below the title of the page and a line that describes its
/// purpose.
QVBoxLayout* PageColumn(QWidget& page, const QString& title, const QString& purpose);

/// A button that shows its shortcut. The shortcut presses it from anywhere on the page, and so does
/// the letter after the ampersand. A failure of its action is shown in a box.
QPushButton* AddAction(QBoxLayout& row, QWidget& page, const QString& caption,
                       const QKeySequence& shortcut, std::function<void()> act);

/// Makes the letter of a button or check box act at once. Without this, Qt first shows the button
/// as pressed for a tenth of a second, and a key that follows is handled before it.
void ActAtOnce(QAbstractButton& button);

/// Makes a button wide enough for its text. To be called after a change of the text.
void FitToText(QPushButton& button);

/// Wrapped text on a coloured background: a notice about the page. Hidden while it is empty.
class Notice : public QLabel {
public:
    enum class Kind { Information, Fault };
    explicit Notice(Kind kind, QWidget* parent = nullptr);
    void Say(const QString& text);
};

/// Adds an ampersand to a caption, before its first letter that is not among those used, and adds
/// the letter to them. Adds none if no letter is left.
QString WithLetter(const QString& caption, QString& used);

/// The spacing between the fields of a form.
void SpaceFields(QFormLayout& form);

/// Adds a field to a form. The letter after the caption's ampersand moves the focus to the field;
/// the caption is also its name for a screen reader. `widget` is the widget to show if the field is
/// only a part of it.
void AddCaptioned(QFormLayout& form, const QString& caption, QWidget* field,
                  QWidget* widget = nullptr);

/// Makes a dialog higher if its contents need more height.
void GrowToFit(QDialog& dialog);

/// Rows are selected as a whole; Tab leaves the table; no grid, alternating background.
void LookLikeTable(QTableView& view);

/// A heading within a page.
QLabel* Heading(const QString& text);

/// A small grey note.
QLabel* Note(const QString& text);

} // namespace Quillane::Office
