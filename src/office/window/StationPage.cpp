#include "office/window/StationPage.h"

#include "office/window/OfficeBoxes.h"

#include <QBoxLayout>

namespace Quillane::Office {

StationPage::StationPage(OfficeSession& session)
    : ports_(new PortsPanel(session, *this)), line_(new LinePanel(session, *this)) {
    QVBoxLayout* column =
        PageColumn(*this, "Station",
                   "The serial ports of this computer, read by the station at its start, and the "
                   "indicator's line, the same for all stations.");
    column->addWidget(ports_, 2);
    column->addWidget(line_, 3);
    line_->Reload();
    setFocusProxy(ports_->Ports());
}

QString StationPage::Unsaved() const {
    return line_->IsChanged() ? "The line's settings have" : QString();
}

void StationPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    if (!event->spontaneous())
        Guarded(window(), [this] {
            ports_->Reload();
            if (!line_->IsChanged())
                line_->Reload();
        });
}

} // namespace Quillane::Office
