#pragma once

#include "platform/comm/Bursts.h"
#include "platform/comm/LineSettings.h"

#include <QSerialPort>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

/// The port of an MSComm: its number and settings, and what an open one receives. Failures are
/// those that MSComm names.
class SerialLine {
public:
    /// At least so many bursts are read at once, on a line that is read in whole bursts.
    SerialLine(std::int16_t number, std::string_view settings, int leastBursts);

    std::int16_t Number() const { return number_; }
    void SetNumber(std::int16_t number) { number_ = number; }
    const std::string& Settings() const { return settings_; }
    /// Fails for a text of another form; nothing changes.
    void SetSettings(std::string_view settings);
    /// "Port 1 (/dev/ttyUSB0)", for messages; the device is the one of the last opening.
    std::string Named() const;

    bool IsOpen() const { return port_.isOpen() && !opening_ && !hungUp_; }
    void Open();
    void Close();
    std::string Input();

    /// What is known of a port from outside; empty functions bring the defaults back.
    static std::function<std::string(int port)> DeviceOf;
    static std::function<bool(int port)> HasWholeBursts;
    static std::function<Bursts::Time()> Clock;

private:
    bool OpenDevice();
    /// True where a process that has ended kept the device locked, and does so no more.
    bool FreeFromLeftLock();
    [[noreturn]] void FailToOpen();
    void OnError(QSerialPort::SerialPortError error);
    /// Takes what has arrived, also while the event loop does not run.
    void Look();
    void Drain();
    void AwaitSilence();

    std::int16_t number_;
    int leastBursts_;
    std::string settings_;
    LineSettings parsed_;
    std::string device_;
    std::string received_;
    std::optional<Bursts> bursts_; ///< instead of received_, on a line read in whole bursts
    bool opening_ = false;
    bool hungUp_ = false;
    QSerialPort port_;
    QTimer silenceTimer_;
};

} // namespace Quillane
