#pragma once

#include "platform/forms/core/Screen.h"
#include "platform/report/CRViewer9.h"

#include <QResizeEvent>

namespace Quillane {

/// A screen that contains only a viewer.
class ViewerScreen : public Screen {
public:
    ViewerScreen() : Screen("ViewerScreen", "Viewer") { resize(900, 700); }

    CRViewer9 Viewer{*this, "Viewer"};

protected:
    void Form_Resize() override {
        Viewer.SetWidth(width());
        Viewer.SetHeight(height());
    }
};

} // namespace Quillane
