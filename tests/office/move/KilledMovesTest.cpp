// Moves that are killed at random moments: the station always starts on its complete old database,
// and the next move succeeds.

#include "MoveFixture.h"
#include "ServerFixture.h"
#include "support/KilledProcess.h"

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

/// Begins a move in a process, and returns when it is running.
using BeginMove = std::function<void(QProcess&)>;

/// Kills moves within the time that a complete one takes. If one has already pointed the station to
/// the server, this is undone.
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
            ASSERT_NO_FATAL_FAILURE(Kill(move));
            moved += SetBack() ? 1 : 0;
            std::filesystem::remove(this->station.folder.File("Account1.db.move"));
            this->ExpectTheOldStation(counts);
            if (testing::Test::HasFailure())
                return;
        }
        std::cout << moved << " of " << rounds << " of the killed moves had finished\n";
        TimeOf(begin);
        this->ExpectMoved(counts);
    }

private:
    /// The time of a complete move to the present database on the server.
    std::chrono::microseconds TimeOf(const BeginMove& begin) {
        SetBack();
        const auto begun = Clock::now();
        QProcess move;
        begin(move);
        EXPECT_TRUE(move.waitForFinished(600'000));
        EXPECT_EQ(move.exitCode(), 0) << move.readAllStandardError().toStdString();
        return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begun);
    }
    /// True if the station had been moved. The server's database is then prepared like a new one.
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

TEST_F(KilledMovesToPostgres, LeaveTheOldStationCompleteAndTheNextMoveSucceeds) {
    AddArrivals(500);
    KillAtRandomMoments(Rounds(24), [&](QProcess& move) {
        move.start(MOVE_TO_POSTGRES, {QString::fromStdString(station.folder.path),
                                      QString::fromStdString(database->ConnectionString())});
        ASSERT_TRUE(move.waitForStarted());
    });
}

using KilledMovesToServer = KilledMoves<StationToMoveToServer>;

TEST_F(KilledMovesToServer, LeaveTheOldStationCompleteAndTheNextMoveSucceeds) {
    KillAtRandomMoments(Rounds(3), [&](QProcess& move) {
        move.start(QUILLANE_OFFICE, CommandLine());
        ASSERT_TRUE(move.waitForStarted());
        move.write((Place().password + "\n").c_str());
        move.closeWriteChannel();
    });
}

} // namespace
} // namespace Quillane::Office
