#pragma once

class QPainter;
class QRectF;

namespace Quillane {

/// Paints the picture of the start screen: a flour mill, its wheat field and a loaded truck on the
/// weighbridge.
void PaintScenery(QPainter& painter, const QRectF& area);

} // namespace Quillane
