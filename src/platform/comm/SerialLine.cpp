#include "platform/comm/SerialLine.h"

#include "platform/comm/LineDevice.h"
#include "platform/comm/LineLock.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

constexpr std::size_t bufferSize = 1024;

[[noreturn]] void FailLine(int number, const std::string& description) {
    throw Failure(number, description, FailureSource::SerialLine);
}

std::string DeviceOfPort(int port) {
    if (SerialLine::DeviceOf)
        return SerialLine::DeviceOf(port);
    return StationFile().PortDevice(port);
}

Bursts::Time Now() {
    return SerialLine::Clock ? SerialLine::Clock() : std::chrono::steady_clock::now();
}

/// Three character times, because no indicator pauses that long within a frame; but longer than an
/// adapter or a busy system buffers bytes. USB adapters buffer for up to 16 ms.
std::chrono::milliseconds SilenceAfterBurst(const LineSettings& settings) {
    constexpr std::chrono::milliseconds least(50);
    return std::max(least, std::chrono::ceil<std::chrono::milliseconds>(3 * settings.Character()));
}

/// Returns why a device cannot be opened although this user has the permission.
std::string WhyLocked(const std::string& file) {
    const LineLock lock = ReadLineLock(file);
    if (lock.state == LineLock::State::Left)
        return "a program that has ended left the lock file " + lock.file +
               ", and this user may not delete it. Ask the administrator of the computer to delete "
               "the file, or restart the computer.";
    if (lock.state == LineLock::State::Unreadable)
        return "the lock file " + lock.file +
               " belongs to another user. Close the program of that user. If none is running, ask "
               "the administrator of the computer to delete the file.";
    return "another program is using it.";
}

} // namespace

std::function<std::string(int)> SerialLine::DeviceOf;
std::function<bool(int)> SerialLine::HasWholeBursts;
std::function<Bursts::Time()> SerialLine::Clock;

SerialLine::SerialLine(std::int16_t number, std::string_view settings, int leastBursts)
    : number_(number), leastBursts_(leastBursts) {
    SetSettings(settings);
    QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { Drain(); });
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) { OnError(error); });
    silenceTimer_.setSingleShot(true);
    silenceTimer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&silenceTimer_, &QTimer::timeout, &port_, [this] { AwaitSilence(); });
}

void SerialLine::SetSettings(std::string_view settings) {
    const auto parsed = ParseLineSettings(settings);
    if (!parsed)
        FailLine(FailureNumber::InvalidCall,
                 "\"" + std::string(settings) +
                     "\" is not a valid line setting. Use rate,parity,data bits,stop bits, for "
                     "example 9600,n,8,1.");
    parsed_ = *parsed;
    settings_ = settings;
}

std::string SerialLine::Named() const {
    return "Port " + std::to_string(number_) + " (" + device_ + ")";
}

void SerialLine::Open() {
    Close();
    device_ = DeviceOfPort(number_);
    // The lock belongs to the device and not to a symbolic link to it.
    const QString file = QFileInfo(ToQt(device_)).canonicalFilePath();
    port_.setPortName(file.isEmpty() ? ToQt(device_) : file);
    // Set before opening: afterwards some devices refuse seven data bits with even parity.
    port_.setBaudRate(parsed_.rate);
    port_.setParity(parsed_.parity);
    port_.setDataBits(parsed_.dataBits);
    port_.setStopBits(parsed_.stopBits);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!OpenDevice() && !(RemoveStaleLock() && OpenDevice()))
        FailToOpen();
    if (HasWholeBursts && HasWholeBursts(number_)) {
        const auto silence = SilenceAfterBurst(parsed_);
        bursts_.emplace(silence, leastBursts_, Now());
        // A timer can fire up to a millisecond early.
        silenceTimer_.start(silence + std::chrono::milliseconds(1));
    }
}

bool SerialLine::OpenDevice() {
    opening_ = true;
    const bool opened = port_.open(QIODevice::ReadOnly);
    opening_ = false;
    return opened;
}

bool SerialLine::RemoveStaleLock() {
    if (port_.error() != QSerialPort::PermissionError)
        return false;
    const LineLock lock = ReadLineLock(FromQt(port_.portName()));
    return lock.state == LineLock::State::Left && RemoveLeftLock(lock);
}

void SerialLine::FailToOpen() {
    const auto why = [this]() -> std::string {
        // Checked first: a missing device can still have a lock file.
        if (std::string fault = FaultOfDevice(device_); !fault.empty())
            return fault;
        switch (port_.error()) {
        case QSerialPort::DeviceNotFoundError:
            return NoSuchDevice();
        case QSerialPort::PermissionError:
            return WhyLocked(FromQt(port_.portName()));
        case QSerialPort::UnsupportedOperationError:
            return "it is not a serial line, or does not support the settings " + settings_ + ".";
        default:
            return FromQt(port_.errorString()) + ".";
        }
    }();
    Close();
    FailLine(FailureNumber::PortUnusable, Named() + " cannot be opened: " + why);
}

void SerialLine::Close() {
    if (port_.isOpen())
        port_.close();
    silenceTimer_.stop();
    received_.clear();
    bursts_.reset();
    hungUp_ = false;
}

void SerialLine::OnError(QSerialPort::SerialPortError error) {
    // A read that finds nothing is reported as a time-out.
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || !IsOpen())
        return;
    hungUp_ = true;
    // The port cannot be closed while it is reading. It must be closed as soon as possible, because
    // it keeps reporting the error.
    QTimer::singleShot(0, &port_, [this] {
        if (hungUp_ && port_.isOpen())
            port_.close();
    });
}

// The event loop may not have run for a while. One pass reads at most the buffer of the system; the
// limit is for a line that sends faster than it can be read.
void SerialLine::ReadAvailable() {
    for (int pass = 0; pass < 16 && IsOpen(); ++pass) {
        const auto begin = Now();
        if (port_.waitForReadyRead(0)) {
            Drain();
        } else {
            if (bursts_)
                bursts_->FindNothing(begin);
            return;
        }
    }
}

/// Always empties the buffer of the system: bytes that do not fit are dropped, not delayed.
void SerialLine::Drain() {
    const QByteArray bytes = port_.readAll();
    const std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (!bursts_) {
        received_.append(text.substr(0, bufferSize - received_.size()));
    } else if (!text.empty()) {
        bursts_->Receive(text, Now());
        silenceTimer_.start();
    }
}

void SerialLine::AwaitSilence() {
    ReadAvailable();
    if (IsOpen() && !bursts_->IsSilent())
        silenceTimer_.start();
}

std::string SerialLine::Input() {
    ReadAvailable();
    if (hungUp_)
        FailLine(FailureNumber::PortNotOpen,
                 Named() + " is closed: the line was disconnected. Check the cable.");
    if (!IsOpen())
        FailLine(FailureNumber::PortNotOpen,
                 "Port " + std::to_string(number_) + " is closed: nothing can be read from it.");
    if (!bursts_)
        return std::exchange(received_, {});
    if (bursts_->NeverPauses())
        FailLine(FailureNumber::PortUnusable,
                 Named() + " sends without a pause, but [WholeBursts] in Station.ini expects "
                           "pauses. Remove the port from that section and restart the program.");
    return bursts_->Take();
}

} // namespace Quillane
