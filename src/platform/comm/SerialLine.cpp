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

/// Three characters' time, which no indicator leaves between the bytes of a frame; but not less
/// than an adapter or a loaded system may hold bytes back. USB adapters collect for up to 16 ms.
std::chrono::milliseconds SilenceAfterBurst(const LineSettings& settings) {
    constexpr std::chrono::milliseconds least(50);
    return std::max(least, std::chrono::ceil<std::chrono::milliseconds>(3 * settings.Character()));
}

/// Why a device that this user may use cannot be opened.
std::string WhyLocked(const std::string& file) {
    const LineLock lock = ReadLineLock(file);
    if (lock.state == LineLock::State::Left)
        return "a program that has ended left the lock file " + lock.file +
               ", and this user may not delete it. Please have the person who looks after the "
               "computer delete the file, or start the computer again.";
    if (lock.state == LineLock::State::Unreadable)
        return "the lock file " + lock.file +
               " is another user's. Please close the other user's program; where none runs, have "
               "the person who looks after the computer delete the file.";
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
    // A device has one lock, whatever link it is reached by.
    const QString file = QFileInfo(ToQt(device_)).canonicalFilePath();
    port_.setPortName(file.isEmpty() ? ToQt(device_) : file);
    // Given before opening: afterwards some lines refuse seven bits and even parity.
    port_.setBaudRate(parsed_.rate);
    port_.setParity(parsed_.parity);
    port_.setDataBits(parsed_.dataBits);
    port_.setStopBits(parsed_.stopBits);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!OpenDevice() && !(FreeFromLeftLock() && OpenDevice()))
        FailToOpen();
    if (HasWholeBursts && HasWholeBursts(number_)) {
        const auto silence = SilenceAfterBurst(parsed_);
        bursts_.emplace(silence, leastBursts_, Now());
        // A timer may fire within the millisecond before its time.
        silenceTimer_.start(silence + std::chrono::milliseconds(1));
    }
}

bool SerialLine::OpenDevice() {
    opening_ = true;
    const bool opened = port_.open(QIODevice::ReadOnly);
    opening_ = false;
    return opened;
}

bool SerialLine::FreeFromLeftLock() {
    if (port_.error() != QSerialPort::PermissionError)
        return false;
    const LineLock lock = ReadLineLock(FromQt(port_.portName()));
    return lock.state == LineLock::State::Left && RemoveLeftLock(lock);
}

void SerialLine::FailToOpen() {
    const auto why = [this]() -> std::string {
        // First: the name of a missing device may be locked all the same.
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
    // A look that finds nothing counts as timed out.
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || !IsOpen())
        return;
    hungUp_ = true;
    // Not here, during the port's own reading; but at once, for a line that has hung up reports it
    // without end.
    QTimer::singleShot(0, &port_, [this] {
        if (hungUp_ && port_.isOpen())
            port_.close();
    });
}

// The event loop may not have run for a while. One look takes no more than the system's own buffer
// holds; the bound is for a line that sends faster than it can be read.
void SerialLine::Look() {
    for (int look = 0; look < 16 && IsOpen(); ++look) {
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

/// Always empties the system's buffer, so that what comes after a full buffer is lost and not late.
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
    Look();
    if (IsOpen() && !bursts_->IsSilent())
        silenceTimer_.start();
}

std::string SerialLine::Input() {
    Look();
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
