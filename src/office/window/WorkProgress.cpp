#include "office/window/WorkProgress.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"

#include <algorithm>
#include <cstdint>

namespace Quillane::Office {

WorkProgress::WorkProgress(const QString& what, int parts, QWidget* over)
    : dialog_(what, "&Cancel", 0, parts, over) {
    dialog_.setWindowTitle(ToQt(ProgramTitle()));
    dialog_.setWindowModality(Qt::ApplicationModal);
    dialog_.setMinimumDuration(static_cast<int>(Moment.count()));
    dialog_.setAutoReset(false);
}

// An update of the window costs more than a row, so the number of updates is limited.
bool WorkProgress::operator()(int done) {
    constexpr int looks = 200;
    const int look = static_cast<int>(std::int64_t{done} * looks / std::max(dialog_.maximum(), 1));
    if (look != lastLook_)
        dialog_.setValue(std::min(done, dialog_.maximum()));
    lastLook_ = look;
    return !dialog_.wasCanceled();
}

} // namespace Quillane::Office
