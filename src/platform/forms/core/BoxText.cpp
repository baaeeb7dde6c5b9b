#include "platform/forms/core/BoxText.h"

#include <QClipboard>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

// The width in pixels up to which a box grows before its text is wrapped; half of the display if
// that is less.
constexpr int widestBeforeWrapping = 500;
constexpr int iconAndMargins = 120;
constexpr int titleButtonsAndMargins = 150;
constexpr int linesOfNote = 3;
/// More than any display shows. The time to lay out a text grows with its length.
constexpr qsizetype mostLetters = 20'000;

struct Layout {
    QStringList lines;
    bool isWhole = true;    ///< the lines hold all of the text
    bool isTooWide = false; ///< a line is wider than it should be
};

QString WithOneLineEnd(QString text) {
    return text.replace("\r\n", "\n").replace('\r', '\n');
}

Layout LayOut(const QString& text, const QFont& font, QTextOption::WrapMode wrapping, int width,
              int mostLines) {
    Layout found;
    QString paragraphs = text.left(mostLetters);
    paragraphs.replace('\n', QChar::LineSeparator);
    QTextLayout layout(paragraphs, font);
    QTextOption option;
    option.setWrapMode(wrapping);
    layout.setTextOption(option);
    layout.beginLayout();
    int end = 0;
    while (end < paragraphs.size() && found.lines.size() < mostLines) {
        QTextLine line = layout.createLine();
        line.setLineWidth(width);
        end = line.textStart() + line.textLength();
        found.lines.append(paragraphs.mid(line.textStart(), line.textLength())
                               .remove(QChar(QChar::LineSeparator)));
        found.isTooWide = found.isTooWide || line.naturalTextWidth() > width;
    }
    layout.endLayout();
    found.isWhole = end == text.size();
    return found;
}

QString Note(const QString& text) {
    return "...\n\n(" + QLocale(QLocale::English).toString(text.size()) +
           " letters in all: Ctrl+C copies the whole text.)";
}

} // namespace

QString TextThatFits(const QString& text, const QFont& font, QSize available) {
    const QString plain = WithOneLineEnd(text);
    const int mostLines =
        std::max(linesOfNote + 1, available.height() / QFontMetrics(font).lineSpacing());
    const auto wrapped = [&](QTextOption::WrapMode wrapping) {
        return LayOut(plain, font, wrapping, available.width(), mostLines);
    };
    const Layout words = wrapped(QTextOption::WordWrap);
    if (words.isWhole && !words.isTooWide)
        return text;
    const Layout broken = wrapped(QTextOption::WrapAtWordBoundaryOrAnywhere);
    if (broken.isWhole)
        return broken.lines.join('\n');
    return broken.lines.first(mostLines - linesOfNote).join('\n') + Note(text);
}

QSize SpaceForText(const QMessageBox& box) {
    const QSize display = box.screen()->availableGeometry().size();
    return {std::min(display.width() / 2, widestBeforeWrapping) - iconAndMargins,
            display.height() - titleButtonsAndMargins};
}

CopyOnRequest::CopyOnRequest(QMessageBox& box, QString text) : text_(std::move(text)) {
    box.installEventFilter(this);
}

bool CopyOnRequest::eventFilter(QObject* box, QEvent* event) {
    if (event->type() != QEvent::KeyPress ||
        !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy))
        return QObject::eventFilter(box, event);
    QGuiApplication::clipboard()->setText(text_);
    return true;
}

} // namespace Quillane
