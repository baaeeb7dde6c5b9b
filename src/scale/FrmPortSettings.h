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

/// The bench on which an indicator's line is worked out: line settings, the raw text, a try-out of
/// direction, length and reversal, and saving. It always comes up with the same defaults, whatever
/// is stored. Its line closes with the object: make a new screen for each showing.
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
    TextBox TxtRawWeight{*this, "TxtRawWeight"}; ///< what was received, to the byte
    Frame Frame2{*this, "Frame2", ""};
    TextBox TxtDataFrom{*this, "TxtDataFrom"}; ///< how many digits are kept
    ComboBox CboDirection{*this, "CboDirection", {"Left", "Right"}};
    CheckBox ChkIsReversed{*this, "ChkIsReversed", "Is Reversed?"};
    CommandButton CmdModifiedWeight{*this, "CmdModifiedWeight", "Get Weight"};
    TextBox TxtNotModified{*this, "TxtNotModified"};
    TextBox TxtModifiedWeight{*this, "TxtModifiedWeight"};
    Quillane::Timer Timer{*this, "Timer", 200, false};
    /// The try-out reads a number only where a third one follows.
    MSComm CM{*this, "CM", 1, "2400,n,8,1", 3};
    CommandButton CmdSave{*this, "CmdSave", "Save"};
    CommandButton CmdClose{*this, "CmdClose", "Close"};

    std::string LineSettings; ///< as last composed: 2400,n,8,1

    void SetDefaultLists();
    /// One tick of the try-out. Failures are reported.
    void ReadTestWeight();

    /// Failures are reported; so are those of the save.
    void CmdOpenPort_Click();
    /// Without a trap: with the line closed it ends the process.
    void CmdGetWeight_Click();
    void CmdModifiedWeight_Click();
    void CmdSave_Click();
    void CmdClose_Click();

protected:
    void Form_Load() override;

private:
    void WireEvents();
    void SetTabOrder();
    void DesignControls();
    void DescribeControls();
    void LayOut();
    void LayOutPortSettings();
    void LayOutReading();
    void SizeControls();
    bool OnSmallDisplay() const;
    int TypeSize() const;
    QBoxLayout* RowsOf(Frame& frame) const;
    QLayout* ButtonRow();

    std::string PortNumber() const; ///< the last character of the port's name
    void ComposeSettings();
    void StoreSettings();
};

} // namespace Quillane
