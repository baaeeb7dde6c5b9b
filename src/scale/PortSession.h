#pragma once

#include "platform/ado/Recordset.h"
#include "platform/comm/MSComm.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Timer.h"

namespace Quillane {

/// Shows the indicator's reading on a screen: opens the line with the stored settings, reads it on
/// a timer and writes each decoded reading to the reading box. It sends nothing.
class PortSession {
public:
    PortSession(Screen& screen, MSComm& line, Timer& timer, TextBox& reading,
                Recordset& portSettingsRows);

    /// Opens the line unless it is open, and reads it every 300 ms. A failure is reported, and the
    /// remaining steps are skipped.
    void OpenScalePort();
    /// Opens the line in any case and reads it every 200 ms. The difference is required.
    void ReopenScalePort();
    /// Reads the line once. A failure is reported and does not change the reading.
    void ReadLiveWeight();

private:
    /// Closes the line and sets the stored port number and settings, if there are any.
    void ApplySettings();

    Screen& screen_;
    MSComm& line_;
    Timer& timer_;
    TextBox& reading_;
    Recordset& portSettingsRows_;
};

} // namespace Quillane
