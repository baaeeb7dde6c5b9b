#include "platform/report/CRViewer9.h"

#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Screen.h"
#include "platform/report/ReportPainter.h"
#include "platform/report/ViewerDesktop.h"
#include "platform/report/ViewerPane.h"
#include "platform/runtime/Failure.h"

#include <QPainter>
#include <QPrintPreviewWidget>

#include <exception>

namespace Quillane {

/// Passes the pages of the report to the preview. A failure must not pass through Qt: it is stored
/// until the preview has returned.
class CRViewer9::Pane : public ViewerPane {
public:
    explicit Pane(QWidget* parent) : ViewerPane(parent) {
        PaintRequested = [this](QPrinter& printer) { Paint(printer); };
    }

    void View(const Report& shown) {
        report = &shown;
        ApplyPaper(PreviewPrinter(), shown);
        Preview().updatePreview();
        if (failure_)
            std::rethrow_exception(std::exchange(failure_, nullptr));
        ShowPage(1);
        OpenAt(openingEdge_);
    }

    const Report* report = nullptr;

private:
    void Paint(QPrinter& printer) {
        try {
            if (report)
                openingEdge_ = PaintAll(printer, *report);
        } catch (...) {
            failure_ = std::current_exception();
        }
    }

    static double PaintAll(QPrinter& printer, const Report& shown) {
        const ReportPainter pages(shown);
        QPainter painter(&printer);
        pages.PaintPages(painter, printer, 1, pages.PageCount());
        return pages.OpeningEdge();
    }

    std::exception_ptr failure_;
    double openingEdge_ = 0;
};

CRViewer9::CRViewer9(Screen& screen, std::string name)
    : VisualControl(screen, std::move(name), "CRViewer9"), pane_(std::make_unique<Pane>(&screen)) {
    SetTabIndex(0);
    SetAccessibleName("Report preview");
    pane_->PrintRequested = [this] { PrintReport(); };
    pane_->SaveRequested = [this] { SaveReport(); };
    pane_->CloseRequested = [this] {
        if (CloseButtonClicked)
            CloseButtonClicked();
    };
    PrinterInstalled = AnyPrinterInstalled;
    ChoosePrinter = [this](QPrinter& printer) { return AskForPrinter(printer, *pane_); };
    ChoosePdfFile = [this](const std::string& proposed) { return AskForPdf(proposed, *pane_); };
}

CRViewer9::~CRViewer9() = default;

void CRViewer9::SetReportSource(Report& report) {
    report_ = &report;
}

void CRViewer9::ClearReportSource() {
    report_ = nullptr;
    pane_->report = nullptr;
}

void CRViewer9::ViewReport() {
    if (!report_)
        Fail(FailureNumber::InvalidCall);
    pane_->View(*report_);
}

void CRViewer9::Zoom(int level) {
    if (level == 1)
        pane_->FitWidth();
    else if (level == 2)
        pane_->FitPage();
    else if (level >= 25 && level <= 400)
        pane_->ZoomTo(level);
    else
        Fail(FailureNumber::InvalidCall);
}

int CRViewer9::PageCount() const {
    return pane_->Preview().pageCount();
}

int CRViewer9::CurrentPage() const {
    return pane_->Preview().currentPage();
}

void CRViewer9::ShowPage(int number) {
    pane_->ShowPage(number);
}

int CRViewer9::Top() const {
    return pane_->y();
}

int CRViewer9::Left() const {
    return pane_->x();
}

int CRViewer9::Width() const {
    return pane_->width();
}

int CRViewer9::Height() const {
    return pane_->height();
}

void CRViewer9::SetTop(int top) {
    pane_->move(Left(), top);
}

void CRViewer9::SetLeft(int left) {
    pane_->move(left, Top());
}

void CRViewer9::SetWidth(int width) {
    pane_->resize(width, Height());
}

void CRViewer9::SetHeight(int height) {
    pane_->resize(Width(), height);
}

bool CRViewer9::HandleKey(int key, int shift) {
    if (key == Key::Tab && (shift == ShiftState::None || shift == ShiftState::Shift)) {
        pane_->MoveFocus(shift == ShiftState::None);
        return true;
    }
    return key == Key::Return && shift == ShiftState::None && pane_->PressButton();
}

QWidget& CRViewer9::Widget() {
    return *pane_;
}

QWidget& CRViewer9::FocusWidget() {
    return pane_->Pages();
}

} // namespace Quillane
