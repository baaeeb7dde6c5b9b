#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

class Characters;

/// A pattern of `Like`, read once: % means any run of characters, _ for one, [abc], [a-f] and
/// [^abc] for one of a set. A bracket that is never closed means itself. Texts fit without
/// regard to case, as in CompareText; UTF-8.
class LikePattern {
public:
    /// `escape` makes the character after it plain; 0 means none.
    explicit LikePattern(std::string_view pattern, char32_t escape = 0);

    /// The time is proportional to the length of the text; if a part of the pattern between two %
    /// contains a _ or a set, to the lengths of text and pattern multiplied.
    bool Fits(std::string_view text) const;

private:
    /// One character of the text fits it or does not.
    struct Element {
        enum class Kind { Character, Any, Set };
        Kind kind = Kind::Character;
        char32_t character = 0; ///< folded
        std::string set{};
    };
    /// The part between two %, or between one and an end.
    struct Part {
        std::vector<Element> elements{};
        bool isPlain = true; ///< only characters
        char first = 0;      ///< its first character if it is plain ASCII; 0 otherwise
        /// Of a plain part, for so many elements found: how many of its beginning end them again.
        std::vector<std::size_t> repeats{};
    };

    std::size_t ReadElement(std::string_view rest, char32_t escape);
    static bool Fits(const Element& element, char32_t character);
    static bool SetHolds(std::string_view set, char32_t character);
    static void Prepare(Part& part);
    static bool Take(Characters& text, const Part& part);
    static bool Find(Characters& text, const Part& part);
    static bool FindPlain(Characters& text, const Part& part);
    static bool EndsWith(Characters text, const Part& part);

    std::vector<Part> parts_;  ///< one more than there are %
    bool bracketsEnd_ = false; ///< no bracket is closed from here on
};

} // namespace Quillane
