#include "scale/PortSession.h"

#include "data/modCommon.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "scale/Settings.h"

namespace Quillane {

PortSession::PortSession(Screen& screen, MSComm& line, Timer& timer, TextBox& reading,
                         Recordset& portSettingsRows)
    : screen_(screen), line_(line), timer_(timer), reading_(reading),
      portSettingsRows_(portSettingsRows) {}

void PortSession::OpenScalePort() {
    try {
        ApplySettings();
        timer_.SetInterval(300);
        if (!line_.PortOpen())
            line_.SetPortOpen(true);
        timer_.SetEnabled(true);
    } catch (const Failure&) {
        ShowError();
    }
}

void PortSession::ReopenScalePort() {
    try {
        ApplySettings();
        timer_.SetInterval(200);
        timer_.SetEnabled(true);
        line_.SetPortOpen(true);
    } catch (const Failure&) {
        ShowError();
    }
}

void PortSession::ApplySettings() {
    if (line_.PortOpen())
        line_.SetPortOpen(false);
    if (const auto port = SingleValue(portSettingsRows_, PortNameSetting))
        line_.SetCommPort(ToInteger(*port));
    if (const auto settings = SingleValue(portSettingsRows_, LineSetting))
        line_.SetSettings(*settings);
}

void PortSession::ReadLiveWeight() {
    try {
        const std::string rawText = line_.Input();
        if (rawText.empty())
            return;
        // Called twice. A weight button that is pressed during the call gets the former reading.
        screen_.DoEvents();
        screen_.DoEvents();
        if (const auto weight = DecodeLiveWeight(rawText, ReadLiveReading(portSettingsRows_)))
            reading_.SetText(*weight);
    } catch (const Failure&) {
        ShowError();
    }
}

} // namespace Quillane
