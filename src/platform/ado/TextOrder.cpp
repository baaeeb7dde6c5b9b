#include "platform/ado/TextOrder.h"

#include <cstddef>

namespace Quillane {

namespace {

/// Walks the characters of UTF-8 text; a byte that begins no character counts as one by itself.
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

    /// Moves on to an ASCII character in either case, or to the end.
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

bool Between(char32_t c, char32_t first, char32_t last) {
    return c >= first && c <= last;
}

/// Latin Extended-A holds capitals and small letters in turn; where the pairs begin on an odd
/// number changes twice.
char32_t FoldExtendedLatin(char32_t c) {
    if (c == 0x178)
        return 0xFF;
    const bool capitalIsOdd = Between(c, 0x139, 0x148) || Between(c, 0x179, 0x17E);
    const bool unpaired = c == 0x130 || c == 0x131 || c == 0x138 || c == 0x149 || c == 0x17F;
    if (unpaired)
        return c;
    return ((c & 1) == 1) == capitalIsOdd ? c + 1 : c;
}

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

std::string_view WithoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Takes a set's body and its bracket off the pattern, and says whether the character is in it.
/// A bracket that is never closed is no set.
class LikeSet {
public:
    explicit LikeSet(std::string_view pattern) : end_(pattern.find(']', 1)), body_(pattern) {
        if (end_ != std::string_view::npos)
            body_ = pattern.substr(1, end_ - 1);
    }

    bool IsSet() const { return end_ != std::string_view::npos; }
    std::size_t Length() const { return end_ + 1; }

    bool Holds(char32_t folded) const {
        Characters members(body_);
        const bool inverted = body_.starts_with('^');
        if (inverted)
            members.Take();
        while (!members.AtEnd()) {
            const char32_t first = Fold(members.Take());
            char32_t last = first;
            if (members.Rest().size() > 1 && members.Rest().starts_with('-')) {
                members.Take();
                last = Fold(members.Take());
            }
            if (Between(folded, first, last))
                return !inverted;
        }
        return inverted;
    }

private:
    std::size_t end_;
    std::string_view body_;
};

/// Takes one character off the text and the one-character part of the pattern that must fit it.
bool TakeOne(Characters& text, Characters& pattern, char32_t escape) {
    if (text.AtEnd())
        return false;
    const char32_t character = Fold(text.Take());
    if (pattern.Rest().front() == '[') {
        const LikeSet set(pattern.Rest());
        if (set.IsSet()) {
            pattern = Characters(pattern.Rest().substr(set.Length()));
            return set.Holds(character);
        }
    }
    char32_t wanted = pattern.Take();
    if (wanted == '_' && escape != '_')
        return true;
    if (escape != 0 && wanted == escape && !pattern.AtEnd())
        wanted = pattern.Take();
    return Fold(wanted) == character;
}

/// The character that a pattern begins with, where it is an ASCII one that stands for itself alone,
/// in its small form; 0 where it is not. No character beyond ASCII folds to one of these.
char PlainFirst(std::string_view pattern, char32_t escape) {
    const char first = pattern.front();
    const bool isAscii = static_cast<unsigned char>(first) < 0x80;
    const bool standsForMore = first == '%' || first == '_' || first == '[';
    return !isAscii || standsForMore || static_cast<char32_t>(first) == escape
               ? '\0'
               : Characters::Small(first);
}

} // namespace

int CompareText(std::string_view left, std::string_view right) {
    Characters leftWalk(WithoutTrailingBlanks(left));
    Characters rightWalk(WithoutTrailingBlanks(right));
    while (!leftWalk.AtEnd() && !rightWalk.AtEnd()) {
        const char32_t leftNext = Fold(leftWalk.Take());
        const char32_t rightNext = Fold(rightWalk.Take());
        if (leftNext != rightNext)
            return leftNext < rightNext ? -1 : 1;
    }
    return static_cast<int>(!leftWalk.AtEnd()) - static_cast<int>(!rightWalk.AtEnd());
}

bool MatchesLike(std::string_view text, std::string_view pattern, char32_t escape) {
    Characters textWalk(text);
    Characters patternWalk(pattern);
    // The last % and where its run ends: the only place that has to be tried again.
    bool hasRun = false;
    Characters afterRun(pattern);
    Characters runEnd(text);
    char behindRun = 0;
    for (;;) {
        const bool isRun = patternWalk.Rest().starts_with('%') && escape != '%';
        if (isRun) {
            patternWalk.Take();
            if (patternWalk.AtEnd())
                return true;
            hasRun = true;
            afterRun = patternWalk;
            behindRun = PlainFirst(patternWalk.Rest(), escape);
        } else if (patternWalk.AtEnd() && textWalk.AtEnd()) {
            return true;
        } else if (!patternWalk.AtEnd() && TakeOne(textWalk, patternWalk, escape)) {
            continue;
        } else if (!hasRun || runEnd.AtEnd()) {
            return false;
        } else {
            runEnd.Take();
            textWalk = runEnd;
            patternWalk = afterRun;
        }
        if (behindRun != 0)
            textWalk.SkipTo(behindRun);
        runEnd = textWalk;
    }
}

} // namespace Quillane
