#include "platform/runtime/LongWork.h"

namespace Quillane {

void LongWork::Begin(const std::string& step, int parts) {
    const std::lock_guard lock(guard_);
    step_ = step;
    done_ = 0;
    parts_ = parts;
}

bool LongWork::Advance(int done) {
    done_ = done;
    return !cancelled_;
}

std::string LongWork::Step() const {
    const std::lock_guard lock(guard_);
    return step_;
}

} // namespace Quillane
