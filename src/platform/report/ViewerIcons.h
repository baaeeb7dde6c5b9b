#pragma once

#include <QIcon>

namespace Quillane {

enum class ViewerIcon {
    FirstPage,
    PreviousPage,
    NextPage,
    LastPage,
    ZoomIn,
    ZoomOut,
    PageWidth,
    WholePage,
    Print,
    SavePdf,
    Close
};

/// A vector drawing, so that it is sharp at every scale factor and needs no picture file.
QIcon IconOf(ViewerIcon icon);

} // namespace Quillane
