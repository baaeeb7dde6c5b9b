#pragma once

class QPainter;
class QRectF;

namespace Quillane {

/// Paints the start screen's picture: the mill behind its wheat on a clear morning, and a loaded
/// truck on the weighbridge.
void PaintScenery(QPainter& painter, const QRectF& area);

} // namespace Quillane
