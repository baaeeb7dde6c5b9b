#pragma once

#include "platform/comm/MSComm.h"
#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/ComboBox.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Timer.h"

#include <string>

class QBoxLayout;
class QLayout;

namespace Quillane {

/// The screen on which the settings for an indicator are determined: line settings, the raw text, a
/// test of direction, length and reversal, and saving. It always opens with the same defaults, not
/// with the stored settings. The destructor closes its line, so a new screen is needed for each
/// showing.
class FrmPortSettings : public Screen {
public:
    FrmPortSettings();

    Frame Frame1{*this, "Frame1", "Port Settings"};
    ComboBox CboPortName{*this, "CboPortName", {"COM1", "COM2"}};
    ComboBox CboBitsPerSecond{*this,
                              "CboBitsPerSecond",
                              {"110 ", "300 ", "600 ", "1200 ", "2400 ", "4800 ", "9600", "14400 ",
                               "19200 ", "28800 ", "38400 ", "56000"}};
    ComboBox CboDataBits{*this, "CboDataBits", {"5", "6", "7", "8"}};
    ComboBox CboParity{*this, "CboParity", {"Even ", "Mark ", "None ", "Odd ", "Space"}};
    ComboBox CboStopBits{*this, "CboStopBits", {"1", "1.5", "2"}};
    CommandButton CmdOpenPort{*this, "CmdOpenPort", "Open Port"};
    CommandButton CmdGetWeight{*this, "CmdGetWeight", "Get Weight"};
    TextBox TxtRawWeight{*this, "TxtRawWeight"}; ///< the bytes received, unchanged
    Frame Frame2{*this, "Frame2", ""};
    TextBox TxtDataFrom{*this, "TxtDataFrom"}; ///< how many digits are kept
    ComboBox CboDirection{*this, "CboDirection", {"Left", "Right"}};
    CheckBox ChkIsReversed{*this, "ChkIsReversed", "Is Reversed?"};
    CommandButton CmdModifiedWeight{*this, "CmdModifiedWeight", "Get Weight"};
    TextBox TxtNotModified{*this, "TxtNotModified"};
    TextBox TxtModifiedWeight{*this, "TxtModifiedWeight"};
    Quillane::Timer Timer{*this, "Timer", 200, false};
    /// The test reads a number only if a third one follows, so several frames are buffered.
    MSComm CM{*this, "CM", 1, "2400,n,8,1", 3};
    CommandButton CmdSave{*this, "CmdSave", "Save"};
    CommandButton CmdClose{*this, "CmdClose", "Close"};

    std::string LineSettings; ///< as last composed: 2400,n,8,1

    void SetDefaultLists();
    /// One tick of the test. Failures are reported.
    void ReadTestWeight();

    /// Failures are reported, also by the save.
    void CmdOpenPort_Click();
    /// Has no trap: if the line is closed, the failure ends the process.
    void CmdGetWeight_Click();
    void CmdModifiedWeight_Click();
    void CmdSave_Click();
    void CmdClose_Click();

protected:
    void Form_Load() override;

private:
    void WireEvents();
    void DesignControls();
    void DescribeControls();
    void LayOut();
    void LayOutPortSettings();
    void LayOutReading();
    void SizeControls();
    QBoxLayout* RowsOf(Frame& frame) const;
    QLayout* ButtonRow();

    std::string PortNumber() const; ///< the last character of the port's name
    void ComposeSettings();
    void StoreSettings();
};

} // namespace Quillane
