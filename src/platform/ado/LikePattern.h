#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

class Characters;

/// A parsed pattern of `Like`: % matches any sequence of characters, _ any single one, and [abc],
/// [a-f] and [^abc] one of a set. A bracket without a closing one is an ordinary character. Text is
/// UTF-8 and is compared like in `CompareText`, regardless of case.
class LikePattern {
public:
    /// The character after `escape` is an ordinary one; 0 means that there is no escape character.
    explicit LikePattern(std::string_view pattern, char32_t escape = 0);

    /// The time is proportional to the length of the text; if a part of the pattern between two %
    /// contains a _ or a set, to the lengths of text and pattern multiplied.
    bool Fits(std::string_view text) const;

private:
    /// True if one character of the text matches the element.
    struct Element {
        enum class Kind { Character, Any, Set };
        Kind kind = Kind::Character;
        char32_t character = 0; ///< folded
        std::string set{};
    };
    /// The part between two %, or between a % and an end.
    struct Part {
        std::vector<Element> elements{};
        bool isPlain = true; ///< only characters
        char first = 0;      ///< its first character if it is plain ASCII; 0 otherwise
        /// For a plain part: after this number of matched elements, how many elements of the
        /// beginning are also matched by their end.
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
