#include "platform/runtime/Text.h"
#include "weighment/FrmWeighment.h"

#include "data/CompanyProfile.h"
#include "data/modCommon.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "weighment/WeightArithmetic.h"

namespace Quillane {

void FrmWeighment::TxtInitialGrossWeight_Change() {
    if (IsActive(TxtInitialGrossWeight)) {
        ComputeGrossWeight();
        RefreshGrossEntry();
    } else {
        BlankLoneZero(TxtInitialGrossWeight);
    }
}

void FrmWeighment::TxtTareWeight_Change() {
    if (IsActive(TxtTareWeight)) {
        ComputeGrossWeight();
        RefreshGrossEntry();
    } else {
        BlankLoneZero(TxtTareWeight);
    }
}

void FrmWeighment::TxtGrossWeight_Change() {
    ComputeNetWeight();
    if (!IsActive(TxtGrossWeight)) {
        BlankLoneZero(TxtGrossWeight);
        return;
    }
    const bool empty = TxtGrossWeight.Text().empty();
    TxtInitialGrossWeight.SetEnabled(empty);
    TxtTareWeight.SetEnabled(empty);
    // Grey in both cases; that is required.
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
    // Never enables a disabled box; that is required.
    if (TxtGrossWeight.Enabled())
        TxtGrossWeight.SetEnabled(true);
    TxtGrossWeight.SetBackColor(White);
}

} // namespace Quillane
