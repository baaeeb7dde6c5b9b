#pragma once

#include "platform/ado/LockWait.h"

#include <chrono>
#include <functional>
#include <memory>

struct sqlite3;

namespace Quillane {

struct EmbeddedSupport;

/// The waits of a session for the file's lock, one for each statement that finds it held. Stays
/// where it is as long as the session lasts.
class SqliteWaits {
public:
    explicit SqliteWaits(const EmbeddedSupport& support);
    SqliteWaits(const SqliteWaits&) = delete;
    SqliteWaits& operator=(const SqliteWaits&) = delete;

    void Install(sqlite3* session);
    /// For what can be put off: a held lock is refused at once.
    static void Remove(sqlite3* session);

    /// Ends the wait, if there was one, when it goes.
    class Statement {
    public:
        explicit Statement(SqliteWaits& waits) : waits_(waits) {}
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
    std::chrono::steady_clock::time_point begun_;
};

} // namespace Quillane
