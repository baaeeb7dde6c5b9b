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

/// Finds a stored arrival by date range, id and party name. Shown modally; its whole result is
/// `SelectedArrivalId`. Each showing starts over: the last 365 days, all parties.
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

    /// The chosen arrival, to be read after the screen has closed; 0: none was chosen.
    std::int32_t SelectedArrivalId = 0;

    /// Lists the arrivals that fit the filters, the newest first. Failures are reported; the list
    /// then stays empty.
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

    std::shared_ptr<Recordset> rows_; ///< none before the first refresh and after unloading
};

} // namespace Quillane
