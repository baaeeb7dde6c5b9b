#include "platform/forms/core/ScreenLook.h"

#include <QScreen>
#include <QWidget>

namespace Quillane {

QSize LargestWindow(const QWidget& window) {
    constexpr QSize frame(8, 40);
    return window.screen()->availableSize() - frame;
}

bool IsSmallDisplay(QSize available) {
    return available.width() < 900 || available.height() < 640;
}

bool OnSmallDisplay(const QWidget& window) {
    return IsSmallDisplay(window.screen()->availableSize());
}

int LetterSize(const QWidget& window) {
    if (OnSmallDisplay(window))
        return 9;
    const QSize available = window.screen()->availableSize();
    return available.width() < 1600 || available.height() < 900 ? 12 : 14;
}

void SetLetterSize(QWidget& screen) {
    QFont letters = screen.font();
    letters.setPointSize(LetterSize(screen));
    screen.setFont(letters);
}

QSize ButtonSize(const QWidget& window) {
    return OnSmallDisplay(window) ? QSize(84, 32) : QSize(104, 40);
}

void SetFontSize(QWidget& widget, int points, bool bold) {
    QFont font = widget.font();
    font.setPointSize(points);
    font.setBold(bold);
    widget.setFont(font);
}

void SetTextColour(QWidget& widget, Colour colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, ToQt(colour));
    widget.setPalette(palette);
}

} // namespace Quillane
