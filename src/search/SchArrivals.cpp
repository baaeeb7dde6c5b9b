#include "search/SchArrivals.h"

#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/ScreenLook.h"
#include "platform/forms/dialogs/SearchLook.h"
#include "platform/runtime/Failure.h"
#include "search/SearchStatements.h"

#include <QHBoxLayout>

namespace Quillane {

namespace {

constexpr QSize LeastSize(960, 600);
constexpr int DaysShown = 365;

bool Closes(int key, int shift) {
    return key == Key::Escape || (key == 'Q' && shift == ShiftState::Ctrl);
}

} // namespace

SchArrivals::SchArrivals() : Screen("SchArrivals", "Search Arrivals") {
    WireEvents();
    DesignGrid();
    LayOut();
}

void SchArrivals::WireEvents() {
    for (TextBox* box : {&TxtFilterId, &TxtFilter})
        box->Change = [this] { RefreshArrivals(); };
    for (TDBDate* date : {&DtpFromDate, &DtpToDate})
        date->Change = [this] { RefreshArrivals(); };
    BtnSelect.Click = [this] { BtnSelect_Click(); };
    BtnClose.Click = [this] { BtnClose_Click(); };
    GrdSch.DblClick = [this] { GrdSch_DblClick(); };
    GrdSch.KeyDown = [this](int& key, int shift) { GrdSch_KeyDown(key, shift); };
    TxtFilter.KeyDown = [this](int& key, int shift) { TxtFilter_KeyDown(key, shift); };
}

void SchArrivals::DesignGrid() {
    GrdSch.AddColumn("ArrivalID", "ID", 1244);
    GrdSch.AddColumn("ArrivalDate", "Arrival Date", 2090, "dd/MM/yyyy");
    GrdSch.AddColumn("PartyName", "Party Name", 6165);
    GrdSch.AddColumn("Commodity", "Commodity", 4419);
    GrdSch.SetActiveRowStyle(Black, ActiveRowGrey);
    GrdSch.SetAccessibleName("Arrivals found");
}

void SchArrivals::LayOut() {
    NumberInTabOrder(
        {&TxtFilterId, &TxtFilter, &GrdSch, &BtnSelect, &BtnClose, &DtpFromDate, &DtpToDate});
    SetLetterSize(*this);
    auto* filters = new QHBoxLayout;
    AddFilter(*filters, "ID", TxtFilterId, 1);
    AddFilter(*filters, "Name:", TxtFilter, 4);
    AddFilter(*filters, "From Date", DtpFromDate);
    AddFilter(*filters, "To Date", DtpToDate);
    LayOutSearch(*this, *filters, GrdSch, {&BtnSelect, &BtnClose}, LeastSize);
    TxtFilter.SetToolTip("Part of a party's name");
    BtnSelect.SetToolTip("Open the selected arrival (Enter in the list)");
    BtnClose.SetToolTip("Close without a selection (Esc or Ctrl+Q)");
}

void SchArrivals::Form_Load() {
    try {
        // The same screen object may be shown again: reset everything.
        Blank(TxtFilterId);
        Blank(TxtFilter);
        SelectedArrivalId = 0;
        DtpFromDate.SetValue(AddDays(Today(), -DaysShown));
        DtpToDate.SetValue(Today());
        RefreshArrivals();
    } catch (const Failure&) {
        ShowError();
    }
}

void SchArrivals::Form_Unload(bool& /*cancel*/) {
    if (rows_ && rows_->State() == adStateOpen)
        rows_->Close();
    GrdSch.SetDataSource(nullptr);
    rows_.reset();
}

void SchArrivals::RefreshArrivals() {
    try {
        if (!rows_)
            rows_ = std::make_shared<Recordset>();
        if (rows_->State() == adStateOpen)
            rows_->Close();
        rows_->Open(ArrivalSearchStatement({.fromDate = DtpFromDate.Value(),
                                            .toDate = DtpToDate.Value(),
                                            .id = TxtFilterId.Text(),
                                            .name = TxtFilter.Text()}),
                    *Con, adOpenStatic, adLockReadOnly, adCmdUnspecified);
        GrdSch.SetDataSource(rows_);
        GrdSch.Columns("ArrivalID").dataField = "ArrivalId";
        GrdSch.Columns("ArrivalDate").dataField = "ArrivalDate";
        GrdSch.Columns("PartyName").dataField = "AccountName";
        GrdSch.Columns("Commodity").dataField = "Commodity";
    } catch (const Failure&) {
        // Clears the list before the message is shown: it no longer matches the filters.
        GrdSch.SetDataSource(rows_);
        ShowError();
    }
}

void SchArrivals::BtnSelect_Click() {
    try {
        if (GrdSch.Rows() > 0) {
            SelectedArrivalId = rows_->Fields("ArrivalId").Long();
            Unload();
        }
    } catch (const Failure&) {
        ShowError();
    }
}

void SchArrivals::BtnClose_Click() {
    SelectedArrivalId = 0;
    Unload();
}

void SchArrivals::GrdSch_DblClick() {
    if (GrdSch.Rows() >= 1)
        BtnSelect_Click();
}

// Form_KeyDown handles Enter before this handler and the next one, and consumes it.
void SchArrivals::GrdSch_KeyDown(int key, int shift) {
    if (key == Key::Return && shift == ShiftState::None)
        BtnSelect_Click();
}

void SchArrivals::TxtFilter_KeyDown(int key, int /*shift*/) {
    if (key == Key::Return)
        BtnSelect_Click();
}

void SchArrivals::Form_KeyDown(int& key, int shift) {
    try {
        if (key == Key::Return)
            HandleEnter(key);
        else if (Closes(key, shift) && BtnClose.Enabled())
            BtnClose_Click();
    } catch (const Failure&) {
        ShowError();
    }
}

void SchArrivals::HandleEnter(int& key) {
    if (ActiveControl() != &GrdSch) {
        EnterAsTab(key);
        return;
    }
    key = 0;
    BtnSelect_Click();
}

} // namespace Quillane
