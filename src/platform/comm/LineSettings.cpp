#include "platform/comm/LineSettings.h"

#include "platform/runtime/Text.h"

#include <array>
#include <charconv>
#include <utility>

namespace Quillane {

namespace {

using Fields = std::array<std::string_view, 4>;

std::optional<Fields> Split(std::string_view text) {
    Fields fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t comma = text.find(',');
        // The last field, and only the last, is not followed by a comma.
        if ((comma == std::string_view::npos) != (i + 1 == fields.size()))
            return std::nullopt;
        fields[i] = Trim(text.substr(0, comma));
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return fields;
}

std::optional<std::int32_t> ParseRate(std::string_view text) {
    std::int32_t rate = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rate);
    if (error != std::errc() || end != text.data() + text.size() || rate <= 0)
        return std::nullopt;
    return rate;
}

template <typename Meaning, std::size_t Count>
std::optional<Meaning> Lookup(const std::array<std::pair<std::string_view, Meaning>, Count>& table,
                              std::string_view text) {
    for (const auto& [spelling, meaning] : table)
        if (EqualIgnoringCase(spelling, text))
            return meaning;
    return std::nullopt;
}

constexpr std::array<std::pair<std::string_view, QSerialPort::Parity>, 5> parities{{
    {"n", QSerialPort::NoParity},
    {"e", QSerialPort::EvenParity},
    {"o", QSerialPort::OddParity},
    {"m", QSerialPort::MarkParity},
    {"s", QSerialPort::SpaceParity},
}};

constexpr std::array<std::pair<std::string_view, QSerialPort::DataBits>, 4> dataBitCounts{{
    {"5", QSerialPort::Data5},
    {"6", QSerialPort::Data6},
    {"7", QSerialPort::Data7},
    {"8", QSerialPort::Data8},
}};

constexpr std::array<std::pair<std::string_view, QSerialPort::StopBits>, 3> stopBitCounts{{
    {"1", QSerialPort::OneStop},
    {"1.5", QSerialPort::OneAndHalfStop},
    {"2", QSerialPort::TwoStop},
}};

} // namespace

std::chrono::nanoseconds LineSettings::Character() const {
    const int halfStopBits = stopBits == QSerialPort::OneAndHalfStop ? 3 : 2 * stopBits;
    const int halfBits =
        2 * (1 + dataBits + (parity == QSerialPort::NoParity ? 0 : 1)) + halfStopBits;
    return std::chrono::nanoseconds(std::chrono::seconds(halfBits)) / (2 * rate);
}

std::optional<LineSettings> ParseLineSettings(std::string_view text) {
    const auto fields = Split(text);
    if (!fields)
        return std::nullopt;
    const auto rate = ParseRate((*fields)[0]);
    const auto parity = Lookup(parities, (*fields)[1]);
    const auto dataBits = Lookup(dataBitCounts, (*fields)[2]);
    const auto stopBits = Lookup(stopBitCounts, (*fields)[3]);
    if (!rate || !parity || !dataBits || !stopBits)
        return std::nullopt;
    return LineSettings{*rate, *parity, *dataBits, *stopBits};
}

} // namespace Quillane
