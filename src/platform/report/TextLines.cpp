#include "platform/report/TextLines.h"

#include "platform/forms/core/FontFamilies.h"
#include "platform/forms/core/Text.h"

#include <QFontMetricsF>

#include <algorithm>

namespace Quillane {

namespace {

constexpr int twipsPerPoint = 20;
/// Each line height is rounded up.
constexpr double rounding = 5;
/// Letters of Arabic script are drawn smaller than Latin ones at the same size.
constexpr double sizeOfRightToLeft = 1.25;
/// Below this share of its size a text is no longer legible on paper: it is cut with an ellipsis.
constexpr double smallestShare = 0.55;

QFont FontOf(const ReportFont& font, double size) {
    QFont made(FontFamilies(ToQt(font.name)));
    made.setPixelSize(static_cast<int>(font.points * twipsPerPoint * size));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

/// Left-aligned for every script, so that the value is next to its caption.
Qt::Alignment AlignmentOf(ReportAlignment alignment) {
    switch (alignment) {
    case ReportAlignment::Centre:
        return Qt::AlignHCenter;
    case ReportAlignment::Right:
        return Qt::AlignRight;
    case ReportAlignment::Left:
        break;
    }
    return Qt::AlignLeft;
}

QTextOption OptionOf(const ReportObject& object) {
    QTextOption option(AlignmentOf(object.Alignment));
    option.setWrapMode(object.CanGrow ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                      : QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    return option;
}

/// A layout breaks lines only at line separators; on a single line they would be drawn as boxes.
/// The preview draws a text word by word from left to right; a mark keeps an Arabic comma on its
/// side.
QString Prepared(QString text, bool severalLines) {
    text.remove(u'\r');
    if (text.isRightToLeft())
        text.replace(u'\u060C', QStringLiteral("\u060C\u200F"));
    text.replace(u'\n', severalLines ? QChar(QChar::LineSeparator) : QChar(u' '));
    return text;
}

} // namespace

TextLines::TextLines(const ReportObject& object, const QString& text)
    : layout_(std::make_unique<QTextLayout>(Prepared(text, object.CanGrow))) {
    const double width = std::max(1.0, object.Width - 2.0 * object.Inset);
    const QFontMetricsF usual(FontOf(object.Font, 1));
    const double margin = std::max(0.0, (object.Height - usual.height()) / 2);
    const double baseline = margin + usual.ascent();
    layout_->setFont(FontOf(object.Font, text.isRightToLeft() ? sizeOfRightToLeft : 1));
    layout_->setTextOption(OptionOf(object));
    double bottom = BreakIntoLines(width, object.Inset, baseline);
    if (!object.CanGrow && layout_->lineAt(0).naturalTextWidth() > width) {
        ShrinkTo(width);
        bottom = BreakIntoLines(width, object.Inset, baseline);
    }
    const double needed = bottom + margin;
    const bool grows = object.CanGrow && needed > object.Height + rounding;
    neededHeight_ = grows ? needed : object.Height;
}

/// The first line has the baseline of its caption in every script.
double TextLines::BreakIntoLines(double width, double left, double baseline) {
    double bottom = 0;
    layout_->beginLayout();
    for (QTextLine line = layout_->createLine(); line.isValid(); line = layout_->createLine()) {
        line.setLineWidth(width);
        const double top = line.lineNumber() == 0 ? baseline - line.ascent() : bottom;
        line.setPosition({left, top});
        bottom = top + line.height();
    }
    layout_->endLayout();
    return bottom;
}

void TextLines::ShrinkTo(double width) {
    QFont font = layout_->font();
    const double share = width / layout_->lineAt(0).naturalTextWidth();
    font.setPixelSize(static_cast<int>(font.pixelSize() * std::max(share, smallestShare)));
    if (share < smallestShare)
        layout_->setText(QFontMetricsF(font).elidedText(layout_->text(), Qt::ElideRight, width));
    layout_->setFont(font);
}

} // namespace Quillane
