#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/TDBDate.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/grids/SSOleDBGrid.h"

#include <cstdint>
#include <memory>

namespace Quillane {

/// The modal screen that finds a stored arrival by date range, id and party name. Its only result
/// is `SelectedArrivalId`. Each time it is shown it starts with the last 365 days and all parties.
class SchArrivals : public Screen {
public:
    SchArrivals();

    TextBox TxtFilterId{*this, "TxtFilterId"};
    TextBox TxtFilter{*this, "TxtFilter"};
    SSOleDBGrid GrdSch{*this, "GrdSch"};
    CommandButton BtnSelect{*this, "BtnSelect", "Select"};
    CommandButton BtnClose{*this, "BtnClose", "Close"};
    TDBDate DtpFromDate{*this, "DtpFromDate"};
    TDBDate DtpToDate{*this, "DtpToDate"};

    /// The selected arrival, valid after the screen has closed; 0 if none was selected.
    std::int32_t SelectedArrivalId = 0;

    /// Lists the arrivals that match the filters, the newest first. A failure is reported; the list
    /// is then empty.
    void RefreshArrivals();

    void BtnSelect_Click();
    void BtnClose_Click();

protected:
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void WireEvents();
    void DesignGrid();
    void LayOut();
    void GrdSch_DblClick();
    void GrdSch_KeyDown(int key, int shift);
    void TxtFilter_KeyDown(int key, int shift);
    void HandleEnter(int& key);

    std::shared_ptr<Recordset> rows_; ///< null before the first refresh and after unloading
};

} // namespace Quillane
