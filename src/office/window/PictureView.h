#pragma once

#include "office/daybook/DayBook.h"
#include "platform/report/ReportPainter.h"

#include <QWidget>

#include <memory>

namespace Quillane::Office {

/// Shows the picture of a day book as large as the available space allows.
class PictureView : public QWidget {
public:
    PictureView();
    void Show(const DayBook& book);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<Report> report_;
    std::unique_ptr<ReportPainter> pages_;
};

} // namespace Quillane::Office
