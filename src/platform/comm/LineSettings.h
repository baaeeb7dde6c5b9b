#pragma once

#include <QSerialPort>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillane {

/// The parsed form of a settings text such as "9600,n,8,1".
struct LineSettings {
    std::int32_t rate = 0;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;

    /// The transmission time of one character with its start, parity and stop bits.
    std::chrono::nanoseconds Character() const;
};

/// Reads rate, parity letter (n, e, o, m, s; either case), data bits (5 to 8) and stop bits
/// (1, 1.5, 2), separated by commas; blanks around each are ignored. Returns none for any other
/// text.
std::optional<LineSettings> ParseLineSettings(std::string_view text);

} // namespace Quillane
