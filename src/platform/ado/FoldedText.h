#pragma once

#include <cstddef>
#include <string_view>

namespace Quillane {

/// The small form of an ASCII, Latin, Greek or Cyrillic capital letter. Other characters are
/// returned unchanged.
char32_t Fold(char32_t character);

/// Iterates over the characters of UTF-8 text. A byte that begins no character counts as a
/// character.
class Characters {
public:
    explicit Characters(std::string_view text) : text_(text) {}

    bool AtEnd() const { return at_ >= text_.size(); }

    char32_t Take() {
        const auto lead = static_cast<unsigned char>(text_[at_++]);
        if (lead < 0xC0)
            return lead;
        const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
        char32_t character = lead & (0x3Fu >> more);
        for (int i = 0; i < more && !AtEnd() && IsContinuation(text_[at_]); ++i)
            character = (character << 6) | (static_cast<unsigned char>(text_[at_++]) & 0x3Fu);
        return character;
    }

    /// Advances to an ASCII character in either case, or to the end.
    void SkipTo(char small) {
        while (!AtEnd() && Small(text_[at_]) != small)
            ++at_;
    }

    std::string_view Rest() const { return text_.substr(at_); }

    static char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

private:
    static bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace Quillane
