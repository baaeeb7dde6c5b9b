#include "weighment/FrmWeighment.h"

#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/controls/ComboBox.h"
#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

#include <QScopedValueRollback>

namespace Quillane {

void FrmWeighment::SetButtonState(int mode) {
    switch (mode) {
    case 1:
        BtnPrint.SetEnabled(false);
        BtnRemove.SetEnabled(false);
        BtnSave.SetEnabled(false);
        BtnClear.SetEnabled(true);
        TxtWeight.SetLocked(ChkManualWeight.Value() != 1);
        ChkManualWeight.SetEnabled(true);
        TxtInitialGrossWeight.SetEnabled(true);
        TxtInitialGrossWeight.SetBackColor(White);
        TxtTareWeight.SetEnabled(true);
        TxtTareWeight.SetBackColor(White);
        ClearControls();
        ReopenScalePort();
        CboSeller.SetEnabled(true);
        if (!TxtArrivalId.Enabled())
            TxtArrivalId.SetEnabled(true);
        ApplyWeighRule();
        IsOpened = false;
        BtnOpen.SetEnabled(true);
        EmptyBagRows();
        break;
    case 2:
        BtnOpen.SetEnabled(false);
        BtnPrint.SetEnabled(false);
        BtnRemove.SetEnabled(false);
        BtnSave.SetEnabled(true);
        BtnClear.SetEnabled(true);
        break;
    case 3:
        ApplyWeighRule();
        BtnOpen.SetEnabled(true);
        BtnPrint.SetEnabled(true);
        BtnRemove.SetEnabled(true);
        BtnSave.SetEnabled(false);
        BtnClear.SetEnabled(true);
        TxtArrivalId.SetEnabled(false);
        TxtArrivalId.SetBackColor(ClosedGrey);
        DtpArrivalDate.SetFocus();
        break;
    case 5:
        BtnClear.SetEnabled(true);
        BtnOpen.SetEnabled(true);
        BtnPrint.SetEnabled(true);
        BtnRemove.SetEnabled(false);
        BtnSave.SetEnabled(false);
        break;
    default:
        break;
    }
}

// A weighed record cannot be weighed again without the manual check.
void FrmWeighment::ApplyWeighRule() {
    if (ChkManualWeight.Value() == 1)
        return;
    const bool weighable = !(Val(TxtTareWeight.Text()) > 0);
    CmdGrossWeight.SetEnabled(weighable);
    CmdTareWeight.SetEnabled(weighable);
}

void FrmWeighment::EmptyBagRows() {
    BagRows.ReDim(-1, Grid.ColumnCount() - 1);
    Grid.SetArray(BagRows);
    Grid.ReBind();
}

void FrmWeighment::EnterChangeMode() {
    ScreenMode = "ChangeMode";
    SetButtonState(2);
}

bool FrmWeighment::IsActive(const VisualControl& control) const {
    return !blanking_ && ActiveControl() == &control;
}

// The handlers treat these writes as writes to a box without the focus. A box that computes during
// them would leave figures of the former weighment.
void FrmWeighment::BlankControls() {
    const QScopedValueRollback blanking(blanking_, true);
    for (Control* control : Controls()) {
        const std::string& kind = control->TypeName();
        if (kind == "TextBox")
            static_cast<TextBox*>(control)->SetText("");
        if (kind == "ComboBox")
            static_cast<ComboBox*>(control)->SetListIndex(0);
        if (kind == "CheckBox")
            static_cast<CheckBox*>(control)->SetValue(0);
        if (kind == "TDBText" || kind == "TDBNumber")
            static_cast<TextBox*>(control)->SetText("");
        if (kind == "TDBCombo")
            static_cast<TDBCombo*>(control)->SetText("");
    }
}

void FrmWeighment::ClearControls() {
    try {
        BlankControls();
        TxtArrivalId.SetEnabled(true);
        TxtArrivalId.SetBackColor(White);
        DtpArrivalDate.SetEnabled(true);
        IsOpened = false;
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::NewWeighment() {
    try {
        if (PortSettingsRows.State() == adStateOpen)
            PortSettingsRows.Close();
        PortSettingsRows.Open("Select * from PortSettings", *Con, adOpenStatic, adLockReadOnly,
                              adCmdUnspecified);
        ScreenMode = "NewMode";
        SetButtonState(1);
        ArrivalNo =
            Con->Execute("Select IsNull(Max(ArrivalID),0)+1 From Arrivals").Fields(0).Long();
        proposedNo_ = ArrivalNo;
        TxtArrivalId.SetText(std::to_string(ArrivalNo));
        DtpArrivalDate.SetValue(Today());
        DoEvents();
        OpenScalePort();
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::BeginNextWeighment() {
    NewWeighment();
    if (DtpArrivalDate.Enabled())
        DtpArrivalDate.SetFocus();
    else
        TxtArrivalId.SetFocus();
}

void FrmWeighment::BtnClear_Click() {
    try {
        if (BtnSave.Enabled() && MsgBox({"Are you sure to clear the entries?", "Alert",
                                         BoxIcon::Question, BoxButtons::YesNo}) == BoxAnswer::No)
            return;
        BeginNextWeighment();
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::ChkFinalized_Click() {
    if (ChkFinalized.Visible() && IsActive(ChkFinalized) && !BtnSave.Enabled())
        EnterChangeMode();
}

void FrmWeighment::DtpArrivalDate_Change() {
    if (ScreenMode != "ChangeMode")
        EnterChangeMode();
}

} // namespace Quillane
