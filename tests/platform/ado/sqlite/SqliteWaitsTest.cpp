#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <functional>
#include <vector>

namespace Quillane {

namespace {

using std::chrono::milliseconds;

constexpr const char* AddRow = "Insert Into Project_Registry Values ('a', 'b')";

class SqliteWaitsTest : public testing::Test {
protected:
    /// Counts its own lifetime, and asks the test whether to continue.
    class NotedWait : public LockWait {
    public:
        explicit NotedWait(SqliteWaitsTest& test) : test_(test) {
            ++test_.begun;
            test_.waited = milliseconds(0);
        }
        ~NotedWait() override { ++test_.ended; }
        bool GoOn(milliseconds waited) override {
            EXPECT_GE(waited, test_.waited);
            test_.waited = waited;
            return test_.goOn();
        }

    private:
        SqliteWaitsTest& test_;
    };

    void SetUp() override {
        folder.Open(other);
        EmbeddedSupport support = folder.Support();
        support.waitForLock = [this] { return std::make_unique<NotedWait>(*this); };
        station.SetEmbeddedSupport(support);
        station.Open(EmbeddedFolder::connectionString);
    }
    void Hold() {
        other.BeginTrans();
        other.Execute(AddRow);
    }
    void ExpectWaits(int count) const {
        EXPECT_EQ(begun, count);
        EXPECT_EQ(ended, count);
    }

    EmbeddedFolder folder;
    Connection other, station;
    std::function<bool()> goOn = [] { return false; };
    int begun = 0, ended = 0;
    milliseconds waited{0};
};

TEST_F(SqliteWaitsTest, DoNotBeginWithoutALock) {
    station.BeginTrans();
    station.Execute(AddRow);
    station.CommitTrans();
    station.Execute(AddRow);
    ExpectWaits(0);
}

TEST_F(SqliteWaitsTest, EndWithTheLock) {
    int times = 0;
    goOn = [&] {
        EXPECT_EQ(begun, ended + 1);
        if (++times == 3)
            other.CommitTrans();
        return true;
    };
    Hold();
    station.Execute(AddRow);
    EXPECT_EQ(times, 3);
    ExpectWaits(1);
}

TEST_F(SqliteWaitsTest, StatementDuringTheWaitOfAnotherFailsAndTheOtherContinues) {
    std::string refusal;
    goOn = [&] {
        refusal = FailureOf([&] { station.Execute("Select 1 As One"); }).Description();
        other.CommitTrans();
        return true;
    };
    Hold();
    station.Execute(AddRow);
    EXPECT_EQ(refusal, "The database is locked by another station or program. Try again when it "
                       "has been released.");
    ExpectWaits(1);
    station.Execute("Select 1 As One");
}

TEST_F(SqliteWaitsTest, FailTheStatementIfCancelled) {
    Hold();
    for (int statement = 1; statement <= 2; ++statement) {
        EXPECT_EQ(DatabaseFailureOf([&] { station.Execute(AddRow); }), "database is locked");
        ExpectWaits(statement);
    }
    station.BeginTrans();
    EXPECT_EQ(DatabaseFailureOf([&] { station.Execute("Select 1"); }), "database is locked");
    ExpectWaits(3);
    station.RollbackTrans();
    other.CommitTrans();
    station.Execute(AddRow);
    ExpectWaits(3);
}

TEST_F(SqliteWaitsTest, PassNoExceptionThroughTheEngine) {
    goOn = []() -> bool { throw std::runtime_error("no window"); };
    Hold();
    EXPECT_EQ(DatabaseFailureOf([&] { station.Execute(AddRow); }), "database is locked");
    ExpectWaits(1);
}

TEST_F(SqliteWaitsTest, BeginDuringOpeningToo) {
    station.Close();
    other.Execute("PRAGMA locking_mode=EXCLUSIVE");
    Hold();
    int times = 0;
    goOn = [&] { return ++times < 3; };
    const std::string words =
        DatabaseFailureOf([&] { station.Open(EmbeddedFolder::connectionString); });
    EXPECT_NE(words.find("is locked by another program"), std::string::npos) << words;
    EXPECT_EQ(times, 3);
    ExpectWaits(1);
    other.CommitTrans();
}

} // namespace

} // namespace Quillane
