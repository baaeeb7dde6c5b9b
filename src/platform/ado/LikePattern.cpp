#include "platform/ado/LikePattern.h"

#include "platform/ado/FoldedText.h"

namespace Quillane {

LikePattern::LikePattern(std::string_view pattern, char32_t escape) : parts_(1) {
    while (!pattern.empty()) {
        const bool isRun = pattern.front() == '%' && escape != '%';
        if (isRun)
            parts_.emplace_back();
        pattern.remove_prefix(isRun ? 1 : ReadElement(pattern, escape));
    }
    for (Part& part : parts_)
        Prepare(part);
}

/// Adds the next element of the pattern to the last part and returns its length.
std::size_t LikePattern::ReadElement(std::string_view rest, char32_t escape) {
    std::vector<Element>& elements = parts_.back().elements;
    if (rest.front() == '[' && !bracketsEnd_) {
        const std::size_t end = rest.find(']', 1);
        bracketsEnd_ = end == std::string_view::npos;
        if (!bracketsEnd_) {
            elements.push_back({Element::Kind::Set, 0, std::string(rest.substr(1, end - 1))});
            return end + 1;
        }
    }
    Characters walk(rest);
    char32_t character = walk.Take();
    if (character == '_' && escape != '_') {
        elements.push_back({Element::Kind::Any});
    } else {
        if (escape != 0 && character == escape && !walk.AtEnd())
            character = walk.Take();
        elements.push_back({Element::Kind::Character, Fold(character)});
    }
    return rest.size() - walk.Rest().size();
}

void LikePattern::Prepare(Part& part) {
    for (const Element& element : part.elements)
        part.isPlain = part.isPlain && element.kind == Element::Kind::Character;
    if (part.elements.empty())
        return;
    const Element& first = part.elements.front();
    // No character beyond ASCII folds to one of these.
    if (first.kind == Element::Kind::Character && first.character < 0x80)
        part.first = static_cast<char>(first.character);
    if (!part.isPlain)
        return;
    part.repeats.resize(part.elements.size());
    for (std::size_t at = 1, fitting = 0; at < part.elements.size(); ++at) {
        const char32_t character = part.elements[at].character;
        while (fitting > 0 && part.elements[fitting].character != character)
            fitting = part.repeats[fitting - 1];
        fitting += part.elements[fitting].character == character;
        part.repeats[at] = fitting;
    }
}

bool LikePattern::Fits(const Element& element, char32_t character) {
    switch (element.kind) {
    case Element::Kind::Character:
        return element.character == character;
    case Element::Kind::Set:
        return SetHolds(element.set, character);
    default:
        return true;
    }
}

bool LikePattern::SetHolds(std::string_view set, char32_t character) {
    Characters members(set);
    const bool isInverted = set.starts_with('^');
    if (isInverted)
        members.Take();
    while (!members.AtEnd()) {
        const char32_t first = Fold(members.Take());
        char32_t last = first;
        if (members.Rest().size() > 1 && members.Rest().starts_with('-')) {
            members.Take();
            last = Fold(members.Take());
        }
        if (first <= character && character <= last)
            return !isInverted;
    }
    return isInverted;
}

/// True if the text continues with the part, which is then removed from it.
bool LikePattern::Take(Characters& text, const Part& part) {
    for (const Element& element : part.elements)
        if (text.AtEnd() || !Fits(element, Fold(text.Take())))
            return false;
    return true;
}

/// Removes everything up to the end of the first match of the part in the text.
bool LikePattern::Find(Characters& text, const Part& part) {
    if (part.isPlain)
        return FindPlain(text, part);
    for (;; text.Take()) {
        if (part.first != 0)
            text.SkipTo(part.first);
        Characters attempt = text;
        if (Take(attempt, part)) {
            text = attempt;
            return true;
        }
        if (text.AtEnd())
            return false;
    }
}

bool LikePattern::FindPlain(Characters& text, const Part& part) {
    std::size_t found = 0;
    while (found < part.elements.size()) {
        if (found == 0 && part.first != 0)
            text.SkipTo(part.first);
        if (text.AtEnd())
            return false;
        const char32_t character = Fold(text.Take());
        while (found > 0 && part.elements[found].character != character)
            found = part.repeats[found - 1];
        found += part.elements[found].character == character;
    }
    return true;
}

bool LikePattern::EndsWith(Characters text, const Part& part) {
    std::size_t length = 0;
    for (Characters walk = text; !walk.AtEnd(); walk.Take())
        ++length;
    if (length < part.elements.size())
        return false;
    for (; length > part.elements.size(); --length)
        text.Take();
    return Take(text, part);
}

bool LikePattern::Fits(std::string_view text) const {
    Characters walk(text);
    if (!Take(walk, parts_.front()))
        return false;
    if (parts_.size() == 1)
        return walk.AtEnd();
    for (std::size_t part = 1; part + 1 < parts_.size(); ++part)
        if (!Find(walk, parts_[part]))
            return false;
    return parts_.back().elements.empty() || EndsWith(walk, parts_.back());
}

} // namespace Quillane
