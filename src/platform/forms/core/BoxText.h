#pragma once

#include <QFont>
#include <QObject>
#include <QSize>
#include <QString>

class QMessageBox;

namespace Quillane {

/// What a box shows of a text. One that fits is shown as it is. Of one that does not, as many lines
/// as fit are shown, words that are too long for a line are broken, and a last line says how long
/// the whole text is. `room` is what the display leaves for the text, in pixels.
QString TextThatFits(const QString& text, const QFont& font, QSize room);

/// What the display on which a box comes up leaves for its text.
QSize RoomForText(const QMessageBox& box);

/// Copies the whole text of a box, however much of it is shown, to the clipboard on Ctrl+C.
class CopyOnRequest : public QObject {
public:
    CopyOnRequest(QMessageBox& box, QString text);

protected:
    bool eventFilter(QObject* box, QEvent* event) override;

private:
    QString text_;
};

} // namespace Quillane
