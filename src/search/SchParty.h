#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/grids/SSOleDBGrid.h"

#include <memory>
#include <string>

namespace Quillane {

/// Finds a party by name or id, among the accounts whose id begins with 6: the branch of the chart
/// of accounts that holds the parties. Shown modally; its result is the three `Selected...` texts.
class SchParty : public Screen {
public:
    SchParty();

    TextBox TxtFilter{*this, "TxtFilter"};
    SSOleDBGrid Grid{*this, "Grid"};
    JeweledButton CmdSelect{*this, "CmdSelect", "Select"};
    JeweledButton CmdClose{*this, "CmdClose", "Cancel"};
    TextBox TxtFilterId{*this, "TxtFilterId"};

    // The chosen party, to be read after the screen has closed; empty: none was chosen.
    std::string SelectedPartyId;
    std::string SelectedPartyName;
    std::string SelectedPartyCity;

    /// Lists the parties whose name holds the filter's text. A failure is the caller's: the list
    /// then goes on showing the earlier parties, and none of them can be selected or looked for.
    void RefreshParties();

    void TxtFilter_Change();
    void TxtFilterId_Change();
    void CmdSelect_Click();
    void CmdClose_Click();

protected:
    void Form_Load() override;

private:
    void WireEvents();
    void DesignControls();
    void LayOut();
    void EmptySelection();
    void TxtFilter_KeyDown(int key, int shift);
    void TxtFilterId_KeyDown(int key, int shift);
    void Grid_DblClick();

    std::shared_ptr<Recordset> rows_ = std::make_shared<Recordset>();
};

} // namespace Quillane
