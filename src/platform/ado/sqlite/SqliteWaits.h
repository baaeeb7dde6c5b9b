#pragma once

#include "platform/ado/LockWait.h"

#include <chrono>
#include <functional>
#include <memory>

struct sqlite3;

namespace Quillane {

struct EmbeddedSupport;

/// The waits of a session for the lock of its file, one for each statement that finds it locked.
/// Requires: it is not moved during the session.
class SqliteWaits {
public:
    explicit SqliteWaits(const EmbeddedSupport& support);
    SqliteWaits(const SqliteWaits&) = delete;
    SqliteWaits& operator=(const SqliteWaits&) = delete;

    void Install(sqlite3* session);
    /// For work that can be done later: a locked file is refused at once.
    static void Remove(sqlite3* session);

    /// The destructor ends the wait, if there was one. A statement that begins during the wait of
    /// another one, from an event processed in it, fails: the engine cannot run it.
    class Statement {
    public:
        explicit Statement(SqliteWaits& waits);
        ~Statement() { waits_.wait_.reset(); }
        Statement(const Statement&) = delete;
        Statement& operator=(const Statement&) = delete;

    private:
        SqliteWaits& waits_;
    };

private:
    static int GoOn(void* waits, int times);

    std::function<std::unique_ptr<LockWait>()> begin_;
    std::unique_ptr<LockWait> wait_;
    bool isAsking_ = false; ///< inside `LockWait::GoOn`
    std::chrono::steady_clock::time_point begun_;
};

} // namespace Quillane
