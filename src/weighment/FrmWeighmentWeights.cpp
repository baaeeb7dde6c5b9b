#include "weighment/FrmWeighment.h"

#include "data/CompanyProfile.h"
#include "data/modCommon.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "weighment/WeightArithmetic.h"

namespace Quillane {

void FrmWeighment::OpenScalePort() {
    session_.OpenScalePort();
}

void FrmWeighment::ReopenScalePort() {
    session_.ReopenScalePort();
}

void FrmWeighment::ReadLiveWeight() {
    session_.ReadLiveWeight();
}

void FrmWeighment::ChkManualWeight_Click() {
    const bool manual = ChkManualWeight.Value() == 1;
    Timer.SetEnabled(!manual);
    TxtWeight.SetLocked(!manual);
}

// The change handler runs twice: once by the write, with the focus still on the button, and once by
// hand, with the focus in the box. Only the second computes.
void FrmWeighment::CmdGrossWeight_Click() {
    const double reading = Val(TxtWeight.Text());
    if (!(reading > 0))
        return;
    TxtInitialGrossWeight.SetEnabled(true);
    TxtInitialGrossWeight.SetText(NumberText(reading));
    TxtInitialGrossWeight.SetFocus();
    TxtInitialGrossWeight_Change();
    CmdTareWeight.SetFocus();
    TxtInitialGrossWeight.SetEnabled(false);
}

// Not the gross handler with another box: the focus comes before the text, the box stays enabled,
// and the focus ends on the vehicle.
void FrmWeighment::CmdTareWeight_Click() {
    const double reading = Val(TxtWeight.Text());
    if (!(reading > 0))
        return;
    TxtTareWeight.SetEnabled(true);
    TxtTareWeight.SetFocus();
    TxtTareWeight.SetText(NumberText(reading));
    // A change handler may have disabled it.
    if (TxtTareWeight.Enabled())
        TxtTareWeight.SetFocus();
    TxtTareWeight_Change();
    TxtVehicleNo.SetFocus();
}

void FrmWeighment::TxtInitialGrossWeight_Change() {
    if (HasFocus(TxtInitialGrossWeight.Name())) {
        ComputeGrossWeight();
        RefreshGrossEntry();
    } else {
        BlankLoneZero(TxtInitialGrossWeight);
    }
}

void FrmWeighment::TxtTareWeight_Change() {
    if (HasFocus(TxtTareWeight.Name())) {
        ComputeGrossWeight();
        RefreshGrossEntry();
    } else {
        BlankLoneZero(TxtTareWeight);
    }
}

void FrmWeighment::TxtGrossWeight_Change() {
    ComputeNetWeight();
    if (!HasFocus(TxtGrossWeight.Name())) {
        BlankLoneZero(TxtGrossWeight);
        return;
    }
    const bool empty = TxtGrossWeight.Text().empty();
    TxtInitialGrossWeight.SetEnabled(empty);
    TxtTareWeight.SetEnabled(empty);
    // Grey in both branches, on purpose.
    TxtInitialGrossWeight.SetBackColor(ClosedGrey);
    TxtTareWeight.SetBackColor(ClosedGrey);
}

void FrmWeighment::TxtNetWeight_Change() {
    if (TxtNetWeight.Text().empty())
        return;
    TxtMoundKgs.SetText(CompanyProfile->MoundKgsText(ToDouble(TxtNetWeight.Text()), KgsPerMound));
}

void FrmWeighment::BlankLoneZero(TextBox& box) {
    if (box.Text() == "0")
        box.SetText("");
}

void FrmWeighment::ComputeGrossWeight() {
    const auto figures = GrossFiguresOf(TxtInitialGrossWeight.Text(), TxtTareWeight.Text(),
                                        TxtKandaDeduction.Text());
    if (!figures)
        return;
    TxtScaleDeductKg.SetText(figures->scaleDeduction);
    TxtGrossWeight.SetText(figures->gross);
}

void FrmWeighment::ComputeNetWeight() {
    TxtNetWeight.SetText(NetWeightOf(TxtGrossWeight.Text(), TxtBagsWeight.Text(),
                                     TxtShortage.Text(), TxtDeduction.Text()));
}

void FrmWeighment::RefreshGrossEntry() {
    if (!Trim(TxtInitialGrossWeight.Text()).empty() || !Trim(TxtTareWeight.Text()).empty()) {
        TxtGrossWeight.SetEnabled(false);
        TxtGrossWeight.SetBackColor(ClosedGrey);
        return;
    }
    BlankLoneZero(TxtGrossWeight);
    // Never brings back a disabled box, on purpose.
    if (TxtGrossWeight.Enabled())
        TxtGrossWeight.SetEnabled(true);
    TxtGrossWeight.SetBackColor(White);
}

void FrmWeighment::TxtArrivalId_Change() {
    try {
        ArrivalNo = ToLong(Val(TxtArrivalId.Text()));
    } catch (const Failure&) {
        ShowError();
    }
}

} // namespace Quillane
