#include "shell/Desktop.h"

#include "data/Con.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/host/UserSettings.h"
#include "scale/FrmPortSettings.h"
#include "shell/Startup.h"
#include "signin/UserLogin.h"
#include "weighment/FrmWeighment.h"

namespace Quillane {

std::unique_ptr<Desktop> TheDesktop;

namespace {

void StorePaper(std::string_view paper) {
    SaveSetting("Riobrepiona", "PrinterSetting", "PrinterPage", paper);
}

} // namespace

Desktop::Desktop() : Screen("Desktop", "Veltrane: Quillane") {
    WireEvents();
    NumberInTabOrder(
        {&BtnWeighment, &CmdScaleSetting, &OptWhitePage, &OptPrintedPaper, &TxtWeight, &BtnExit});
    LayOut();
}

void Desktop::WireEvents() {
    BtnWeighment.Click = [this] { BtnWeighment_Click(); };
    BtnExit.Click = [this] { EndStation(); };
    CmdScaleSetting.Click = [this] { CmdScaleSetting_Click(); };
    OptWhitePage.Click = [] { StorePaper("WhitePaper"); };
    OptPrintedPaper.Click = [] { StorePaper("PrintedPaper"); };
    Image1.Click = [this] { Image1_Click(); };
}

void Desktop::Form_Load() {
    ShowWhoIsSignedIn();
    if (GetSetting("Riobrepiona", "PrinterSetting", "PrinterPage", "WhitePaper") == "WhitePaper")
        OptWhitePage.SetValue(true);
    else
        OptPrintedPaper.SetValue(true);
}

void Desktop::Form_Unload(bool& /*cancel*/) {
    EndStation();
}

void Desktop::BtnWeighment_Click() {
    FrmWeighment screen;
    screen.ShowModal(this);
}

// A new screen each time: it starts with its defaults, and closing it closes its serial line.
void Desktop::CmdScaleSetting_Click() {
    FrmPortSettings screen;
    screen.ShowModal();
}

// At the start the connection is set before the dialog; here it is set after it.
void Desktop::Image1_Click() {
    UserLogin->ResetLogin(0);
    UserLogin->Login();
    UserLogin->SetConnection(*Con);
    if (UserLogin->UserLevel() == 0)
        EndStation();
    else
        ShowWhoIsSignedIn();
}

void Desktop::EndStation() {
    ReleaseServices();
    EndProcess(0);
}

} // namespace Quillane
