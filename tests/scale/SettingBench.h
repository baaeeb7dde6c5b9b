#pragma once

#include "platform/comm/PseudoTerminal.h"
#include "scale/FrmPortSettings.h"
#include "station/OpenedDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane::Testing {

/// A station's database, an indicator on port 1 (there is no port 2), and the setting screen, not
/// shown yet.
class SettingBench : public testing::Test {
protected:
    SettingBench() {
        MSComm::SetDevices([this](int port) {
            if (atOpening)
                atOpening();
            return port == 1 ? terminal.Device() : "/dev/no-such-line-" + std::to_string(port);
        });
    }
    ~SettingBench() override {
        screen.Unload();
        MSComm::SetDevices({});
    }

    void ShowWithOpenPort() {
        screen.Show();
        screen.CmdOpenPort.Click();
        ASSERT_TRUE(screen.CM.PortOpen());
    }
    /// The result of one tick of the test for these bytes: "not modified/modified".
    std::string TryOut(std::string_view bytes) {
        terminal.Write(bytes);
        screen.ReadTestWeight();
        return screen.TxtNotModified.Text() + "/" + screen.TxtModifiedWeight.Text();
    }
    /// The five rows as stored, joined by blanks.
    static std::string Stored() {
        std::string values;
        for (const char* key :
             {"PortName", "PortSettings", "DataDirection", "DataLength", "IsReversed"})
            values += (values.empty() ? "" : " ") +
                      Con->Execute("Select RegistryValue from PortSettings where RegistryKey = '" +
                                   std::string(key) + "'")
                          .Fields(0)
                          .Text();
        return values;
    }

    std::string Named() const { return "Port 1 (" + terminal.Device() + ")"; }
    Box HungUp() const {
        return Critical(Named() + " is closed: the line was disconnected. Check the cable.",
                        "Serial line");
    }

    std::function<void()> atOpening; ///< runs while the line asks for its device
    OpenedDatabase database;
    PseudoTerminal terminal;
    BoxAnswers boxes;
    FrmPortSettings screen;
};

inline const Box ClosedPort =
    Critical("Port 1 is closed: nothing can be read from it.", "Serial line");

} // namespace Quillane::Testing
