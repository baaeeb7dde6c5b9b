#pragma once

#include <QFont>
#include <QObject>
#include <QSize>
#include <QString>

class QMessageBox;

namespace Quillane {

/// The part of a text that a box shows: the whole text if it fits, otherwise as many lines as fit
/// and a last line with the length of the whole text. Words that are too long for a line are
/// broken. `available` is the space for the text in pixels.
QString TextThatFits(const QString& text, const QFont& font, QSize available);

/// The space that the display leaves for the text of a box, in pixels.
QSize SpaceForText(const QMessageBox& box);

/// On Ctrl+C, copies the whole text of a box to the clipboard, also the part that is not shown.
class CopyOnRequest : public QObject {
public:
    CopyOnRequest(QMessageBox& box, QString text);

protected:
    bool eventFilter(QObject* box, QEvent* event) override;

private:
    QString text_;
};

} // namespace Quillane
