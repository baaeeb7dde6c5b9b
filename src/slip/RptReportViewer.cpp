#include "slip/RptReportViewer.h"

#include "platform/forms/core/Pointer.h"
#include "platform/runtime/Failure.h"

namespace Quillane {

namespace {

constexpr int noColour = -1;
constexpr int black = 0;
constexpr int white = 16777215;
constexpr int borderGreen = 5222503;
constexpr int backGreen = 14547931;
constexpr int pageWidth = 1;

bool ShowsText(const ReportObject& object) {
    return object.kind == ReportObjectKind::Field || object.kind == ReportObjectKind::Text;
}

} // namespace

RptReportViewer::RptReportViewer() : Screen("RptReportViewer", "Previewing Report") {
    SetOpensMaximized();
    resize(1000, 800);
    CRViewer91.PrintButtonClicked = [this] { RemoveObjectColors(); };
    CRViewer91.CloseButtonClicked = [this] { Unload(); };
}

void RptReportViewer::Form_Load() {
    if (!Report)
        Fail(FailureNumber::InvalidCall);
    {
        const Hourglass hourglass;
        CRViewer91.SetReportSource(*Report);
        CRViewer91.ViewReport();
    }
    CRViewer91.Zoom(pageWidth);
}

/// The caller may replace the report after the preview is closed.
void RptReportViewer::Form_Unload(bool& /*cancel*/) {
    CRViewer91.ClearReportSource();
}

void RptReportViewer::Form_Resize() {
    CRViewer91.SetTop(0);
    CRViewer91.SetLeft(0);
    CRViewer91.SetHeight(height());
    CRViewer91.SetWidth(width());
}

void RptReportViewer::Form_KeyDown(int& key, int shift) {
    const bool closes = (key == Key::Escape && shift == ShiftState::None) ||
                        (key == 'Q' && shift == ShiftState::Ctrl);
    if (!closes)
        return;
    key = 0;
    Unload();
}

void RptReportViewer::RemoveObjectColors() {
    for (ReportSection& section : Report->Sections) {
        for (ReportObject& object : section.Objects) {
            if (ShowsText(object)) {
                object.BackColor = noColour;
                object.BorderColor = black;
            } else if (object.kind == ReportObjectKind::Box) {
                object.FillColor = white;
            }
        }
    }
}

void RptReportViewer::SetBorderColor() {
    for (ReportSection& section : Report->Sections) {
        for (ReportObject& object : section.Objects) {
            if (ShowsText(object))
                object.BorderColor = borderGreen;
            if (section.Name == "TSection5") {
                object.BackColor = backGreen;
                object.Top = 0;
            }
        }
    }
}

} // namespace Quillane
