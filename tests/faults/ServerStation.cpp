#include "faults/ServerStation.h"

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "signin/UserLogin.h"

#include <utility>

namespace Quillane::Testing {

ServerStation::ServerStation(const std::string& connectionString, int commandTimeout) {
    MSComm::SetDevices([this](int) { return indicator_.Device(); });
    SetBoxPresenter({.message = [this](const Box& box) { return Answer(box); }, .input = {}});
    Con = std::make_unique<Connection>();
    Con->CommandTimeout = commandTimeout;
    Con->Open(connectionString);
    Con->CursorLocation = adUseClient;
    CompanyProfile->SetConnection(*Con);
    CompanyProfile->Load();
    UserLogin->SetConnection(*Con);
    UserLogin->SignIn("Nadia", "grain");
    Con->StatementObserver = [this](std::string_view statement) {
        statements_.emplace_back(statement);
        if (OnStatement)
            OnStatement(statement);
        if (act_ && statement == moment_)
            std::exchange(act_, {})();
    };
    ShowScreen();
}

ServerStation::~ServerStation() {
    screen.reset();
    SetBoxPresenter({});
    MSComm::SetDevices({});
    CompanyProfile.Release();
    UserLogin.Release();
    Con.reset();
}

void ServerStation::ShowScreen() {
    screen.reset();
    screen = std::make_unique<FrmWeighment>();
    screen->Show();
}

BoxAnswer ServerStation::Answer(const Box& box) {
    boxes_.push_back(box);
    if (whileBoxIsUp)
        whileBoxIsUp(box);
    if (box.buttons == BoxButtons::Ok)
        return BoxAnswer::Ok;
    return box.text == "Do you want to print?" ? BoxAnswer::No : BoxAnswer::Yes;
}

void ServerStation::FillIn(const std::string& driver, int bagLines) {
    screen->CboSeller.SetText("Chaudhry Grain Traders-Okara");
    screen->CboCommodity.SetText("Wheat");
    screen->TxtInitialGrossWeight.SetText("12540");
    screen->TxtTareWeight.SetText("4320");
    screen->ComputeGrossWeight();
    screen->TxtDeduction.SetText("17");
    screen->BagRows.ReDim(bagLines - 1, 2);
    for (int line = 0; line < bagLines; ++line) {
        screen->BagRows.Set(line, 0, "Jute New");
        screen->BagRows.Set(line, 1, "100 Kg");
        screen->BagRows.Set(line, 2, std::to_string(30 + line));
    }
    screen->Grid.ReBind();
    screen->TxtVehicleNo.SetText("LEB-4217");
    screen->TxtDriverName.SetText(driver);
    screen->TxtBuiltyNo.SetText(std::to_string(bagLines));
    screen->SetButtonState(2);
    screen->BtnSave.SetFocus();
}

std::vector<std::string> ServerStation::Entries() const {
    std::vector<std::string> entries{screen->CboSeller.Text(), screen->CboCommodity.Text(),
                                     screen->IsOpened ? "opened" : "new",
                                     std::to_string(screen->BagRows.RowCount())};
    for (const TextBox* box :
         {&screen->TxtArrivalId, &screen->TxtInitialGrossWeight, &screen->TxtTareWeight,
          &screen->TxtGrossWeight, &screen->TxtDeduction, &screen->TxtNetWeight,
          &screen->TxtVehicleNo, &screen->TxtDriverName, &screen->TxtBuiltyNo})
        entries.push_back(box->Text());
    for (int line = 0; line < screen->BagRows.RowCount(); ++line)
        for (int column = 0; column < 3; ++column)
            entries.push_back(screen->BagRows.Get(line, column));
    return entries;
}

void ServerStation::At(std::string statement, std::function<void()> act) {
    moment_ = std::move(statement);
    act_ = std::move(act);
}

std::vector<std::string> ServerStation::TakeStatements() {
    return std::exchange(statements_, {});
}

std::vector<Box> ServerStation::TakeBoxes() {
    return std::exchange(boxes_, {});
}

} // namespace Quillane::Testing
