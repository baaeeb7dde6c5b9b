#include "platform/ado/FoldedText.h"

namespace Quillane {

namespace {

bool Between(char32_t c, char32_t first, char32_t last) {
    return c >= first && c <= last;
}

/// In Latin Extended-A, capital and small letters alternate. Twice it changes whether the pairs
/// begin with an odd or an even number.
char32_t FoldExtendedLatin(char32_t c) {
    if (c == 0x178)
        return 0xFF;
    const bool capitalIsOdd = Between(c, 0x139, 0x148) || Between(c, 0x179, 0x17E);
    const bool unpaired = c == 0x130 || c == 0x131 || c == 0x138 || c == 0x149 || c == 0x17F;
    if (unpaired)
        return c;
    return ((c & 1) == 1) == capitalIsOdd ? c + 1 : c;
}

} // namespace

char32_t Fold(char32_t c) {
    if (c < 0x80)
        return Between(c, 'A', 'Z') ? c + 32 : c;
    if (Between(c, 0xC0, 0xDE))
        return c == 0xD7 ? c : c + 32;
    if (Between(c, 0x100, 0x17F))
        return FoldExtendedLatin(c);
    if (Between(c, 0x391, 0x3A9) || Between(c, 0x410, 0x42F))
        return c + 32;
    if (Between(c, 0x400, 0x40F))
        return c + 80;
    return c;
}

} // namespace Quillane
