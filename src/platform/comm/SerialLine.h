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

/// The port of an MSComm: its number, its settings and the received bytes. Errors: as described in
/// MSComm.h.
class SerialLine {
public:
    /// `leastBursts` is the minimum number of bursts that `Input` returns, if the port is read in
    /// whole bursts.
    SerialLine(std::int16_t number, std::string_view settings, int leastBursts);

    std::int16_t Number() const { return number_; }
    void SetNumber(std::int16_t number) { number_ = number; }
    const std::string& Settings() const { return settings_; }
    /// Errors: 5 for an invalid text; the settings are then not changed.
    void SetSettings(std::string_view settings);
    /// Returns "Port 1 (/dev/ttyUSB0)" for messages, with the device of the last opening.
    std::string Named() const;

    bool IsOpen() const { return port_.isOpen() && !opening_ && !hungUp_; }
    void Open();
    void Close();
    std::string Input();

    /// See the setters of MSComm.
    static std::function<std::string(int port)> DeviceOf;
    static std::function<bool(int port)> HasWholeBursts;
    static std::function<Bursts::Time()> Clock;

private:
    bool OpenDevice();
    /// Removes the lock of a process that has ended. Returns true if there was one and it is gone.
    bool RemoveStaleLock();
    [[noreturn]] void FailToOpen();
    void OnError(QSerialPort::SerialPortError error);
    /// Reads the bytes that have arrived, even if the event loop has not run.
    void ReadAvailable();
    void Drain();
    void AwaitSilence();

    std::int16_t number_;
    int leastBursts_;
    std::string settings_;
    LineSettings parsed_;
    std::string device_;
    std::string received_;
    std::optional<Bursts> bursts_; ///< used instead of received_ if read in whole bursts
    bool opening_ = false;
    bool hungUp_ = false;
    QSerialPort port_;
    QTimer silenceTimer_;
};

} // namespace Quillane
