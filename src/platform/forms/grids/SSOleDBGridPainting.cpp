#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/grids/SSOleDBGridHeader.h"
#include "platform/forms/grids/SSOleDBGridView.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <QMetaObject>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QTextLayout>

#include <algorithm>

namespace Quillane {

namespace {

constexpr int CellMargin = 4;
constexpr std::string_view DateFormat = "dd/MM/yyyy";
/// More characters than fit in any cell; longer texts are not measured completely.
constexpr qsizetype LongestShown = 1000;

std::string TextOf(const Value& value, const std::string& format) {
    if (value.IsNull())
        return {};
    if (EqualIgnoringCase(format, DateFormat)) {
        try {
            return ShownDate(value.AsDate());
        } catch (const Failure&) {
            // A value that is not a date is shown unchanged.
        }
    }
    return value.Text();
}

/// One line without control characters, which would break it.
QString OneLine(QString text) {
    if (text.size() > LongestShown)
        text = text.left(LongestShown) + QChar(0x2026);
    for (QChar& character : text) {
        const auto category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            character = QChar::Space;
    }
    return text;
}

void LayOutOneLine(QTextLayout& layout) {
    layout.setCacheEnabled(true);
    layout.beginLayout();
    layout.createLine().setNumColumns(static_cast<int>(layout.text().size()));
    layout.endLayout();
}

} // namespace

int SSOleDBGrid::View::FieldOf(const Column& column) const {
    if (LineCount() == 0 || column.dataField.empty())
        return -1;
    for (int field = 0; field < rows_->FieldCount(); ++field)
        if (EqualIgnoringCase(rows_->FieldName(field), column.dataField))
            return field;
    return -1;
}

// The widths fill the grid; the last column gets the remainder.
std::vector<SSOleDBGrid::View::Strip> SSOleDBGrid::View::Strips() const {
    std::int64_t wanted = 0;
    for (const Column& column : columns_)
        wanted += std::max(0, column.width);
    const int width = viewport()->width();
    std::vector<Strip> strips;
    std::int64_t before = 0;
    int left = 0;
    for (const Column& column : columns_) {
        before += std::max(0, column.width);
        const int right = wanted == 0 ? width : static_cast<int>(before * width / wanted);
        strips.push_back({&column, left, right - left, FieldOf(column)});
        left = right;
    }
    return strips;
}

// Painting never fails: a value that cannot be read is shown empty.
QString SSOleDBGrid::View::ShownText(int line, const Strip& strip) const {
    if (strip.field < 0)
        return {};
    try {
        return OneLine(ToQt(TextOf(rows_->ValueAt(line, strip.field), strip.column->format)));
    } catch (const Failure&) {
        return {};
    }
}

QString SSOleDBGrid::View::LineText(int line) const {
    QStringList texts;
    for (const Strip& strip : Strips())
        texts.push_back(ToQt(strip.column->caption) + ' ' + ShownText(line, strip));
    return texts.join(QStringLiteral(", "));
}

QColor SSOleDBGrid::View::GridLineColour() const {
    QStyleOption option;
    option.initFrom(this);
    const int colour = style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this);
    return QColor::fromRgba(static_cast<QRgb>(colour));
}

bool SSOleDBGrid::View::event(QEvent* event) {
    if (event->type() != QEvent::Paint)
        return QAbstractScrollArea::event(event);
    PaintFrame();
    return true;
}

void SSOleDBGrid::View::PaintFrame() {
    const bool here = grid_.Owner().ActiveControl() == &grid_;
    const int thickness = here ? frameWidth() : 1;
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(here ? QPalette::Highlight : QPalette::Window));
    if (!here)
        painter.fillRect(rect(), palette().color(QPalette::Window).darker(140));
    const QRect inside = rect().adjusted(thickness, thickness, -thickness, -thickness);
    painter.fillRect(inside, palette().color(QPalette::Window));
}

