#include "platform/forms/ControlColours.h"
#include "platform/forms/SSOleDBGridHeader.h"
#include "platform/forms/SSOleDBGridView.h"
#include "platform/forms/Screen.h"
#include "platform/forms/Text.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

#include <QMetaObject>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>

#include <algorithm>

namespace Quillane {

namespace {

constexpr int CellMargin = 4;
constexpr std::string_view DateFormat = "dd/MM/yyyy";
/// More characters than any cell has room for: what is longer is not measured to its end.
constexpr qsizetype LongestShown = 1000;

std::string TextOf(const Value& value, const std::string& format) {
    if (value.IsNull())
        return {};
    if (EqualIgnoringCase(format, DateFormat)) {
        try {
            return ShownDate(value.AsDate());
        } catch (const Failure&) {
            // Shown as it stands: a value that is no date is to be seen, not hidden.
        }
    }
    return value.Text();
}

/// One line without control characters, which would break it or be taken for layout.
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

} // namespace

int SSOleDBGrid::View::FieldOf(const Column& column) const {
    if (LineCount() == 0 || column.dataField.empty())
        return -1;
    for (int field = 0; field < rows_->FieldCount(); ++field)
        if (EqualIgnoringCase(rows_->FieldName(field), column.dataField))
            return field;
    return -1;
}

// The widths fill the grid; what does not divide is the last column's.
std::vector<SSOleDBGrid::View::Strip> SSOleDBGrid::View::Strips() const {
    std::int64_t wanted = 0;
    for (const Column& column : columns_)
        wanted += std::max(0, column.width);
    const int room = viewport()->width();
    std::vector<Strip> strips;
    std::int64_t before = 0;
    int left = 0;
    for (const Column& column : columns_) {
        before += std::max(0, column.width);
        const int right = wanted == 0 ? room : static_cast<int>(before * room / wanted);
        strips.push_back({&column, left, right - left, FieldOf(column)});
        left = right;
    }
    return strips;
}

// Nothing fails through a paint: what cannot be read shows nothing.
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
    const int last = event->rect().bottom() / lineHeight_;
    for (int place = first; place <= last && TopLine() + place < count; ++place)
        PaintLine(painter, TopLine() + place,
                  QRect(0, place * lineHeight_, viewport()->width(), lineHeight_), strips);
    const auto current = CurrentLine();
    const QString told = current ? LineText(*current) : QString();
    if (told != accessibleDescription())
        setAccessibleDescription(told);
    NoticeNewRows(count);
}

// Its owner has closed the recordset, opened it anew or put another in its place. What the scroll
// bar makes of that waits for the end of the paint.
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
    const QColor edge = GridLineColour();
    for (const Strip& strip : strips) {
        const QRect cell(strip.left, place.top(), strip.width, place.height());
        painter.setPen(edge);
        painter.drawLine(cell.topRight(), cell.bottomRight());
        painter.setPen(text);
        PaintCell(painter, ShownText(line, strip), cell);
    }
    painter.setPen(edge);
    painter.drawLine(place.bottomLeft(), place.bottomRight());
}

void SSOleDBGrid::View::PaintCell(QPainter& painter, const QString& text, const QRect& cell) const {
    const QRect room = cell.adjusted(CellMargin, 0, -CellMargin, -1);
    if (text.isEmpty() || room.width() <= 0)
        return;
    // From a point on, which Qt lays out once; within a rectangle it takes twice as long.
    const QFontMetrics letters = fontMetrics();
    const int baseline = room.top() + (room.height() - letters.height()) / 2 + letters.ascent();
    painter.drawText(QPoint(room.left(), baseline),
                     letters.elidedText(text, Qt::ElideRight, room.width()));
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
