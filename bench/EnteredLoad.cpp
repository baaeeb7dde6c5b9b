#include "EnteredLoad.h"

namespace Quillane {

void EnterLoad(FrmWeighment& screen, const std::string& driver) {
    screen.CboSeller.SetBookmark(0);
    screen.CboCommodity.SetBookmark(0);
    screen.TxtVehicleNo.SetText("LEA-4521");
    screen.TxtDriverName.SetText(driver);
    screen.TxtWeight.SetText("12540");
    screen.CmdGrossWeight_Click();
    screen.TxtWeight.SetText("4320");
    screen.CmdTareWeight_Click();
    screen.TxtDeduction.SetText("17");
    screen.BagRows.ReDim(2, 2);
    for (int row = 0; row < 3; ++row) {
        screen.BagRows.Set(row, 0, screen.CboBagClass.Array()->Get(row, 0));
        screen.BagRows.Set(row, 1, screen.CboBagType.Array()->Get(row, 0));
        screen.BagRows.Set(row, 2, "40");
    }
    screen.Grid.ReBind();
    screen.SetButtonState(2);
}

} // namespace Quillane