void SSOleDBGrid::View::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const int count = LineCount();
    const std::vector<Strip> strips = Strips();
    const int first = event->rect().top() / lineHeight_;
    const int last = std::min(event->rect().bottom() / lineHeight_, count - TopLine() - 1);
    for (int place = first; place <= last; ++place)
        PaintLine(painter, TopLine() + place,
                  QRect(0, place * lineHeight_, viewport()->width(), lineHeight_), strips);
    PaintEdges(painter, first, last, strips);
    const auto current = CurrentLine();
    const QString description = current ? LineText(*current) : QString();
    if (description != accessibleDescription())
        setAccessibleDescription(description);
    NoticeNewRows(count);
}

// Filled rectangles take a twentieth of the time of drawn lines.
void SSOleDBGrid::View::PaintEdges(QPainter& painter, int first, int last,
                                   const std::vector<Strip>& strips) const {
    const QColor colour = GridLineColour();
    const int top = first * lineHeight_;
    const int bottom = (last + 1) * lineHeight_;
    for (const Strip& strip : strips)
        painter.fillRect(QRect(strip.left + strip.width - 1, top, 1, bottom - top), colour);
    for (int place = first; place <= last; ++place)
        painter.fillRect(QRect(0, (place + 1) * lineHeight_ - 1, viewport()->width(), 1), colour);
}

// The owner has closed, reopened or replaced the recordset. The scroll bar is adjusted after the
// paint.
void SSOleDBGrid::View::NoticeNewRows(int count) {
    if (rows_ && !rows_->Moved)
        TakeMoved();
    if (count == fittedLines_ || fittingSoon_)
        return;
    fittingSoon_ = true;
    QMetaObject::invokeMethod(
        this, [this] { FitAgain(); }, Qt::QueuedConnection);
}

void SSOleDBGrid::View::PaintLine(QPainter& painter, int line, const QRect& place,
                                  const std::vector<Strip>& strips) const {
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    QColor text = palette().color(group, QPalette::Text);
    if (CurrentLine() == line) {
        const QColor base = lineColours_ ? ToQt(lineColours_->base)
                                         : palette().color(QPalette::Active, QPalette::Highlight);
        text = lineColours_ ? ToQt(lineColours_->text)
                            : palette().color(QPalette::Active, QPalette::HighlightedText);
        painter.fillRect(place, base);
    }
    painter.setPen(text);
    for (const Strip& strip : strips)
        PaintCell(painter, ShownText(line, strip),
                  QRect(strip.left, place.top(), strip.width, place.height()));
}

void SSOleDBGrid::View::PaintCell(QPainter& painter, const QString& text, const QRect& cell) const {
    const QRect area = cell.adjusted(CellMargin, 0, -CellMargin, -1);
    if (text.isEmpty() || area.width() <= 0)
        return;
    // Laid out once for measuring and painting: this takes most of the time of a paint.
    const QFontMetrics letters = fontMetrics();
    const int top = area.top() + (area.height() - letters.height()) / 2;
    QTextLayout layout(text, font());
    LayOutOneLine(layout);
    if (layout.lineAt(0).naturalTextWidth() > area.width()) {
        layout.setText(letters.elidedText(text, Qt::ElideRight, area.width()));
        LayOutOneLine(layout);
    }
    layout.draw(&painter, QPointF(area.left(), top));
}

void SSOleDBGrid::View::Header::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (const Strip& strip : view_.Strips()) {
        QStyleOptionHeader option;
        option.initFrom(this);
        option.rect = QRect(strip.left, 0, strip.width, height());
        option.state |= QStyle::State_Raised;
        option.orientation = Qt::Horizontal;
        style()->drawControl(QStyle::CE_HeaderSection, &option, &painter, this);
        painter.setPen(palette().color(QPalette::ButtonText));
        view_.PaintCell(painter, OneLine(ToQt(strip.column->caption)), option.rect);
    }
}

} // namespace Quillane
