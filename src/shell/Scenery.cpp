#include "shell/Scenery.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace Quillane {

namespace {

// The size of the picture. A narrower window cuts off its left side.
constexpr qreal sheetWidth = 1600;
constexpr qreal sheetHeight = 1000;
constexpr qreal horizon = 640;
constexpr qreal road = 850;

void FillGradient(QPainter& painter, const QRectF& area, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    painter.fillRect(area, gradient);
}

void PaintSky(QPainter& painter) {
    FillGradient(painter, QRectF(0, 0, sheetWidth, horizon + 40), QColor(0xA9, 0xCD, 0xE2),
                 QColor(0xFB, 0xF1, 0xDC));
    QRadialGradient sun(QPointF(1000, 430), 330);
    sun.setColorAt(0, QColor(255, 250, 225, 255));
    sun.setColorAt(0.18, QColor(255, 246, 210, 220));
    sun.setColorAt(1, QColor(255, 244, 214, 0));
    painter.fillRect(QRectF(600, 60, 800, 740), sun);
}

void PaintHill(QPainter& painter, qreal left, qreal crest, qreal right, const QColor& colour) {
    QPainterPath hill(QPointF(0, horizon + 60));
    hill.lineTo(0, left);
    hill.cubicTo(350, left - crest, 600, left + crest, 850, (left + right) / 2);
    hill.cubicTo(1100, right - crest, 1350, right + crest, sheetWidth, right);
    hill.lineTo(sheetWidth, horizon + 60);
    painter.fillPath(hill, colour);
}

void PaintSilo(QPainter& painter, qreal left) {
    const QRectF body(left, 360, 92, 300);
    QLinearGradient steel(body.topLeft(), body.topRight());
    steel.setColorAt(0, QColor(0xC4, 0xCB, 0xCE));
    steel.setColorAt(0.35, QColor(0xF3, 0xF4, 0xF2));
    steel.setColorAt(1, QColor(0xA5, 0xB0, 0xB6));
    QPainterPath roof(QPointF(left - 4, 362));
    roof.lineTo(left + 46, 322);
    roof.lineTo(left + 96, 362);
    painter.fillPath(roof, QColor(0x8F, 0x9D, 0xA5));
    painter.fillRect(body, steel);
    painter.setPen(QPen(QColor(120, 135, 142, 60), 2));
    for (qreal ring = 400; ring < 650; ring += 40)
        painter.drawLine(QPointF(left, ring), QPointF(left + 92, ring));
    painter.setPen(Qt::NoPen);
}

void PaintMillBuilding(QPainter& painter) {
    const QRectF house(1250, 300, 250, 360);
    FillGradient(painter, house, QColor(0xF4, 0xE7, 0xD0), QColor(0xE2, 0xCF, 0xB0));
    QPainterPath roof(QPointF(1232, 304));
    roof.lineTo(1290, 232);
    roof.lineTo(1460, 232);
    roof.lineTo(1518, 304);
    painter.fillPath(roof, QColor(0xA6, 0x5B, 0x45));
    painter.fillRect(QRectF(1340, 196, 70, 40), QColor(0x8C, 0x4B, 0x3A));
    for (int row = 0; row < 4; ++row)
        // The ground floor has only the outer windows; the door is between them.
        for (int column = 0; column < 4; column += row < 3 ? 1 : 3)
            painter.fillRect(QRectF(1278 + column * 54, 338 + row * 72, 30, 42),
                             QColor(0x6F, 0x8A, 0x98));
    painter.fillRect(QRectF(1343, 570, 64, 90), QColor(0x7A, 0x4E, 0x3A));
}

void PaintMill(QPainter& painter) {
    for (const qreal left : {930.0, 1034.0, 1138.0})
        PaintSilo(painter, left);
    // The conveyor from the silos to the mill.
    painter.fillRect(QRectF(968, 306, 300, 17), QColor(0xB9, 0x8E, 0x66));
    PaintMillBuilding(painter);
}

void PaintWheat(QPainter& painter) {
    FillGradient(painter, QRectF(0, horizon, sheetWidth, sheetHeight - horizon),
                 QColor(0xEA, 0xD3, 0x8E), QColor(0xC2, 0x97, 0x42));
    // The rows converge towards the horizon.
    for (int row = -16; row <= 16; ++row) {
        QPainterPath furrow(QPointF(700 + row * 34, horizon));
        furrow.quadTo(700 + row * 70, 760, 700 + row * 170, sheetHeight);
        painter.setPen(QPen(QColor(150, 108, 36, 55), 5, Qt::SolidLine, Qt::FlatCap));
        painter.drawPath(furrow);
    }
    painter.setPen(Qt::NoPen);
}

void PaintWeighbridge(QPainter& painter) {
    painter.fillRect(QRectF(0, road, sheetWidth, 64), QColor(0x77, 0x75, 0x70));
    painter.fillRect(QRectF(0, road, sheetWidth, 5), QColor(0x94, 0x91, 0x8A));
    painter.fillRect(QRectF(830, road - 8, 560, 22), QColor(0x46, 0x4E, 0x55));
    for (qreal mark = 840; mark < 1380; mark += 60)
        painter.fillRect(QRectF(mark, road + 4, 34, 6), QColor(0xE3, 0xB8, 0x3A));
}

void PaintWheel(QPainter& painter, qreal centre) {
    painter.setBrush(QColor(0x2F, 0x33, 0x37));
    painter.drawEllipse(QPointF(centre, road - 32), 25, 25);
    painter.setBrush(QColor(0xB8, 0xBE, 0xC2));
    painter.drawEllipse(QPointF(centre, road - 32), 10, 10);
}

void PaintSacks(QPainter& painter) {
    painter.setPen(QPen(QColor(0xB0, 0x94, 0x66), 2));
    painter.setBrush(QColor(0xE6, 0xD3, 0xAA));
    for (int layer = 0; layer < 3; ++layer)
        for (int sack = 0; sack < 6 - layer; ++sack)
            painter.drawRoundedRect(
                QRectF(882 + layer * 24 + sack * 49, road - 126 - layer * 30, 46, 34), 13, 13);
    painter.setPen(Qt::NoPen);
}

void PaintTruck(QPainter& painter) {
    PaintSacks(painter);
    painter.setBrush(QColor(0x2F, 0x6B, 0x5E));
    painter.drawRoundedRect(QRectF(868, road - 108, 320, 56), 6, 6);
    painter.setBrush(QColor(0x3C, 0x80, 0x70));
    painter.drawRoundedRect(QRectF(1200, road - 152, 118, 106), 16, 16);
    painter.drawRect(QRectF(1186, road - 62, 140, 24));
    painter.setBrush(QColor(0xD6, 0xE8, 0xEE));
    painter.drawRoundedRect(QRectF(1252, road - 138, 54, 42), 8, 8);
    for (const qreal centre : {920.0, 980.0, 1130.0, 1268.0})
        PaintWheel(painter, centre);
}

} // namespace

void PaintScenery(QPainter& painter, const QRectF& area) {
    const qreal scale = qMax(area.width() / sheetWidth, area.height() / sheetHeight);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    // The mill and the weighbridge are right of the middle, so the left side is cut off.
    painter.translate(area.right() - sheetWidth * scale, area.bottom() - sheetHeight * scale);
    painter.scale(scale, scale);
    PaintSky(painter);
    PaintHill(painter, 590, 60, 560, QColor(0xBF, 0xD3, 0xC6));
    PaintHill(painter, 640, 40, 600, QColor(0xA3, 0xC0, 0x9C));
    PaintMill(painter);
    PaintWheat(painter);
    PaintWeighbridge(painter);
    PaintTruck(painter);
    painter.restore();
}

} // namespace Quillane
