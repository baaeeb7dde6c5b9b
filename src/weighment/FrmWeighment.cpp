#include "weighment/FrmWeighment.h"

#include "data/Common.h"
#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Failure.h"
#include "signin/UserLogin.h"

#include <initializer_list>

namespace Quillane {

FrmWeighment::FrmWeighment() : Screen("FrmWeighment", "Weighment for Veltrane") {
    WireBoxes();
    WireButtonsAndLists();
    DesignControls();
    LayOut();
}

FrmWeighment::~FrmWeighment() = default;

void FrmWeighment::WireBoxes() {
    TxtArrivalId.Change = [this] { TxtArrivalId_Change(); };
    TxtArrivalId.Validate = [this] { TxtArrivalId_Validate(); };
    TxtInitialGrossWeight.Change = [this] { TxtInitialGrossWeight_Change(); };
    TxtTareWeight.Change = [this] { TxtTareWeight_Change(); };
    TxtGrossWeight.Change = [this] { TxtGrossWeight_Change(); };
    TxtNetWeight.Change = [this] { TxtNetWeight_Change(); };
    TxtDeduction.Change = [this] { ComputeNetWeight(); };
    TxtShortage.Change = [this] { ComputeNetWeight(); };
    TxtKandaDeduction.Change = [this] {
        ComputeGrossWeight();
        ComputeNetWeight();
    };
    DtpArrivalDate.Change = [this] { DtpArrivalDate_Change(); };
    for (TextBox* box : {&TxtArrivalId, &TxtDeduction, &TxtGrossWeight, &TxtHeapName, &TxtHeapNo,
                         &TxtInitialGrossWeight, &TxtShortage, &TxtTareWeight})
        box->GotFocus = [this] { MarkActiveText(*this); };
    for (TextBox* box : NumberBoxes())
        box->Admits = [box](std::string_view text) { return AllowNumericText(text, *box); };
    Timer.Tick = [this] { ReadLiveWeight(); };
    hints_.Source = [this] { return HintLines(); };
}

void FrmWeighment::WireButtonsAndLists() {
    BtnSave.Click = [this] { BtnSave_Click(); };
    BtnPrint.Click = [this] { BtnPrint_Click(); };
    BtnClear.Click = [this] { BtnClear_Click(); };
    BtnOpen.Click = [this] { BtnOpen_Click(); };
    BtnRemove.Click = [this] { BtnRemove_Click(); };
    BtnClose.Click = [this] { BtnClose_Click(); };
    CmdGrossWeight.Click = [this] { CmdGrossWeight_Click(); };
    CmdTareWeight.Click = [this] { CmdTareWeight_Click(); };
    ChkManualWeight.Click = [this] { ChkManualWeight_Click(); };
    ChkFinalized.Click = [this] { ChkFinalized_Click(); };
    CboSellerType.RowChange = [this] { CboSellerType_RowChange(); };
    CboCommodity.NotInList = [this] { CboCommodity.SetFocus(); };
    CboSeller.NotInList = [this] { CboSeller.SetFocus(); };
}

void FrmWeighment::Form_Load() {
    try {
        if (UserLogin->UserLevel() != 1) {
            TxtWeight.SetLocked(true);
            ChkFinalized.SetVisible(false);
            FrminVisible.SetVisible(false);
            ChkManualWeight.SetVisible(false);
        }
        FormatPickLists(*this);
        NewWeighment();
        FillSellerTypes(nullptr, CboSellerType);
        CboSellerType.SetBookmark(0);
        FillCommodities(nullptr, nullptr, CboCommodity, true, false, true);
        FillBagTypes(bagTypeRows_, bagTypes_, CboBagType);
        FillBagClasses(bagClassRows_, bagClasses_, CboBagClass);
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::Form_Unload(bool& cancel) {
    try {
        if (BtnSave.Enabled() && MsgBox({"Are you sure to close without save?", "Alert",
                                         BoxIcon::Question, BoxButtons::YesNo}) == BoxAnswer::No)
            cancel = true;
        // Also after a No: the screen stays open, with the line closed.
        if (CM.PortOpen())
            CM.SetPortOpen(false);
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::Form_GotFocus() {
    Timer.SetEnabled(true);
}

void FrmWeighment::BtnClose_Click() {
    Unload();
}

void FrmWeighment::CboSellerType_RowChange() {
    FillPickList(sellerRows_, sellers_, CboSellerType.ColumnText(1), CboSeller);
}

} // namespace Quillane
