#pragma once

#include "office/window/LinePanel.h"
#include "office/window/Page.h"
#include "office/window/PortsPanel.h"

namespace Quillane::Office {

/// The ports of this station and the line of its indicator.
class StationPage : public Page {
public:
    explicit StationPage(OfficeSession& session);

    QString Unsaved() const override;
    PortsPanel* Ports() { return ports_; }
    LinePanel* Line() { return line_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    PortsPanel* ports_;
    LinePanel* line_;
};

} // namespace Quillane::Office
