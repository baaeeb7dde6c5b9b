#include "platform/comm/MSComm.h"

#include "platform/comm/LineSettings.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Failure.h"

#include <QFileInfo>
#include <QSerialPort>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

constexpr std::size_t bufferSize = 1024;

std::function<std::string(int)>& Devices() {
    static std::function<std::string(int)> devices;
    return devices;
}

std::string DeviceOf(int port) {
    if (Devices())
        return Devices()(port);
#ifdef Q_OS_WIN
    return "COM" + std::to_string(port);
#else
    return "/dev/ttyS" + std::to_string(port - 1);
#endif
}

[[noreturn]] void FailLine(int number, const std::string& description) {
    throw Failure(number, description, FailureSource::SerialLine);
}

LineSettings Parse(std::string_view settings) {
    const auto parsed = ParseLineSettings(settings);
    if (!parsed)
        FailLine(FailureNumber::InvalidCall,
                 "\"" + std::string(settings) +
                     "\" is no line setting. It must give rate, parity letter, data bits and stop "
                     "bits, as in 9600,n,8,1.");
    return *parsed;
}

} // namespace

struct MSComm::Line {
    Line(std::int16_t portNumber, std::string settingsText)
        : number(portNumber), settings(std::move(settingsText)), parsed(Parse(settings)) {
        QObject::connect(&port, &QSerialPort::readyRead, &port, [this] { Drain(); });
        QObject::connect(&port, &QSerialPort::errorOccurred, &port,
                         [this](QSerialPort::SerialPortError error) { OnError(error); });
    }

    bool IsOpen() const { return port.isOpen() && !opening && !hungUp; }
    std::string Named() const { return "Port " + std::to_string(number) + " (" + device + ")"; }

    void Open();
    void Close();
    void Drain();
    void OnError(QSerialPort::SerialPortError error);
    [[noreturn]] void FailToOpen();

    std::int16_t number;
    std::string settings;
    LineSettings parsed;
    std::string device;
    std::string received;
    bool opening = false;
    bool hungUp = false;
    QSerialPort port;
};

void MSComm::Line::Open() {
    Close();
    device = DeviceOf(number);
    // A device has one lock, whatever link it is reached by.
    const QString file = QFileInfo(ToQt(device)).canonicalFilePath();
    port.setPortName(file.isEmpty() ? ToQt(device) : file);
    // Given before opening: afterwards some lines refuse seven bits and even parity.
    port.setBaudRate(parsed.rate);
    port.setParity(parsed.parity);
    port.setDataBits(parsed.dataBits);
    port.setStopBits(parsed.stopBits);
    port.setFlowControl(QSerialPort::NoFlowControl);
    opening = true;
    const bool opened = port.open(QIODevice::ReadOnly);
    opening = false;
    if (!opened)
        FailToOpen();
}

void MSComm::Line::FailToOpen() {
    const auto why = [this]() -> std::string {
        const QFileInfo file(ToQt(device));
        switch (port.error()) {
        case QSerialPort::DeviceNotFoundError:
            return "there is no such device. Is the indicator's adapter plugged in?";
        case QSerialPort::PermissionError:
            return !file.isReadable() ? "this user may not use the device."
                                      : "another program is using it.";
        case QSerialPort::UnsupportedOperationError:
            return "it is no serial line, or does not take the settings " + settings + ".";
        default:
            return FromQt(port.errorString()) + ".";
        }
    }();
    const std::string named = Named();
    Close();
    FailLine(FailureNumber::PortUnusable, named + " cannot be opened: " + why);
}

void MSComm::Line::Close() {
    if (port.isOpen())
        port.close();
    received.clear();
    hungUp = false;
}

/// Always empties the system's buffer, so that what comes after a full buffer is lost and not late.
void MSComm::Line::Drain() {
    const QByteArray bytes = port.readAll();
    const std::size_t room = bufferSize - received.size();
    received.append(bytes.constData(), std::min(room, static_cast<std::size_t>(bytes.size())));
}

void MSComm::Line::OnError(QSerialPort::SerialPortError error) {
    // A look that finds nothing counts as timed out.
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || !IsOpen())
        return;
    hungUp = true;
    // Not here, in the midst of the port's own reading; but at once, for a line that has hung up
    // reports it without end.
    QTimer::singleShot(0, &port, [this] {
        if (hungUp && port.isOpen())
            port.close();
    });
}

MSComm::MSComm(Screen& screen, std::string name, std::int16_t port, std::string settings)
    : Control(screen, std::move(name), "MSComm"),
      line_(std::make_unique<Line>(port, std::move(settings))) {}

MSComm::~MSComm() = default;

bool MSComm::PortOpen() const {
    return line_->IsOpen();
}

void MSComm::SetPortOpen(bool open) {
    if (!open) {
        line_->Close();
        return;
    }
    if (PortOpen())
        FailLine(FailureNumber::PortAlreadyOpen, line_->Named() + " is already open.");
    line_->Open();
}

std::int16_t MSComm::CommPort() const {
    return line_->number;
}

void MSComm::SetCommPort(std::int16_t port) {
    if (PortOpen())
        FailLine(FailureNumber::PortAlreadyOpen,
                 line_->Named() + " is open: its number cannot be changed.");
    if (port < 1)
        FailLine(FailureNumber::InvalidCall,
                 std::to_string(port) + " is no port number: ports count from 1.");
    line_->number = port;
}

const std::string& MSComm::Settings() const {
    return line_->settings;
}

void MSComm::SetSettings(std::string_view settings) {
    if (PortOpen())
        FailLine(FailureNumber::PortAlreadyOpen,
                 line_->Named() + " is open: its settings cannot be changed.");
    line_->parsed = Parse(settings);
    line_->settings = settings;
}

std::string MSComm::Input() {
    // The event loop may not have run for a while. One look takes no more than the system's own
    // buffer holds; the bound is for a line that sends faster than it can be read.
    for (int look = 0; look < 16 && PortOpen() && line_->port.waitForReadyRead(0); ++look)
        line_->Drain();
    if (line_->hungUp)
        FailLine(FailureNumber::PortNotOpen,
                 line_->Named() + " is closed: the line has hung up. Is the cable in place?");
    if (!PortOpen())
        FailLine(FailureNumber::PortNotOpen, "Port " + std::to_string(line_->number) +
                                                 " is closed: nothing can be read from it.");
    return std::exchange(line_->received, {});
}

void MSComm::SetDevices(std::function<std::string(int port)> deviceOf) {
    Devices() = std::move(deviceOf);
}

} // namespace Quillane
