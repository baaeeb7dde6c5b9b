#include "platform/report/ReportPainter.h"

#include "platform/runtime/Failure.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace Quillane {

namespace {

constexpr double twipsPerInch = 1440;

/// Converts from 0xBBGGRR.
QColor ColourOf(int colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QPen PenOf(int colour, int width) {
    return colour < 0 ? QPen(Qt::NoPen)
                      : QPen(ColourOf(colour), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
}

void PaintFrame(QPainter& painter, const QRectF& bounds, const QPen& pen, int fill) {
    if (pen.style() == Qt::NoPen && fill < 0)
        return;
    painter.setPen(pen);
    painter.setBrush(fill < 0 ? QBrush(Qt::NoBrush) : QBrush(ColourOf(fill)));
    painter.drawRect(bounds);
}

void PaintText(QPainter& painter, const PlacedObject& placed) {
    const ReportObject& object = *placed.object;
    constexpr int borderWidth = 8;
    const QPen border = object.HasBorder ? PenOf(object.BorderColor, borderWidth) : Qt::NoPen;
    PaintFrame(painter, placed.bounds, border, object.BackColor);
    if (!placed.text)
        return;
    painter.setPen(ColourOf(object.TextColor));
    placed.text->Draw(painter, placed.bounds.topLeft());
}

void PaintObject(QPainter& painter, const PlacedObject& placed) {
    const ReportObject& object = *placed.object;
    switch (object.kind) {
    case ReportObjectKind::Field:
    case ReportObjectKind::Text:
        PaintText(painter, placed);
        break;
    case ReportObjectKind::Box:
        PaintFrame(painter, placed.bounds, PenOf(object.LineColor, object.LineWidth),
                   object.FillColor);
        break;
    case ReportObjectKind::Line:
        painter.setPen(PenOf(object.LineColor, object.LineWidth));
        painter.drawLine(placed.bounds.topLeft(), placed.bounds.bottomRight());
        break;
    }
}

} // namespace

ReportPainter::ReportPainter(const Report& report)
    : pages_(LayOutReport(report)), sheetHeight_(SheetOf(report).height()) {}

double ReportPainter::OpeningEdge() const {
    double edge = 0;
    for (const PlacedObject& placed : pages_.front().objects)
        if (placed.text && placed.object->ShowAtOpening)
            edge = std::max(edge, placed.bounds.bottom());
    return edge / sheetHeight_;
}

void ReportPainter::PaintPage(QPainter& painter, int number) const {
    if (number < 1 || number > PageCount())
        Fail(FailureNumber::SubscriptOutOfRange);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(painter.device()->logicalDpiX() / twipsPerInch,
                  painter.device()->logicalDpiY() / twipsPerInch);
    for (const PlacedObject& placed : pages_[static_cast<std::size_t>(number - 1)].objects)
        PaintObject(painter, placed);
    painter.restore();
}

bool ReportPainter::PaintPages(QPainter& painter, QPagedPaintDevice& device, int first,
                               int last) const {
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage())
            return false;
        PaintPage(painter, page);
    }
    return true;
}

void ApplyPaper(QPagedPaintDevice& device, const Report& report) {
    constexpr double twipsPerPoint = 20;
    const QSizeF points(report.Paper.Width / twipsPerPoint, report.Paper.Height / twipsPerPoint);
    const QPageSize size(points, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
    QPageLayout layout(
        size, report.PaperOrientation == 2 ? QPageLayout::Landscape : QPageLayout::Portrait,
        QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    device.setPageLayout(layout);
}

} // namespace Quillane
