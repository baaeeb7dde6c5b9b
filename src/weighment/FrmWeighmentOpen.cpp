#include "weighment/FrmWeighment.h"

#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "search/SchArrivals.h"
#include "slip/SlipStatement.h"
#include "weighment/WeightArithmetic.h"

namespace Quillane {

namespace {

/// A save would store them as lines of 0 bags. A row that failed after its first cell keeps its
/// line, since the screen shows it.
void DropUnreadLines(RowArray& bagRows, int failed) {
    const bool isBegun = !bagRows.Get(failed, 0).empty();
    bagRows.ReDim(isBegun ? failed : failed - 1, bagRows.ColumnCount() - 1);
}

} // namespace

void FrmWeighment::BtnOpen_Click() {
    try {
        std::int16_t askTheOperator = 0;
        LoadArrival(askTheOperator);
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::TxtArrivalId_Change() {
    try {
        ArrivalNo = ToLong(Val(TxtArrivalId.Text()));
    } catch (const Failure&) {
        ShowError();
    }
}

// A free id is kept: the new arrival gets it. On this path the id of a stored arrival is converted
// to 16 bits; larger ones can be opened from the search screen.
void FrmWeighment::TxtArrivalId_Validate() {
    try {
        const double typed = Val(TxtArrivalId.Text());
        if (!(Con->Execute("Select count(*) From Arrivals where ArrivalID = " + NumberText(typed))
                  .Fields(0)
                  .Number() > 0))
            return;
        std::int16_t id = ToInteger(Val(TxtArrivalId.Text()));
        LoadArrival(id);
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::LoadArrival(std::int16_t& id) {
    try {
        ArrivalNo = id == 0 ? AskForArrival() : id;
        LoadStatement = SlipStatement(ArrivalNo);
        Recordset rows;
        rows.Open(LoadStatement, *Con, adOpenStatic, adLockReadOnly, adCmdUnspecified);
        if (rows.RecordCount() == 0)
            return;
        ClearControls();
        ShowRows(rows);
        IsOpened = true;
        TxtInitialGrossWeight.SetText(
            WeightText(RoundWeight(Val(TxtTareWeight.Text()) + Val(TxtGrossWeight.Text()))));
        ArrivalNo = ToLong(TxtArrivalId.Text());
        rows.Close();
        ComputeGrossWeight();
        ComputeNetWeight();
        SetButtonState(3);
    } catch (const Failure&) {
        // Show the bag lines that have been read, since a save would store them.
        Grid.Refresh();
        ShowError();
    }
}

std::int32_t FrmWeighment::AskForArrival() {
    SchArrivals search;
    search.ShowModal(this);
    return search.SelectedArrivalId;
}

void FrmWeighment::ShowRows(Recordset& rows) {
    const int lines = rows.RecordCount();
    BagRows.Clear();
    BagRows.ReDim(lines - 1, Grid.ColumnCount() - 1);
    int line = 0;
    try {
        for (; line < lines; ++line) {
            if (line == 0)
                ShowHeader(rows);
            ShowBagLine(rows, line);
            rows.MoveNext();
        }
    } catch (const Failure&) {
        DropUnreadLines(BagRows, line);
        throw;
    }
    Grid.ReBind();
    Grid.Refresh();
    Grid.MoveFirst();
    Grid.Update();
}

void FrmWeighment::ShowHeader(const Recordset& rows) {
    TxtArrivalId.SetText(rows.Fields("ArrivalId").Text());
    DtpArrivalDate.SetValue(rows.Fields("ArrivalDate").AsDate());
    CboSeller.SetText(rows.Fields("PartyName").Text());
    CboCommodity.SetText(rows.Fields("CommodityName").Text());
    TxtBuiltyNo.SetText(rows.Fields("BiltyNo").TextOrEmpty());
    TxtDriverName.SetText(rows.Fields("DriverName").TextOrEmpty());
}

// The weights are added up in their boxes. Gross and deduction are rounded at each row, the tare is
// not.
void FrmWeighment::ShowBagLine(const Recordset& rows, int line) {
    if (const std::string vehicle = rows.Fields("VehicleNo").TextOrEmpty(); !vehicle.empty())
        TxtVehicleNo.SetText(vehicle);
    BagRows.Set(line, 0, rows.Fields("BagsClass").Text());
    BagRows.Set(line, 1, rows.Fields("BagsType").Text());
    BagRows.Set(line, 2, rows.Fields("NoOfBags").Text());
    const double lineGross = rows.Fields("NoOfBags").Number() * rows.Fields("BagWeight").Number();
    TxtGrossWeight.SetText(WeightText(RoundWeight(lineGross + Val(TxtGrossWeight.Text()))));
    TxtTareWeight.SetText(
        NumberText(Val(TxtTareWeight.Text()) + rows.Fields("TareWeight").Number()));
    TxtDeduction.SetText(
        WeightText(RoundWeight(Val(TxtDeduction.Text()) + rows.Fields("OtherDeduction").Number())));
}

} // namespace Quillane
