#include "scale/RawText.h"

#include <array>

namespace Quillane {

namespace {

constexpr std::array<std::string_view, 32> controlNames{
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
    "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
    "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};

/// The second row of controls, the blank that does not break and the hyphen that is not drawn.
bool CannotBeSeen(unsigned char byte) {
    return (byte >= 0x80 && byte <= 0xA0) || byte == 0xAD;
}

std::string Code(unsigned char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    return {'x', digits[byte >> 4], digits[byte & 0xF]};
}

void Append(std::string& text, unsigned char byte) {
    const auto appendName = [&text](std::string_view name) {
        text.append("<").append(name).append(">");
    };
    if (byte < controlNames.size()) {
        appendName(controlNames[byte]);
    } else if (byte == 0x7F) {
        appendName("DEL");
    } else if (CannotBeSeen(byte)) {
        appendName(Code(byte));
    } else if (byte < 0x80) {
        text += static_cast<char>(byte);
    } else {
        text += static_cast<char>(0xC0 | byte >> 6);
        text += static_cast<char>(0x80 | (byte & 0x3F));
    }
}

} // namespace

std::string ShownRawText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        Append(text, static_cast<unsigned char>(byte));
    return text;
}

} // namespace Quillane
