#pragma once

#include "weighment/StateWatch.h"

namespace Quillane::Testing {

/// The screen shown, with a trace of what a write or a capture does.
class WeighmentWeights : public WeighmentScreenTest {
protected:
    Lines Doing(const std::function<void()>& act) {
        Trace trace(*screen, line);
        StateWatch watch(*screen, trace);
        act();
        return trace.Take();
    }
    Lines Capturing(JeweledButton& button, std::string_view reading) {
        screen->TxtWeight.SetText(reading);
        return Doing([&] { ScreenDriver(*screen).Click(button); });
    }
    Lines Writing(TextBox& box, std::string_view text) {
        return Doing([&] { box.SetText(text); });
    }

    /// Gross, net and mounds as they are.
    std::string Figures() {
        return screen->TxtGrossWeight.Text() + " / " + screen->TxtNetWeight.Text() + " / " +
               screen->TxtMoundKgs.Text();
    }
    /// Closed boxes in lower case: initial gross, tare, gross.
    std::string Enabled() {
        return std::string(screen->TxtInitialGrossWeight.Enabled() ? "I" : "i") +
               (screen->TxtTareWeight.Enabled() ? "T" : "t") +
               (screen->TxtGrossWeight.Enabled() ? "G" : "g");
    }
};

} // namespace Quillane::Testing
