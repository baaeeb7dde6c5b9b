#pragma once

#include "platform/report/ReportLayout.h"

#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace Quillane {

/// Lays a report out over its pages and paints them on any painter: the preview, the printer and a
/// PDF are the same code. Texts and page breaks are settled when it is made; colours are those that
/// the report's objects have when a page is painted. The report must outlive it, its sections
/// unchanged.
class ReportPainter {
public:
    explicit ReportPainter(const Report& report);

    int PageCount() const { return static_cast<int>(pages_.size()); }

    /// The lower edge of what the preview shows at opening, as a part of the first page's height: 0
    /// where nothing is marked so.
    double OpeningEdge() const;

    /// Paints page `number`, from 1. The painter's origin is the corner of the paper; its device
    /// gives the resolution.
    void PaintPage(QPainter& painter, int number) const;

    /// Paints the pages `first` to `last`, a new sheet for each. False if the device refuses one.
    bool PaintPages(QPainter& painter, QPagedPaintDevice& device, int first, int last) const;

private:
    std::vector<ReportPage> pages_;
    double sheetHeight_;
};

/// Gives a printer or a PDF the report's paper, upright or on its side, with no margins of the
/// device's own: the report has its margins in itself.
void ApplyPaper(QPagedPaintDevice& device, const Report& report);

} // namespace Quillane
