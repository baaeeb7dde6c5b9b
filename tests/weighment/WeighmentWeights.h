#pragma once

#include "weighment/StateWatch.h"

namespace Quillane::Testing {

/// The shown screen, with a trace of the actions of a write or a capture.
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

    /// The present gross, net and mounds.
    std::string Figures() {
        return screen->TxtGrossWeight.Text() + " / " + screen->TxtNetWeight.Text() + " / " +
               screen->TxtMoundKgs.Text();
    }
    /// Disabled boxes in lower case: initial gross, tare, gross.
    std::string Enabled() {
        return std::string(screen->TxtInitialGrossWeight.Enabled() ? "I" : "i") +
               (screen->TxtTareWeight.Enabled() ? "T" : "t") +
               (screen->TxtGrossWeight.Enabled() ? "G" : "g");
    }
};

} // namespace Quillane::Testing
