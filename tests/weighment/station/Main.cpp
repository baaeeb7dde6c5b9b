// The process of a station, for the tests of two stations on one database:
//
//     WeighmentStation <folder> <contents of Config.ini> <name> <number of the party>
//                      <bag lines> <actions> [<seed>]
//
// It shows the weighment screen, writes "ready", waits for a line and then saves this number of new
// weighments. With a seed the actions are random: new weighments are saved, and the newest arrivals
// are opened and saved again, or opened and removed.
//
// It answers every box and writes one line for each event: "saved <id> <serial>" for each save,
// "removed <id> <driver>", "missed <id>" for an arrival that was removed before it could be opened,
// "box <text>" for a box that is not a question. Before a removal it writes "asks <id> <driver>"
// and waits for a line before it answers Yes. If the arrival is no longer the one that it has
// opened, it answers No without waiting and writes "kept <id>".
//
// The driver of each weighment is the name and the serial, "east-17"; its bilty is the number of
// its lines, its gross weight 1000 kg plus the serial, its deduction the serial modulo 7.

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "data/EmbeddedFunctions.h"
#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Application.h"
#include "platform/forms/core/Boxes.h"
#include "signin/UserLogin.h"
#include "support/TestedEngine.h"
#include "weighment/FrmWeighment.h"

#include <cstdio>
#include <iostream>
#include <optional>
#include <random>
#include <string>

namespace Quillane {
namespace {

struct Orders {
    std::string folder, config, name, party;
    int bagLines = 0;
    int actions = 0;
    std::optional<unsigned> seed;
};

constexpr int MostPresses = 100;
constexpr int NewestArrivals = 6; ///< one of which is selected at random

void OpenDatabase(const Orders& orders) {
    Con = std::make_unique<Connection>();
    Con->SetEmbeddedSupport(
        {.folder = orders.folder, .registerFunctions = RegisterEmbeddedFunctions});
    Con->Open("Driver=SQL Server;" + orders.config);
    Con->CursorLocation = adUseClient;
    CompanyProfile->SetConnection(*Con);
    CompanyProfile->Load();
    UserLogin->SetConnection(*Con);
    UserLogin->SignIn("Nadia", "grain");
}

/// Operates the screen like its operator, but without keys.
class Operator {
public:
    Operator(FrmWeighment& screen, const Orders& orders)
        : screen_(screen), orders_(orders), chance_(orders.seed.value_or(0)) {}

    BoxAnswer Answer(const Box& box) {
        if (box.text == "Do you want to print?") {
            std::cout << "saved " << screen_.ArrivalNo << " " << serial_ << std::endl;
            return BoxAnswer::No;
        }
        if (box.buttons == BoxButtons::YesNo)
            return AnswerRemoval();
        std::cout << "box " << ComparedWords(box.text) << std::endl;
        return BoxAnswer::Ok;
    }

    bool Act() {
        // An arrival was opened that the other station has stored just when the focus left the new
        // number.
        if (screen_.IsOpened)
            screen_.BtnClear_Click();
        const int action = orders_.seed ? Drawn(4) : 0;
        const int id = action < 2 ? 0 : DrawnArrival();
        if (id == 0)
            return SaveNew();
        if (!Open(id))
            return true;
        return action == 2 ? Change() : Remove(id);
    }

private:
    int Drawn(int kinds) { return static_cast<int>(chance_() % static_cast<unsigned>(kinds)); }

    int DrawnArrival() {
        Recordset newest = Con->Execute("Select ArrivalID From Arrivals Where ArrivalID > 1042 "
                                        "Order By ArrivalID Desc");
        if (newest.RecordCount() == 0)
            return 0;
        newest.SetPosition(Drawn(std::min(newest.RecordCount(), NewestArrivals)));
        return newest.Fields(0).Long();
    }

    bool SaveNew() {
        FillIn(orders_.bagLines);
        return Save();
    }
    bool Change() {
        FillIn(1 + Drawn(4));
        return Save();
    }

