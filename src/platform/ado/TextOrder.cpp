#include "platform/ado/TextOrder.h"

#include "platform/ado/FoldedText.h"

namespace Quillane {

namespace {

std::string_view WithoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
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

} // namespace Quillane
