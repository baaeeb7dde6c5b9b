#pragma once

#include <atomic>
#include <mutex>
#include <string>

namespace Quillane {

/// The progress of a long operation and the request to cancel it. It is shared by the thread of the
/// operation and the one that shows the progress.
class LongWork {
public:
    /// Begins a step with this number of parts; 0 if it is not known.
    void Begin(const std::string& step, int parts = 0);
    /// Reports the number of completed parts. Returns false if the operation must end.
    bool Advance(int done);
    bool IsCancelled() const { return cancelled_; }

    /// Can be called in a signal handler.
    void Cancel() { cancelled_ = true; }
    std::string Step() const;
    int Done() const { return done_; }
    int Parts() const { return parts_; }

private:
    mutable std::mutex guard_; ///< protects step_
    std::string step_;
    std::atomic<int> done_ = 0;
    std::atomic<int> parts_ = 0;
    std::atomic<bool> cancelled_ = false;
};

} // namespace Quillane
