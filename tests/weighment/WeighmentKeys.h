#pragma once

#include "weighment/WeighmentFixture.h"

namespace Quillane::Testing {

inline const Box SaveQuestion = Question("Are you sure to save this Weighment?");
inline const Box ClearQuestion = Question("Are you sure to clear the entries?");

/// The shown screen, operated with real keys.
class WeighmentKeys : public WeighmentScreenTest {
protected:
    std::string State() {
        return screen->ScreenMode + (screen->BtnSave.Enabled() ? ", can be saved" : "");
    }

    ScreenDriver Driver() { return ScreenDriver(*screen); }

    /// The screen just after loading, or with a stored weighment, with the focus on the given
    /// control.
    void Begin(VisualControl& control, int mode = 1) {
        screen->NewWeighment();
        if (mode != 1)
            screen->SetButtonState(mode);
        control.SetFocus();
    }

    std::vector<VisualControl*> WhereEnterMovesOn() {
        return {&screen->TxtArrivalId,  &screen->DtpArrivalDate,
                &screen->CboCommodity,  &screen->CboSellerType,
                &screen->CboSeller,     &screen->CmdGrossWeight,
                &screen->CmdTareWeight, &screen->Grid,
                &screen->TxtDeduction,  &screen->TxtVehicleNo,
                &screen->TxtBuiltyNo,   &screen->TxtDriverName,
                &screen->ChkFinalized,  &screen->ChkManualWeight,
                &screen->TxtWeight,     &screen->TxtTareWeight};
    }

    std::vector<TDBCombo*> Lists() {
        return {&screen->CboCommodity, &screen->CboSeller, &screen->CboSellerType};
    }
};

} // namespace Quillane::Testing
