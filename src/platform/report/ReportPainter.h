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

    /// The bottom edge of the objects to show at opening, as a share of the height of the first
    /// page; 0 if there are none.
    double OpeningEdge() const;

    /// Paints the page `number`, from 1. The origin of the painter is the corner of the paper; the
    /// resolution is that of its device.
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
