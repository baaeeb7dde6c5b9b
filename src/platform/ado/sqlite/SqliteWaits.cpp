#include "platform/ado/sqlite/SqliteWaits.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"

#include <sqlite3.h>

#include <thread>

namespace Quillane {

namespace {

class SilentWait : public LockWait {
public:
    explicit SilentWait(std::chrono::milliseconds longest) : longest_(longest) {}

    bool GoOn(std::chrono::milliseconds waited) override {
        constexpr std::chrono::milliseconds step{10};
        if (waited >= longest_)
            return false;
        std::this_thread::sleep_for(step);
        return true;
    }

private:
    std::chrono::milliseconds longest_;
};

} // namespace

SqliteWaits::SqliteWaits(const EmbeddedSupport& support) : begin_(support.waitForLock) {
    if (!begin_)
        begin_ = [longest = support.busyWait] { return std::make_unique<SilentWait>(longest); };
}

SqliteWaits::Statement::Statement(SqliteWaits& waits) : waits_(waits) {
    if (waits.isAsking_)
        FailDatabase("The database is locked by another station or program. Try again when it has "
                     "been released.");
}

void SqliteWaits::Install(sqlite3* session) {
    sqlite3_busy_handler(session, GoOn, this);
}

void SqliteWaits::Remove(sqlite3* session) {
    sqlite3_busy_handler(session, nullptr, nullptr);
}

// No exception may pass through SQLite: after an error here the statement is given up.
int SqliteWaits::GoOn(void* waits, int) {
    auto& self = *static_cast<SqliteWaits*>(waits);
    const auto now = std::chrono::steady_clock::now();
    try {
        if (!self.wait_) {
            self.begun_ = now;
            self.wait_ = self.begin_();
        }
        self.isAsking_ = true;
        const bool goesOn = self.wait_->GoOn(
            std::chrono::duration_cast<std::chrono::milliseconds>(now - self.begun_));
        self.isAsking_ = false;
        return goesOn;
    } catch (...) {
        self.isAsking_ = false;
        return false;
    }
}

} // namespace Quillane
