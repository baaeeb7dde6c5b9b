#pragma once

#include "platform/ado/Recordset.h"
#include "platform/comm/MSComm.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Timer.h"

namespace Quillane {

/// Keeps the indicator's reading on a screen: opens the line with the stored settings, looks at it
/// on a timer and puts each decoded reading into the reading box. It only listens.
class PortSession {
public:
    PortSession(Screen& screen, MSComm& line, Timer& timer, TextBox& reading,
                Recordset& portSettingsRows);

    /// Polls every 300 ms from then on. Failures are reported; the steps after one are not done.
    void OpenScalePort();
    /// Polls every 200 ms, and opens without asking: not the same procedure, on purpose.
    void ReopenScalePort();
    /// One look at the line. Failures are reported and leave the reading as it was.
    void ReadLiveWeight();

private:
    /// Closes the line and gives it the stored port number and settings, where there are any.
    void ApplySettings();

    Screen& screen_;
    MSComm& line_;
    Timer& timer_;
    TextBox& reading_;
    Recordset& portSettingsRows_;
};

} // namespace Quillane
