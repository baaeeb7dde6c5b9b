#include "scale/RawText.h"

namespace Quillane {

namespace {

constexpr unsigned controlPictures = 0x2400;
constexpr unsigned pictureOfDelete = 0x2421;
constexpr unsigned replacement = 0xFFFD;

unsigned ShownCharacter(unsigned char byte) {
    if (byte < 0x20)
        return controlPictures + byte;
    if (byte == 0x7F)
        return pictureOfDelete;
    // Controls without a picture, the blank that does not break and the hyphen that is not drawn.
    if ((byte >= 0x80 && byte <= 0xA0) || byte == 0xAD)
        return replacement;
    return byte;
}

void Append(std::string& text, unsigned character) {
    const auto add = [&text](unsigned unit) { text += static_cast<char>(unit); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | character >> 6);
        add(0x80 | (character & 0x3F));
    } else {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    }
}

} // namespace

std::string ShownRawText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        Append(text, ShownCharacter(static_cast<unsigned char>(byte)));
    return text;
}

} // namespace Quillane
