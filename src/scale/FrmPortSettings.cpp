#include "scale/FrmPortSettings.h"

#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "scale/Decoding.h"
#include "scale/Settings.h"

namespace Quillane {

FrmPortSettings::FrmPortSettings() : Screen("FrmPortSettings", "Port Testing") {
    WireEvents();
    DesignControls();
    DescribeControls();
    LayOut();
}

void FrmPortSettings::WireEvents() {
    CmdOpenPort.Click = [this] { CmdOpenPort_Click(); };
    CmdGetWeight.Click = [this] { CmdGetWeight_Click(); };
    CmdModifiedWeight.Click = [this] { CmdModifiedWeight_Click(); };
    CmdSave.Click = [this] { CmdSave_Click(); };
    CmdClose.Click = [this] { CmdClose_Click(); };
    Timer.Tick = [this] { ReadTestWeight(); };
}

void FrmPortSettings::Form_Load() {
    SetDefaultLists();
}

void FrmPortSettings::SetDefaultLists() {
    CboBitsPerSecond.SetText("2400 ");
    CboDataBits.SetText("8");
    CboParity.SetText("None ");
    CboPortName.SetText("COM1");
    CboStopBits.SetText("1");
    CboDirection.SetText("Left");
}

void FrmPortSettings::CmdOpenPort_Click() {
    try {
        if (CM.PortOpen())
            CM.SetPortOpen(false);
        CM.SetCommPort(ToInteger(PortNumber()));
        ComposeSettings();
        CM.SetSettings(LineSettings);
        CM.SetPortOpen(true);
    } catch (const Failure&) {
        ShowError();
    }
}

// Reads five times in a row. Usually the first read gets everything.
void FrmPortSettings::CmdGetWeight_Click() {
    for (int look = 0; look < 5; ++look)
        TxtRawWeight.SetText(TxtRawWeight.Text() + FromQt(QString::fromLatin1(CM.Input())));
}

void FrmPortSettings::CmdModifiedWeight_Click() {
    Timer.SetEnabled(true);
}

// Writes both boxes on every tick. If nothing has arrived, they show an empty text and 0.
void FrmPortSettings::ReadTestWeight() {
    try {
        const std::string rawText = CM.Input();
        const TestWeight weight = DecodeTestWeight(rawText, CboDirection.Text(), TxtDataFrom.Text(),
                                                   ChkIsReversed.Value() == 1);
        TxtNotModified.SetText(weight.notModified);
        TxtModifiedWeight.SetText(weight.modified);
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmPortSettings::CmdSave_Click() {
    try {
        ComposeSettings();
        StoreSettings();
        MsgBox({.text = "Settings Updated Successfully",
                .title = "Confirmation",
                .icon = BoxIcon::Information,
                .buttons = BoxButtons::Ok});
    } catch (const Failure&) {
        ShowError();
    }
}

// Without a transaction: after a failure the settings before it are still stored.
void FrmPortSettings::StoreSettings() {
    const std::string direction = CboDirection.Text();
    Con->Execute(UpdateStatement(PortNameSetting, PortNumber()));
    Con->Execute(UpdateStatement(LineSetting, LineSettings));
    Con->Execute(UpdateStatement(DirectionSetting, Trim(direction)));
    Con->Execute(UpdateStatement(LengthSetting, NumberText(Val(TxtDataFrom.Text()))));
    Con->Execute(UpdateStatement(ReversalSetting, std::to_string(ChkIsReversed.Value())));
}

void FrmPortSettings::CmdClose_Click() {
    Unload();
}

std::string FrmPortSettings::PortNumber() const {
    const std::string name = CboPortName.Text();
    return name.empty() ? name : name.substr(name.size() - 1);
}

void FrmPortSettings::ComposeSettings() {
    LineSettings = ComposeLineSettings(CboBitsPerSecond.Text(), CboParity.Text(),
                                       CboDataBits.Text(), CboStopBits.Text());
}

} // namespace Quillane
