// A station of its own, for the test of two stations on one database:
//
//     WeighmentStation <folder> <name> <number of the party> <bag lines> <saves>
//
// It shows the weighment screen, writes "ready", waits for a line and then saves so many
// weighments. It answers every box and writes what happened, one line each: "box <text>" for a box
// that is no question, "saved <id> <serial>" for each save. Every weighment's driver is the name
// and the serial, "east-17", and its gross weight is 1000 kg and the serial.

#include "data/Con.h"
#include "data/EmbeddedFunctions.h"
#include "data/Services.h"
#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/Application.h"
#include "platform/forms/Boxes.h"
#include "weighment/FrmWeighment.h"

#include <cstdio>
#include <iostream>
#include <string>

namespace Quillane {
namespace {

struct Station {
    std::string folder, name, party;
    int bagLines = 0;
    int saves = 0;
};

constexpr int MostPresses = 100;

void OpenDatabase(const std::string& folder) {
    Con = std::make_unique<Connection>();
    Con->SetEmbeddedSupport({.folder = folder, .registerFunctions = RegisterEmbeddedFunctions});
    Con->Open("Driver=SQL Server;Server=(embedded);Database=Account1");
    Con->CursorLocation = adUseClient;
    CompanyProfile->SetConnection(*Con);
    CompanyProfile->Load();
    UserLogin->SetConnection(*Con);
}

void FillIn(FrmWeighment& screen, const Station& station, int serial) {
    screen.CboSeller.SetBookmark(screen.CboSeller.FindRow(1, station.party));
    screen.CboCommodity.SetText("Wheat");
    screen.TxtInitialGrossWeight.SetText(std::to_string(1000 + serial));
    screen.ComputeGrossWeight();
    screen.TxtVehicleNo.SetText(station.name);
    screen.TxtDriverName.SetText(station.name + "-" + std::to_string(serial));
    screen.BagRows.ReDim(station.bagLines - 1, 2);
    for (int line = 0; line < station.bagLines; ++line) {
        screen.BagRows.Set(line, 0, "Jute New");
        screen.BagRows.Set(line, 1, "100 Kg");
        screen.BagRows.Set(line, 2, "10");
    }
    screen.Grid.ReBind();
    screen.SetButtonState(2);
}

/// Presses the save button until the screen is empty again, as the boxes ask for.
bool Save(FrmWeighment& screen) {
    for (int press = 0; press < MostPresses && screen.BtnSave.Enabled(); ++press)
        screen.BtnSave_Click();
    return !screen.BtnSave.Enabled();
}

int Run(const Station& station) {
    const Testing::PseudoTerminal indicator;
    MSComm::SetDevices([&](int) { return indicator.Device(); });
    OpenDatabase(station.folder);
    FrmWeighment screen;
    // An arrival that the other station stores just as the focus leaves the new number would be
    // opened: another matter than the save.
    screen.TxtArrivalId.Validate = {};
    int serial = 0;
    SetBoxPresenter(
        {.message =
             [&](const Box& box) {
                 if (box.buttons == BoxButtons::YesNo)
                     std::cout << "saved " << screen.ArrivalNo << " " << serial << std::endl;
                 else
                     std::cout << "box " << box.text << std::endl;
                 return box.buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Ok;
             },
         .input = {}});
    screen.Show();
    std::cout << "ready" << std::endl;
    std::string go;
    std::getline(std::cin, go);
    for (serial = 1; serial <= station.saves; ++serial) {
        FillIn(screen, station, serial);
        if (!Save(screen))
            return 1;
    }
    return 0;
}

} // namespace
} // namespace Quillane

int main(int argc, char** argv) {
    if (argc != 6) {
        std::cerr << "WeighmentStation <folder> <name> <party> <bag lines> <saves>\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Quillane::Application application(argc, argv);
    Quillane::Application::setApplicationName("Quillane");
    return Quillane::Run({argv[1], argv[2], argv[3], std::stoi(argv[4]), std::stoi(argv[5])});
}
