#include "platform/runtime/Numbers.h"
#include "weighment/FrmWeighment.h"

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

// The change handler runs twice: for the write, with the focus on the button, and by an explicit
// call, with the focus in the box. Only the second one computes.
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

// Different from the gross handler: the focus moves before the text is written, the box stays
// enabled, and the focus ends on the vehicle.
void FrmWeighment::CmdTareWeight_Click() {
    const double reading = Val(TxtWeight.Text());
    if (!(reading > 0))
        return;
    TxtTareWeight.SetEnabled(true);
    TxtTareWeight.SetFocus();
    TxtTareWeight.SetText(NumberText(reading));
    // A change handler may have disabled the box.
    if (TxtTareWeight.Enabled())
        TxtTareWeight.SetFocus();
    TxtTareWeight_Change();
    TxtVehicleNo.SetFocus();
}

} // namespace Quillane
