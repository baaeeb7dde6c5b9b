#include "platform/forms/controls/ControlSymbols.h"

#include "platform/forms/core/FontFamilies.h"

#include <QLineEdit>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <array>

namespace Quillane {

namespace {

constexpr std::array<const char*, 32> controlNames{
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
    "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
    "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};

/// The positions of the characters in view. The line gives only the position of its caret, which is
/// always in view; the others are measured from there.
class CharactersInView {
public:
    explicit CharactersInView(QLineEdit& line) {
        const int middle = line.height() / 2;
        const int caret = line.cursorPosition();
        first_ = std::min(line.cursorPositionAt({0, middle}), caret);
        end_ = std::max(line.cursorPositionAt({line.width(), middle}), caret);
        layout_.setText(line.displayText().mid(first_, end_ - first_));
        layout_.setFont(line.font());
        layout_.beginLayout();
        row_ = layout_.createLine();
        row_.setLineWidth(1e6);
        layout_.endLayout();
        const QRectF caretBox = line.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
        top_ = caretBox.top();
        left_ = caretBox.center().x() - row_.cursorToX(caret - first_);
        height_ = caretBox.height();
        width_ = QFontMetricsF(line.font()).horizontalAdvance('0');
    }

    int First() const { return first_; }
    int End() const { return end_; }

    /// At most as wide as a digit, for example for a tab; centred on the position of a character
    /// without width.
    QRectF BoxOf(int at) const {
        const double begin = row_.cursorToX(at - first_);
        const double width = row_.cursorToX(at + 1 - first_) - begin;
        const QRectF box(left_ + begin, top_, std::min(width, width_), height_);
        return width < 1 ? box.adjusted(-width_ / 4, 0, width_ / 4, 0) : box;
    }

private:
    QTextLayout layout_;
    QTextLine row_;
    int first_ = 0, end_ = 0;
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
};

/// Written upwards, because a character is higher than wide.
void PaintName(QPainter& painter, const QRectF& box, const QString& name) {
    const QRectF frame = box.adjusted(0.5, 1, -0.5, -1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xD8, 0xE4, 0xF0));
    painter.drawRoundedRect(frame, 2, 2);
    QFont font(FontFamilies("Arial"));
    const double letters = 0.65 * static_cast<double>(name.size());
    font.setPixelSize(
        std::max(1, static_cast<int>(std::min(frame.width(), frame.height() / letters))));
    painter.setFont(font);
    painter.setPen(QColor(0x10, 0x30, 0x70));
    painter.save();
    painter.translate(frame.center());
    painter.rotate(-90);
    const double half = frame.height(); // more than needed, so that nothing is clipped
    painter.drawText(QRectF(-half, -half, 2 * half, 2 * half), Qt::AlignCenter, name);
    painter.restore();
}

} // namespace

QString NameOfUnseen(QChar character) {
    const char16_t code = character.unicode();
    if (code < controlNames.size())
        return controlNames[code];
    if (code == 0x7F)
        return "DEL";
    // The control characters above 127, the no-break space and the soft hyphen.
    if ((code >= 0x80 && code <= 0xA0) || code == 0xAD)
        return QString::number(code, 16).toUpper();
    return {};
}

void PaintControlSymbols(QLineEdit& line) {
    const QString text = line.text();
    const CharactersInView view(line);
    QPainter painter(&line);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(line.rect().adjusted(3, 0, -3, 0)); // without the frame
    for (int at = view.First(); at < view.End(); ++at)
        if (const QString name = NameOfUnseen(text[at]); !name.isEmpty())
            PaintName(painter, view.BoxOf(at), name);
}

} // namespace Quillane
