// Moves that are killed at random moments: the station always starts on its whole old database, and
// the next move goes through.

#include "MoveFixture.h"
#include "ServerFixture.h"

#include <QProcess>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>
#include <thread>

namespace Quillane::Office {
namespace {

int Rounds(int otherwise) {
    const char* given = std::getenv("QUILLANE_KILLS");
    return given ? std::atoi(given) : otherwise;
}

/// Begins a move in a process, and returns when it runs.
using BeginMove = std::function<void(QProcess&)>;

/// Moves that are killed within the time that a whole one takes. One in time to point the station
/// to the server is set back.
template <typename Fixture>
class KilledMoves : public Fixture {
protected:
    using Clock = std::chrono::steady_clock;

    void KillAtRandomMoments(int rounds, const BeginMove& begin) {
        const std::map<std::string, long> counts = this->Counts();
        const std::chrono::microseconds length = TimeOf(begin);
        SetBack();
        std::mt19937 chance(std::random_device{}());
        std::uniform_int_distribution<long> moment(0, length.count());
        int moved = 0;
        for (int round = 0; round < rounds; ++round) {
            SCOPED_TRACE(round);
            QProcess move;
            begin(move);
            std::this_thread::sleep_for(std::chrono::microseconds(moment(chance)));
            move.kill();
            ASSERT_TRUE(move.waitForFinished(60'000));
            ASSERT_EQ(move.readAllStandardError().toStdString(), "");
            moved += SetBack() ? 1 : 0;
            std::filesystem::remove(this->station.folder.File("Account1.db.move"));
            this->ExpectTheOldStation(counts);
            if (testing::Test::HasFailure())
                return;
        }
        std::cout << moved << " of " << rounds << " killed moves had been finished\n";
        TimeOf(begin);
        this->ExpectMoved(counts);
    }

private:
    /// Of a whole move from where the server's database is.
    std::chrono::microseconds TimeOf(const BeginMove& begin) {
        SetBack();
        const auto begun = Clock::now();
        QProcess move;
        begin(move);
        EXPECT_TRUE(move.waitForFinished(600'000));
        EXPECT_EQ(move.exitCode(), 0) << move.readAllStandardError().toStdString();
        return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begun);
    }
    /// Whether the station had been moved. The server's database is then as good as new again.
    bool SetBack() {
        if (this->Config() == this->config)
            return false;
        this->ForgetMove();
        this->station.folder.Write("Config.ini", this->config);
        return true;
    }
};

class MoveToAPostgresThatIsKilled : public MoveToPostgres {
protected:
    void ForgetMove() {
        server.Execute("DROP SCHEMA public CASCADE");
        server.Execute("CREATE SCHEMA public");
    }
};

using KilledMovesToPostgres = KilledMoves<MoveToAPostgresThatIsKilled>;

TEST_F(KilledMovesToPostgres, LeaveTheOldStationWholeAndTheNextMoveGoesThrough) {
    AddArrivals(500);
    KillAtRandomMoments(Rounds(24), [&](QProcess& move) {
        move.start(MOVE_TO_POSTGRES, {QString::fromStdString(station.folder.path),
                                      QString::fromStdString(database->ConnectionString())});
        ASSERT_TRUE(move.waitForStarted());
    });
}

using KilledMovesToServer = KilledMoves<StationToMoveToServer>;

TEST_F(KilledMovesToServer, LeaveTheOldStationWholeAndTheNextMoveGoesThrough) {
    KillAtRandomMoments(Rounds(3), [&](QProcess& move) {
        move.start(QUILLANE_OFFICE, CommandLine());
        ASSERT_TRUE(move.waitForStarted());
        move.write((Place().password + "\n").c_str());
        move.closeWriteChannel();
    });
}

} // namespace
} // namespace Quillane::Office
