#include "ServerStation.h"

#include "EnteredLoad.h"
#include "data/Con.h"
#include "platform/ado/Connection.h"
#include "setup/SqlServerDatabaseSetup.h"

#include <QApplication>
#include <QWidget>

#include <pty.h>
#include <unistd.h>

#include <initializer_list>
#include <stdexcept>
#include <string_view>

namespace Quillane {

namespace {

bool Holds(std::string_view text, std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts)
        if (text.find(part) != std::string_view::npos)
            return true;
    return false;
}

} // namespace

void MakeStationDatabase(const std::string& connectionString) {
    NewDatabase particulars;
    particulars.companyName = "Veltrane Flour Mills";
    particulars.userName = "first";
    particulars.password = "first";
    particulars.sampleRows = true;
    particulars.hashCost = HashCost::Minimum;
    Connection connection;
    connection.Open(connectionString);
    SetUpSqlServerDatabase(connection, particulars);
}

ServerStation::ServerStation(const std::string& connectionString) {
    // Each station has its own indicator, which sends nothing.
    if (openpty(&line_[0], &line_[1], nullptr, nullptr, nullptr) != 0)
        throw std::runtime_error("no line for the station");
    MSComm::SetDevices([device = std::string(ttyname(line_[1]))](int) { return device; });
    SetBoxPresenter({.message = [this](const Box& box) { return Answer(box); }, .input = {}});
    Con = std::make_unique<Connection>();
    Con->CursorLocation = adUseClient;
    Con->Open(connectionString);
    screen_ = std::make_unique<FrmWeighment>();
    screen_->Show();
    screen_->Timer.SetEnabled(false);
}

ServerStation::~ServerStation() {
    screen_.reset();
    Con.reset();
    SetBoxPresenter({});
    MSComm::SetDevices({});
    for (const int end : line_)
        close(end);
}

void ServerStation::Enter(const std::string& driver, int id) {
    FrmWeighment& screen = *screen_;
    if (id != 0) {
        screen.TxtArrivalId.SetFocus();
        screen.TxtArrivalId.SetText(std::to_string(id));
    }
    LeaveTheId();
    EnterLoad(screen, driver);
}

// If another station has used the id, leaving it opens the weighment of that station.
void ServerStation::LeaveTheId() {
    screen_->DtpArrivalDate.SetFocus();
    while (screen_->IsOpened)
        screen_->BtnClear_Click();
}

bool ServerStation::TrySave() {
    savedId_ = 0;
    pressed_ = std::chrono::steady_clock::now();
    screen_->BtnSave_Click();
    return savedId_ != 0;
}

void ServerStation::Open(int id) {
    screen_->TxtArrivalId.SetText(std::to_string(id));
    screen_->TxtArrivalId_Validate();
    if (!screen_->IsOpened)
        throw std::runtime_error("the weighment was not opened");
}

void ServerStation::StopPainting() {
    for (QWidget* window : QApplication::topLevelWidgets())
        window->setUpdatesEnabled(false);
}

BoxAnswer ServerStation::Answer(const Box& box) {
    if (box.text == "Do you want to print?") {
        committed_ = std::chrono::steady_clock::now();
        savedId_ = screen_->ArrivalNo;
        if (Committed)
            Committed();
        return BoxAnswer::No;
    }
    const bool mayBeTriedAgain =
        Holds(box.text, {"The Arrival ID already exists", "PRIMARY KEY", "duplicate key",
                         "deadlock", "changed, or it has been deleted"});
    if (!mayBeTriedAgain)
        throw std::runtime_error(box.text);
    return BoxAnswer::Ok;
}

} // namespace Quillane
