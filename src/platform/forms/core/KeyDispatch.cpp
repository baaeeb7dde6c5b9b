#include "platform/forms/core/KeyDispatch.h"

namespace Quillane {

namespace {

KeyDispatch* innermost = nullptr;

} // namespace

KeyDispatch::KeyDispatch(const QEvent& event, const Screen& screen)
    : event_(event), screen_(screen), outer_(innermost) {
    innermost = this;
}

KeyDispatch::~KeyDispatch() {
    innermost = outer_;
}

bool KeyDispatch::Handles(const QEvent& event) {
    for (const KeyDispatch* dispatch = innermost; dispatch; dispatch = dispatch->outer_)
        if (&dispatch->event_ == &event)
            return true;
    return false;
}

KeyDispatch* KeyDispatch::Current(const Screen& screen) {
    return innermost && &innermost->screen_ == &screen ? innermost : nullptr;
}

} // namespace Quillane
