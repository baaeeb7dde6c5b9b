#pragma once

#include "platform/comm/MSComm.h"
#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Timer.h"
#include "scale/PortSession.h"
#include "scale/PortSettingsDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane::Testing {

/// The parts of a screen that a reading needs.
struct WeighingScreen : Screen {
    WeighingScreen() : Screen("FrmWeighing", "Weighing") {
        Timer.Tick = [this] {
            ++ticks;
            Session.ReadLiveWeight();
        };
    }

    MSComm CM{*this, "CM"};
    Quillane::Timer Timer{*this, "Timer", 250, false};
    TextBox TxtWeight{*this, "TxtWeight"};
    Recordset PortSettingsRows;
    PortSession Session{*this, CM, Timer, TxtWeight, PortSettingsRows};
    int ticks = 0;
};

/// A screen, an indicator on port 1 and the usual settings.
class PortSessionTest : public testing::Test {
protected:
    PortSessionTest() {
        MSComm::SetDevices([this](int port) {
            return port == 1 ? terminal.Device() : "/dev/no-such-line-" + std::to_string(port);
        });
        screen.TxtWeight.SetText("777");
        database.Load(screen.PortSettingsRows);
    }
    ~PortSessionTest() override { MSComm::SetDevices({}); }

    void Store(const PortSettingsDatabase::Settings& rows) {
        database.Store(rows);
        database.Load(screen.PortSettingsRows);
    }

    /// The text that one read of these bytes shows.
    std::string Look(std::string_view bytes) {
        terminal.Write(bytes);
        screen.Session.ReadLiveWeight();
        return screen.TxtWeight.Text();
    }

    std::string Named() const { return "Port 1 (" + terminal.Device() + ")"; }

    PseudoTerminal terminal;
    PortSettingsDatabase database;
    WeighingScreen screen;
};

} // namespace Quillane::Testing