    BoxAnswer AnswerRemoval() {
        const std::string id = std::to_string(screen_.ArrivalNo);
        const std::string opened = screen_.TxtDriverName.Text();
        const Recordset lines =
            Con->Execute("Select DriverName From ArrivalsBody Where ArrivalId = " + id);
        if (lines.Eof() || lines.Fields(0).TextOrEmpty() != opened) {
            std::cout << "kept " << id << std::endl;
            return BoxAnswer::No;
        }
        std::cout << "asks " << id << " " << opened << std::endl;
        std::string yes;
        std::getline(std::cin, yes);
        return BoxAnswer::Yes;
    }

    bool Open(int id) {
        screen_.TxtArrivalId.SetFocus();
        screen_.TxtArrivalId.SetText(std::to_string(id));
        screen_.DtpArrivalDate.SetFocus();
        if (screen_.IsOpened)
            return true;
        std::cout << "missed " << id << std::endl;
        screen_.BtnClear_Click();
        return false;
    }

    void FillIn(int bagLines) {
        ++serial_;
        screen_.CboSeller.SetBookmark(screen_.CboSeller.FindRow(1, orders_.party));
        screen_.CboCommodity.SetText("Wheat");
        screen_.TxtInitialGrossWeight.SetText(std::to_string(1000 + serial_));
        screen_.ComputeGrossWeight();
        screen_.TxtDeduction.SetText(std::to_string(serial_ % 7));
        screen_.TxtVehicleNo.SetText(orders_.name);
        screen_.TxtDriverName.SetText(orders_.name + "-" + std::to_string(serial_));
        screen_.TxtBuiltyNo.SetText(std::to_string(bagLines));
        screen_.BagRows.ReDim(bagLines - 1, 2);
        for (int line = 0; line < bagLines; ++line) {
            screen_.BagRows.Set(line, 0, "Jute New");
            screen_.BagRows.Set(line, 1, "100 Kg");
            screen_.BagRows.Set(line, 2, std::to_string(10 + line));
        }
        screen_.Grid.ReBind();
        screen_.SetButtonState(2);
    }

    /// Presses the save button until it is disabled again, as the boxes request.
    bool Save() {
        for (int press = 0; press < MostPresses && screen_.BtnSave.Enabled(); ++press)
            screen_.BtnSave_Click();
        return !screen_.BtnSave.Enabled();
    }

    bool Remove(int id) {
        const std::string driver = screen_.TxtDriverName.Text();
        screen_.BtnRemove_Click();
        if (!screen_.IsOpened)
            std::cout << "removed " << id << " " << driver << std::endl;
        return true;
    }

    FrmWeighment& screen_;
    const Orders& orders_;
    std::mt19937 chance_;
    int serial_ = 0;
};

int Run(const Orders& orders) {
    const Testing::PseudoTerminal indicator;
    MSComm::SetDevices([&](int) { return indicator.Device(); });
    OpenDatabase(orders);
    FrmWeighment screen;
    Operator atWork(screen, orders);
    SetBoxPresenter({.message = [&](const Box& box) { return atWork.Answer(box); }, .input = {}});
    screen.Show();
    std::cout << "ready" << std::endl;
    std::string go;
    std::getline(std::cin, go);
    for (int action = 0; action < orders.actions; ++action)
        if (!atWork.Act())
            return 1;
    return 0;
}

} // namespace
} // namespace Quillane

int main(int argc, char** argv) {
    if (argc != 7 && argc != 8) {
        std::cerr << "WeighmentStation <folder> <config> <name> <party> <bag lines> <actions> "
                     "[<seed>]\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Quillane::Application application(argc, argv);
    Quillane::Application::setApplicationName("Quillane");
    Quillane::Orders orders{
        argv[1], argv[2], argv[3], argv[4], std::stoi(argv[5]), std::stoi(argv[6]), {}};
    if (argc == 8)
        orders.seed = static_cast<unsigned>(std::stoul(argv[7]));
    return Quillane::Run(orders);
}
