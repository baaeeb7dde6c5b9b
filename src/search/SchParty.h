#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/grids/SSOleDBGrid.h"

#include <memory>
#include <string>

namespace Quillane {

/// The modal screen that finds a party by name or id, among the accounts whose id begins with 6:
/// this branch of the chart of accounts holds the parties. Its result is the three `Selected...`
/// texts.
class SchParty : public Screen {
public:
    SchParty();

    TextBox TxtFilter{*this, "TxtFilter"};
    SSOleDBGrid Grid{*this, "Grid"};
    JeweledButton CmdSelect{*this, "CmdSelect", "Select"};
    JeweledButton CmdClose{*this, "CmdClose", "Cancel"};
    TextBox TxtFilterId{*this, "TxtFilterId"};

    // The selected party, valid after the screen has closed; empty if none was selected.
    std::string SelectedPartyId;
    std::string SelectedPartyName;
    std::string SelectedPartyCity;

    /// Lists the parties whose name contains the text of the filter. Errors: throws the failure of
    /// the statement. The list then still shows the previous parties, but none can be selected or
    /// searched for.
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
