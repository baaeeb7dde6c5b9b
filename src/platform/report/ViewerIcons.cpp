#include "platform/report/ViewerIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace Quillane {

namespace {

constexpr int width = 24; ///< wider than the drawing
constexpr int height = 20;

/// A filled triangle pointing left (-1) or right (1), its tip at `tip`.
void DrawTriangle(QPainter& painter, double tip, int direction) {
    const double back = tip - 8.0 * direction;
    painter.setBrush(painter.pen().color());
    painter.drawPolygon(QPolygonF({{tip, 10}, {back, 4}, {back, 16}}));
}

void DrawLens(QPainter& painter, bool withUpright) {
    painter.drawEllipse(QPointF(8, 8), 5.5, 5.5);
    painter.drawLine(QPointF(12.2, 12.2), QPointF(17, 17));
    painter.drawLine(QPointF(5.5, 8), QPointF(10.5, 8));
    if (withUpright)
        painter.drawLine(QPointF(8, 5.5), QPointF(8, 10.5));
}

void DrawSheet(QPainter& painter, const QRectF& sheet, bool arrowsAcross) {
    painter.drawRect(sheet);
    const QPointF middle = sheet.center();
    const QPointF reach = arrowsAcross ? QPointF(4, 0) : QPointF(0, 5);
    painter.drawLine(middle - reach, middle + reach);
    const QPointF head = arrowsAcross ? QPointF(-2, 2) : QPointF(2, -2);
    for (const QPointF& barb : {head, QPointF(-2, -2)}) {
        painter.drawLine(middle + reach, middle + reach + barb);
        painter.drawLine(middle - reach, middle - reach - barb);
    }
}

void DrawPrinter(QPainter& painter) {
    painter.drawRect(QRectF(2.5, 7.5, 15, 7));
    painter.drawRect(QRectF(5.5, 2.5, 9, 5));
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(5.5, 11.5, 9, 6));
}

void DrawSaving(QPainter& painter) {
    painter.drawLine(QPointF(10, 2.5), QPointF(10, 12));
    painter.drawPolyline(QPolygonF({{6, 8.5}, {10, 12.5}, {14, 8.5}}));
    painter.drawPolyline(QPolygonF({{2.5, 12.5}, {2.5, 17}, {17.5, 17}, {17.5, 12.5}}));
}

void DrawCross(QPainter& painter) {
    painter.drawLine(QPointF(5, 5), QPointF(15, 15));
    painter.drawLine(QPointF(15, 5), QPointF(5, 15));
}

void Draw(QPainter& painter, ViewerIcon icon) {
    switch (icon) {
    case ViewerIcon::FirstPage:
        painter.drawLine(QPointF(4.5, 4), QPointF(4.5, 16));
        return DrawTriangle(painter, 7, -1);
    case ViewerIcon::PreviousPage:
        return DrawTriangle(painter, 6, -1);
    case ViewerIcon::NextPage:
        return DrawTriangle(painter, 14, 1);
    case ViewerIcon::LastPage:
        painter.drawLine(QPointF(15.5, 4), QPointF(15.5, 16));
        return DrawTriangle(painter, 13, 1);
    case ViewerIcon::ZoomIn:
        return DrawLens(painter, true);
    case ViewerIcon::ZoomOut:
        return DrawLens(painter, false);
    case ViewerIcon::PageWidth:
        return DrawSheet(painter, QRectF(3, 3, 14, 14), true);
    case ViewerIcon::WholePage:
        return DrawSheet(painter, QRectF(4.5, 2, 11, 16), false);
    case ViewerIcon::Print:
        return DrawPrinter(painter);
    case ViewerIcon::SavePdf:
        return DrawSaving(painter);
    case ViewerIcon::Close:
        return DrawCross(painter);
    }
}

QPixmap PixmapOf(ViewerIcon icon, int scale, const QColor& colour) {
    QPixmap pixmap(width * scale, height * scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate((width - height) / 2.0, 0);
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Draw(painter, icon);
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

} // namespace

QIcon IconOf(ViewerIcon icon) {
    QIcon made;
    for (const int scale : {1, 2, 3}) {
        made.addPixmap(PixmapOf(icon, scale, QColor(48, 56, 64)), QIcon::Normal);
        made.addPixmap(PixmapOf(icon, scale, QColor(176, 180, 184)), QIcon::Disabled);
    }
    return made;
}

} // namespace Quillane
