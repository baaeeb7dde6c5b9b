#pragma once

#include <atomic>
#include <mutex>
#include <string>

namespace Quillane {

/// What a long piece of work reports of itself, and hears: shared by its thread and by whoever
/// shows its progress.
class LongWork {
public:
    /// Begins a step of so many parts; 0 where nobody knows how many.
    void Begin(const std::string& step, int parts = 0);
    /// So many parts of the step are done. False where the work is to be broken off.
    bool Advance(int done);
    bool IsBrokenOff() const { return brokenOff_; }

    /// May be called in a signal handler.
    void BreakOff() { brokenOff_ = true; }
    std::string Step() const;
    int Done() const { return done_; }
    int Parts() const { return parts_; }

private:
    mutable std::mutex guard_; ///< of the step's text
    std::string step_;
    std::atomic<int> done_ = 0;
    std::atomic<int> parts_ = 0;
    std::atomic<bool> brokenOff_ = false;
};

} // namespace Quillane
