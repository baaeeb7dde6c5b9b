#include "platform/comm/Bursts.h"

#include <utility>

namespace Quillane {

namespace {
constexpr std::size_t bufferSize = 1024;
constexpr std::chrono::seconds neverPausing{5};
} // namespace

Bursts::Bursts(Duration silence, int atLeast, Time opened)
    : silence_(silence), atLeast_(atLeast), last_(opened), unpaused_(opened) {}

void Bursts::Receive(std::string_view bytes, Time end) {
    if (end - last_ >= silence_)
        unpaused_ = end;
    last_ = end;
    silent_ = false;
    if (whole_.size() + current_.size() + bytes.size() > bufferSize)
        currentIsWhole_ = false;
    if (currentIsWhole_)
        current_ += bytes;
}

void Bursts::FindNothing(Time begin) {
    if (silent_ || begin - last_ < silence_)
        return;
    if (currentIsWhole_ && !current_.empty()) {
        whole_ += current_;
        ++count_;
    }
    current_.clear();
    currentIsWhole_ = true;
    silent_ = true;
}

std::string Bursts::Take() {
    if (count_ < atLeast_)
        return {};
    count_ = 0;
    return std::exchange(whole_, {});
}

bool Bursts::NeverPauses() const {
    return !silent_ && last_ - unpaused_ >= neverPausing;
}

} // namespace Quillane
