#include "platform/comm/MSComm.h"

#include "platform/comm/SerialLine.h"
#include "platform/runtime/Failure.h"

#include <utility>

namespace Quillane {

MSComm::MSComm(Screen& screen, std::string name, std::int16_t port, std::string_view settings,
               int leastBursts)
    : Control(screen, std::move(name), "MSComm"),
      line_(std::make_unique<SerialLine>(port, settings, leastBursts)) {}

MSComm::~MSComm() = default;

bool MSComm::PortOpen() const {
    return line_->IsOpen();
}

void MSComm::SetPortOpen(bool open) {
    if (!open) {
        line_->Close();
        return;
    }
    FailWhileOpen(" is already open.");
    line_->Open();
}

std::int16_t MSComm::CommPort() const {
    return line_->Number();
}

void MSComm::SetCommPort(std::int16_t port) {
    FailWhileOpen(" is open, so its number cannot be changed.");
    if (port < 1)
        throw Failure(FailureNumber::InvalidCall,
                      std::to_string(port) +
                          " is not a valid port number. Port numbers start at 1.",
                      FailureSource::SerialLine);
    line_->SetNumber(port);
}

const std::string& MSComm::Settings() const {
    return line_->Settings();
}

void MSComm::SetSettings(std::string_view settings) {
    FailWhileOpen(" is open, so its settings cannot be changed.");
    line_->SetSettings(settings);
}

std::string MSComm::Input() {
    return line_->Input();
}

void MSComm::FailWhileOpen(std::string_view what) const {
    if (PortOpen())
        throw Failure(FailureNumber::PortAlreadyOpen, line_->Named().append(what),
                      FailureSource::SerialLine);
}

void MSComm::SetDevices(std::function<std::string(int port)> deviceOf) {
    SerialLine::DeviceOf = std::move(deviceOf);
}

void MSComm::SetWholeBursts(std::function<bool(int port)> hasWholeBursts) {
    SerialLine::HasWholeBursts = std::move(hasWholeBursts);
}

void MSComm::SetClock(std::function<std::chrono::steady_clock::time_point()> clock) {
    SerialLine::Clock = std::move(clock);
}

} // namespace Quillane
