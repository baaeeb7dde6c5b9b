#include "platform/runtime/Text.h"
#include "weighment/FrmWeighment.h"

#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "signin/UserLogin.h"

namespace Quillane {

namespace {

void Refuse(std::string text, std::string title = "Alert") {
    MsgBox({std::move(text), std::move(title), BoxIcon::Exclamation});
}

} // namespace

bool FrmWeighment::ValidateWeighment() {
    try {
        return HasArrivalId() && HasParty() && HasCommodity() && HasVehicle() && HasGrossWeight() &&
               HasBagLines() && IdIsFree() && MayModify();
    } catch (const Failure&) {
        ShowError();
        return false;
    }
}

bool FrmWeighment::HasArrivalId() {
    if (!Trim(TxtArrivalId.Text()).empty() && Val(TxtArrivalId.Text()) != 0)
        return true;
    MsgBox({"Invalid Arrival ID. A new Arrival ID has been automatically generated. Please save "
            "again",
            ProgramTitle()});
    TakeNewId();
    return false;
}

bool FrmWeighment::HasParty() {
    if (!CboSeller.Text().empty())
        return true;
    Refuse("Please select a valid Party and try again");
    CboSeller.SetFocus();
    return false;
}

bool FrmWeighment::HasCommodity() {
    if (!CboCommodity.Text().empty())
        return true;
    Refuse("Please select a valid commodity and try again");
    if (CboCommodity.Enabled())
        CboCommodity.SetFocus();
    else
        DtpArrivalDate.SetFocus();
    return false;
}

bool FrmWeighment::HasVehicle() {
    if (!TxtVehicleNo.Text().empty())
        return true;
    Refuse("Please provide vehicle no. and try again");
    if (TxtVehicleNo.Enabled())
        TxtVehicleNo.SetFocus();
    else
        Grid.SetFocus();
    return false;
}

bool FrmWeighment::HasGrossWeight() {
    if (Val(TxtGrossWeight.Text()) != 0)
        return true;
    Refuse("Gross weight cannot be empty or zero");
    // The heap number is never shown, so this fails and a second box reports it. That is required.
    if (TxtHeapNo.Enabled())
        TxtHeapNo.SetFocus();
    return false;
}

bool FrmWeighment::HasBagLines() {
    if (BagRows.RowCount() > 0)
        return true;
    Refuse("Please Enter atleast one bag type and save again.");
    Grid.SetEnabled(true);
    return false;
}

// An opened arrival exists.
bool FrmWeighment::IdIsFree() {
    if (IsOpened)
        return true;
    const std::string id = NumberText(Val(TxtArrivalId.Text()));
    if (!(Con->Execute("Select Count(*) From Arrivals Where ArrivalID = " + id).Fields(0).Number() >
          0))
        return true;
    Refuse("The Arrival ID already exists. A new Arrival ID has been generated. Please save your "
           "record again");
    TakeNewId();
    return false;
}

bool FrmWeighment::MayModify() {
    if (!IsPosted())
        return true;
    Refuse("You are not authorised to modify this posted record.", "Alert!");
    BtnSave.SetEnabled(false);
    return false;
}

// A record is posted if its header has both weights, and only for users without full rights.
bool FrmWeighment::IsPosted() {
    const Recordset rows = Con->Execute(
        "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where ArrivalID = " +
        NumberText(Val(TxtArrivalId.Text())));
    if (rows.RecordCount() == 0)
        return false;
    const Value gross = rows.Fields("GrossWeight");
    const Value tare = rows.Fields("TareWeight");
    return UserLogin->UserLevel() != 1 && !gross.IsNull() && gross.Number() != 0 &&
           !tare.IsNull() && tare.Number() != 0;
}

void FrmWeighment::TakeNewId() {
    const Recordset rows = Con->Execute("Select IsNull(Max(ArrivalID),0)+1 From Arrivals");
    TxtArrivalId.SetText(rows.Fields(0).Text());
    ArrivalNo = ToLong(Val(TxtArrivalId.Text()));
    proposedNo_ = ArrivalNo;
    if (TxtArrivalId.Enabled() && TxtArrivalId.Visible())
        TxtArrivalId.SetFocus();
}

} // namespace Quillane
