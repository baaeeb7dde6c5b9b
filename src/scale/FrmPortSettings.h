#pragma once

#include "platform/comm/MSComm.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"

#include <string>

namespace Quillane {

/// The bench on which an indicator's line is worked out: line settings, the raw text, a try-out of
/// direction, length and reversal, and saving. It always comes up with the same defaults, whatever
/// is stored. Its line closes with the object: make the screen anew for each showing.
class FrmPortSettings : public Screen {
public:
    FrmPortSettings();

    Frame Frame1{*this, "Frame1", "Port Settings"};
    ComboBox CboPortName{*this, "CboPortName"};
    ComboBox CboBitsPerSecond{*this, "CboBitsPerSecond"};
    ComboBox CboDataBits{*this, "CboDataBits"};
    ComboBox CboParity{*this, "CboParity"};
    ComboBox CboStopBits{*this, "CboStopBits"};
    CommandButton CmdOpenPort{*this, "CmdOpenPort", "Open Port"};
    CommandButton CmdGetWeight{*this, "CmdGetWeight", "Get Weight"};
    TextBox TxtRawWeight{*this, "TxtRawWeight"};
    Frame Frame2{*this, "Frame2", ""};
    TextBox TxtDataFrom{*this, "TxtDataFrom"}; ///< how many digits are kept
    ComboBox CboDirection{*this, "CboDirection"};
    CheckBox ChkIsReversed{*this, "ChkIsReversed", "Is Reversed?"};
    CommandButton CmdModifiedWeight{*this, "CmdModifiedWeight", "Get Weight"};
    TextBox TxtNotModified{*this, "TxtNotModified"};
    TextBox TxtModifiedWeight{*this, "TxtModifiedWeight"};
    Quillane::Timer Timer{*this, "Timer", 200};
    MSComm CM{*this, "CM"};
    CommandButton CmdSave{*this, "CmdSave", "Save"};
    CommandButton CmdClose{*this, "CmdClose", "Close"};

    std::string LineSettings; ///< as last composed: 2400,n,8,1

    void SetDefaultLists();
    /// One tick of the try-out. Failures are reported.
    void ReadTestWeight();

    void CmdOpenPort_Click();
    /// Without a trap: with the line closed it ends the process.
    void CmdGetWeight_Click();
    void CmdModifiedWeight_Click();
    void CmdSave_Click();
    void CmdClose_Click();

protected:
    void Form_Load() override;
};

} // namespace Quillane
