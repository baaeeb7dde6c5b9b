#include "office/window/PictureView.h"

#include "office/daybook/Picture.h"

#include <QPainter>

#include <algorithm>

namespace Quillane::Office {

PictureView::PictureView() {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setMinimumHeight(200);
}

void PictureView::Show(const DayBook& book) {
    report_ = std::make_unique<PictureReport>(book.Sums(), book.Names());
    pages_ = std::make_unique<ReportPainter>(*report_);
    update();
}

void PictureView::paintEvent(QPaintEvent*) {
    if (!pages_)
        return;
    constexpr int margin = 16;
    constexpr double twipsPerInch = 1440;
    QPainter painter(this);
    painter.translate(margin, margin);
    const double pixelsPerTwip = std::min((width() - 2.0 * margin) / PictureWidth,
                                          (height() - 2.0 * margin) / PictureHeight);
    const double scale = pixelsPerTwip * twipsPerInch / logicalDpiX();
    painter.scale(scale, scale);
    pages_->PaintPage(painter, 1);
}

} // namespace Quillane::Office
