#include "weighment/FrmWeighment.h"

#include "data/Common.h"
#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "weighment/WeightArithmetic.h"

#include <limits>

namespace Quillane {

namespace {

void Reopen(Recordset& rows, const std::string& source, int cursorType) {
    if (rows.State() == adStateOpen)
        rows.Close();
    rows.Open(source, *Con, cursorType, adLockOptimistic, adCmdUnspecified);
}

/// Fails (6) unless the id is a whole number of 32 bits. `ArrivalNo` does not have the value of any
/// other, so the steps that use it would change the lines of another arrival. The largest number is
/// refused for a new arrival, since no number would follow it.
void FailUnlessId(double id, bool isNew) {
    const std::int32_t whole = ToLong(id);
    if (whole != id || (isNew && whole == std::numeric_limits<std::int32_t>::max()))
        Fail(FailureNumber::Overflow);
}

} // namespace

// The validation runs here and again in SaveWeighment; normally this first pass reports.
void FrmWeighment::BtnSave_Click() {
    try {
        if (ValidateWeighment())
            SaveWeighment();
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::SaveWeighment() {
    try {
        if (!ValidateWeighment())
            return;
        Con->BeginTrans();
        WriteHeader();
        Reopen(oldBodyRows_,
               "Select * From arrivalsbody where arrivalid=" + std::to_string(ArrivalNo),
               adOpenStatic);
        if (!IsFreeOfDependents()) {
            Con->RollbackTrans();
            return;
        }
        Con->Execute("Update Arrivals Set IsPosted=0 where arrivalid=" + std::to_string(ArrivalNo));
        ReplaceBody();
        Con->CommitTrans();
        FinishSave();
    } catch (const Failure&) {
        Con->RollbackTrans();
        ShowError();
    }
}

void FrmWeighment::WriteHeader() {
    const double id = Val(TxtArrivalId.Text());
    Reopen(headerRows_, "Select * from Arrivals Where ArrivalId=" + NumberText(id), adOpenDynamic);
    const bool isNew = headerRows_.RecordCount() == 0;
    FailUnlessId(id, isNew);
    if (isNew) {
        headerRows_.AddNew();
        headerRows_.Collect("ArrivalId", id);
    }
    headerRows_.Collect("ArrivalDate", DtpArrivalDate.Value());
    headerRows_.Collect("PermitNo", Value());
    headerRows_.Collect("CenterId", Value());
    headerRows_.Collect("CommodityId", CboCommodity.ColumnText(1));
    headerRows_.Collect("SellerId", CboSeller.ColumnText(1));
    headerRows_.Collect("contractid", Value());
    headerRows_.Collect("IsPosted", 0);
    headerRows_.Update();
}

bool FrmWeighment::IsFreeOfDependents() {
    std::string criteria = "ArrivalID=" + std::to_string(ArrivalNo);
    const std::string table = GetDependentTable("Arrivals", criteria, "ArrivalsBody");
    if (table.empty())
        return true;
    MsgBox({"Cannot updated this invoice because it is used in (" + table + ") table", "Alert",
            BoxIcon::Exclamation});
    return false;
}

void FrmWeighment::ReplaceBody() {
    const int oldRows = oldBodyRows_.RecordCount();
    for (int row = 0; row < oldRows; ++row) {
        oldBodyRows_.Delete();
        oldBodyRows_.MoveNext();
    }
    oldBodyRows_.Close();

    Reopen(bodyRows_,
           "Select * From ArrivalsBody where arrivalid=" + NumberText(Val(TxtArrivalId.Text())),
           adOpenStatic);
    Grid.MoveFirst();
    const int lines = BagRows.RowCount();
    for (int line = 1; line <= lines; ++line)
        WriteBagLine(line == 1);
    bodyRows_.Close();
    headerRows_.Update();
    headerRows_.Close();
}

void FrmWeighment::WriteBagLine(bool first) {
    bodyRows_.AddNew();
    bodyRows_.Collect("ArrivalId", Val(TxtArrivalId.Text()));
    bodyRows_.Collect("CommodityId", CboCommodity.ColumnText(1));
    bodyRows_.Collect("BagsClassId", GetIdOfName(CboBagClass, Grid.ColumnText(0)));
    bodyRows_.Collect("BagsTypeId", GetIdOfName(CboBagType, Grid.ColumnText(1)));
    bodyRows_.Collect("NoOfBags", Val(Grid.ColumnText(2)));
    // Only the first line has vehicle and tare, so that their sum over the lines is correct.
    bodyRows_.Collect("VehicleNo", first ? TxtVehicleNo.Text() : std::string());
    bodyRows_.Collect("TareWeight", first ? Val(TxtTareWeight.Text()) : 0.0);

    WeighmentTotals totals;
    totals.bags = ToInteger(SumColumn(2, BagRows));
    bodyRows_.Collect("ScaleDeduction", Val(TxtScaleDeductKg.Text()));
    totals.gross = Val(TxtGrossWeight.Text());
    totals.shortage = Val(TxtShortage.Text());
    totals.deduction = Val(TxtDeduction.Text());
    totals.net = Val(TxtNetWeight.Text());
    const BagLineFigures share = ShareOfLine(totals, bodyRows_.Fields("NoOfBags").Number());
    bodyRows_.Collect("BagWeight", share.bagWeight);
    bodyRows_.Collect("BagsDeduction", 0);
    bodyRows_.Collect("OtherDeduction", share.otherDeduction);
    bodyRows_.Collect("NetWeight", share.netWeight);
    bodyRows_.Collect("DriverName", TxtDriverName.Text());
    bodyRows_.Collect("BiltyNo", TxtBuiltyNo.Text());
    bodyRows_.Collect("VehicleNoText", TxtVehicleNo.Text());
    Grid.MoveNext();
    bodyRows_.Update();
}

void FrmWeighment::FinishSave() {
    if (MsgBox({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                BoxAnswer::No}) == BoxAnswer::Yes)
        BtnPrint_Click();
    savedId_ = TxtArrivalId.Text();
    BeginNextWeighment();
}

} // namespace Quillane
