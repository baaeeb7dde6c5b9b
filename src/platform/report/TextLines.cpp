#include "platform/report/TextLines.h"

#include "platform/forms/Text.h"

#include <QFontMetricsF>

#include <algorithm>

namespace Quillane {

namespace {

constexpr int twipsPerPoint = 20;
constexpr double insetOfBorder = 70;
/// Below this share of its size a text is no longer legible on paper: it is cut with an ellipsis.
constexpr double smallestShare = 0.55;

QFont FontOf(const ReportFont& font) {
    QFont made(ToQt(font.name));
    made.setPixelSize(font.points * twipsPerPoint);
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

/// Left is left for every script: the value stands beside its caption.
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

/// A layout breaks at line separators only; on one line they would be boxes.
QString Prepared(QString text, bool severalLines) {
    text.remove(u'\r');
    text.replace(u'\n', severalLines ? QChar(QChar::LineSeparator) : QChar(u' '));
    return text;
}

} // namespace

TextLines::TextLines(const ReportObject& object, const QString& text)
    : layout_(std::make_unique<QTextLayout>(Prepared(text, object.CanGrow), FontOf(object.Font))) {
    const double inset = object.HasBorder ? insetOfBorder : 0;
    const double width = std::max(1.0, object.Width - 2 * inset);
    const QFontMetricsF metrics(layout_->font());
    const double top = std::max(0.0, (object.Height - metrics.height()) / 2);
    layout_->setTextOption(OptionOf(object));
    double height = BreakIntoLines(width, inset, top);
    if (!object.CanGrow && layout_->lineCount() > 0 &&
        layout_->lineAt(0).naturalTextWidth() > width) {
        ShrinkTo(width);
        height = BreakIntoLines(width, inset, top);
    }
    neededHeight_ =
        object.CanGrow ? std::max<double>(object.Height, height + 2 * top) : object.Height;
}

double TextLines::BreakIntoLines(double width, double inset, double top) {
    double height = 0;
    layout_->beginLayout();
    for (QTextLine line = layout_->createLine(); line.isValid(); line = layout_->createLine()) {
        line.setLineWidth(width);
        line.setPosition({inset, top + height});
        height += line.height();
    }
    layout_->endLayout();
    return height;
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
