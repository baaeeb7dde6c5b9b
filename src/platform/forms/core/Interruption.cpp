#include "platform/forms/core/Interruption.h"

#include "platform/forms/core/Screen.h"
#include "platform/forms/core/ShownScreens.h"

#include <QApplication>

namespace Quillane {

namespace {

unsigned interruptions = 0;

Screen* ScreenInFront() {
    if (auto* active = dynamic_cast<Screen*>(QApplication::activeWindow())) {
        return active;
    }
    return ShownScreens().empty() ? nullptr : ShownScreens().back();
}

} // namespace

Interruption::Interruption() : below_(ScreenInFront()) {
    ++interruptions;
}

Interruption::~Interruption() {
    if (Screen* below = Below(); below && below->shown_) {
        below->activateWindow();
        below->GiveQtFocus();
    }
}

Screen* Interruption::Below() const {
    return static_cast<Screen*>(below_.data());
}

unsigned Interruption::Count() {
    return interruptions;
}

} // namespace Quillane
