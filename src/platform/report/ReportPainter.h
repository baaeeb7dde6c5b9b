#pragma once

#include "platform/report/ReportLayout.h"

#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace Quillane {

/// Lays out a report and paints its pages on any painter; the preview, the printer and a PDF use
/// the same code. The constructor computes texts and page breaks; colours are read when a page is
/// painted. Requires: the report outlives the painter, and its sections do not change.
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

    /// Paints the pages `first` to `last`. Returns false if the device refuses a page.
    bool PaintPages(QPainter& painter, QPagedPaintDevice& device, int first, int last) const;

private:
    std::vector<ReportPage> pages_;
    double sheetHeight_;
};

/// Sets the paper size and orientation of a printer or a PDF, without margins of the device: the
/// report contains its margins.
void ApplyPaper(QPagedPaintDevice& device, const Report& report);

} // namespace Quillane
