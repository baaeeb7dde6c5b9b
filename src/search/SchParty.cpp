#include "search/SchParty.h"

#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/ScreenLook.h"
#include "platform/forms/dialogs/SearchLook.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "search/SearchStatements.h"

#include <QHBoxLayout>

namespace Quillane {

namespace {

constexpr QSize LeastSize(840, 560);
constexpr int LongestFilter = 30;

} // namespace

SchParty::SchParty() : Screen("SchParty", "Search Parties") {
    WireEvents();
    DesignControls();
    LayOut();
}

void SchParty::WireEvents() {
    TxtFilter.Change = [this] { TxtFilter_Change(); };
    TxtFilterId.Change = [this] { TxtFilterId_Change(); };
    TxtFilter.KeyDown = [this](int& key, int shift) { TxtFilter_KeyDown(key, shift); };
    TxtFilterId.KeyDown = [this](int& key, int shift) { TxtFilterId_KeyDown(key, shift); };
    Grid.DblClick = [this] { Grid_DblClick(); };
    CmdSelect.Click = [this] { CmdSelect_Click(); };
    CmdClose.Click = [this] { CmdClose_Click(); };
}

void SchParty::DesignControls() {
    NumberInTabOrder({&TxtFilter, &Grid, &CmdSelect, &CmdClose, &TxtFilterId});
    TxtFilter.SetMaxLength(LongestFilter);
    TxtFilterId.SetMaxLength(LongestFilter);
    Grid.AddColumn("ID", "Party ID", 1720);
    Grid.AddColumn("Name", "Name", 6456);
    Grid.AddColumn("City", "City", 3200);
    Grid.SetActiveRowHighlighted();
    Grid.SetAccessibleName("Parties found");
}

void SchParty::LayOut() {
    SetLetterSize(*this);
    auto* filters = new QHBoxLayout;
    AddFilter(*filters, "Name", TxtFilter, 3);
    AddFilter(*filters, "Party Id", TxtFilterId, 1);
    LayOutSearch(*this, *filters, Grid, {&CmdSelect, &CmdClose}, LeastSize);
    TxtFilter.SetToolTip("Part of a party's name; Down moves to the list");
    TxtFilterId.SetToolTip("A whole party id; Down moves to the list");
    CmdSelect.SetToolTip("Select the marked party");
    CmdClose.SetToolTip("Close without a selection");
}

void SchParty::Form_Load() {
    try {
        // The same screen object may be shown again: reset everything.
        Blank(TxtFilter);
        Blank(TxtFilterId);
        RefreshParties();
        EmptySelection();
    } catch (const Failure&) {
        ShowError();
    }
}

void SchParty::EmptySelection() {
    SelectedPartyId.clear();
    SelectedPartyName.clear();
    SelectedPartyCity.clear();
}

void SchParty::RefreshParties() {
    rows_ = std::make_shared<Recordset>();
    rows_->Open(PartySearchStatement(TxtFilter.Text()), *Con, adOpenDynamic, adLockOptimistic,
                adCmdUnspecified);
    Grid.SetDataSource(rows_);
    Grid.Columns("ID").dataField = "PartyId";
    Grid.Columns("Name").dataField = "AccountName";
    Grid.Columns("City").dataField = "CityName";
}

void SchParty::TxtFilter_Change() {
    try {
        RefreshParties();
    } catch (const Failure&) {
        ShowError();
    }
}

void SchParty::TxtFilterId_Change() {
    try {
        const std::string id = TxtFilterId.Text();
        if (Trim(id).empty()) {
            Grid.MoveFirst();
            return;
        }
        rows_->Find(PartyIdCriterion(id));
        // Find ignores blanks at the end of a stored id, since they may be padding of the column.
        // Blanks that were typed are part of the id, so no stored id can match.
        if (rows_->Eof() || id.back() == ' ')
            Grid.MoveLast();
    } catch (const Failure&) {
        ShowError();
    }
}

void SchParty::TxtFilter_KeyDown(int key, int /*shift*/) {
    if (key == Key::Down)
        Grid.SetFocus();
}

void SchParty::TxtFilterId_KeyDown(int key, int /*shift*/) {
    if (key == Key::Down && ActiveControl() == &TxtFilterId)
        Grid.SetFocus();
}

void SchParty::Grid_DblClick() {
    if (Grid.Rows() >= 1)
        CmdSelect_Click();
}

void SchParty::CmdSelect_Click() {
    try {
        if (Grid.Rows() > 0) {
            SelectedPartyId = rows_->Fields("PartyID").Text();
            SelectedPartyName = rows_->Fields("AccountName").Text();
            SelectedPartyCity = rows_->Fields("Cityname").Text();
            Unload();
        }
    } catch (const Failure&) {
        ShowError();
    }
}

void SchParty::CmdClose_Click() {
    EmptySelection();
    Unload();
}

} // namespace Quillane
