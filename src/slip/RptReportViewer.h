#pragma once

#include "platform/forms/core/Screen.h"
#include "platform/report/CRViewer9.h"
#include "platform/report/Report.h"

#include <memory>

namespace Quillane {

/// The modal preview of a filled slip, from which the operator prints it. The caller sets `Report`,
/// fills it and shows the screen. Escape and Ctrl+Q close it.
class RptReportViewer : public Screen {
public:
    RptReportViewer();

    std::unique_ptr<Quillane::Report> Report;
    CRViewer9 CRViewer91{*this, "CRViewer91"};

    /// Removes the colours of the report before it is printed.
    void RemoveObjectColors();
    /// Adds coloured borders to the objects, for designs with a section "TSection5".
    void SetBorderColor();

protected:
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;
    void Form_Resize() override;
    void Form_KeyDown(int& key, int shift) override;
};

} // namespace Quillane
