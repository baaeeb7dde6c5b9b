// A server is killed at random moments while a station saves, and is started again.
//
// The file tests/sqlserver-to-kill.local names a server that may be killed. It is not part of the
// project; the test is registered only where it exists. Its first line has the form of a station's
// Config.ini and a sign-in that may create databases. Its second line is a command: with the
// argument "kill" it ends the server like a power failure, with "start" it starts it
// again. The environment variable QUILLANE_KILLS gives the number of kills, QUILLANE_SEED the seed.

#include "faults/StationProcess.h"

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "setup/SqlServerDatabaseSetup.h"
#include "station/StationDatabase.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <thread>

namespace Quillane::Testing {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto File = QUILLANE_TEST_FOLDER "/sqlserver-to-kill.local";
constexpr int UsualKills = 5;
constexpr int UsualSeed = 20'261'121;

int FromEnvironment(const char* name, int usual) {
    const char* given = std::getenv(name);
    return given ? std::atoi(given) : usual;
}

/// The stage of the save at which the server was killed.
enum class Stage { BeforeTheTransaction, InTheTransaction, AtTheCommit, AfterTheCommit };

/// What a station has reported of its saves, the last of which failed.
struct Account {
    std::set<std::string> stored;
    std::string driver; ///< of the last
    Stage stage = Stage::BeforeTheTransaction;
    std::vector<std::string> boxes;
    bool areEntriesKept = false;

    void Take(const std::string& line) {
        if (line.starts_with("box "))
            boxes.push_back(line.substr(4));
        else if (line == "kept")
            areEntriesKept = true;
        else if (boxes.empty())
            TakeStep(line);
    }

private:
    void TakeStep(const std::string& line) {
        if (line.starts_with("entered ")) {
            driver = line.substr(8);
            stage = Stage::BeforeTheTransaction;
        } else if (line == "begin") {
            stage = Stage::InTheTransaction;
        } else if (line == "commit") {
            stage = Stage::AtTheCommit;
        } else if (line.starts_with("stored ")) {
            stored.insert(line.substr(7));
            stage = Stage::AfterTheCommit;
        }
    }
};

class KilledServer : public testing::Test {
protected:
    void SetUp() override {
        std::ifstream file(File);
        std::string fragment;
        if (!std::getline(file, fragment) || !std::getline(file, command))
            FAIL() << File << " does not name a SQL Server that may be killed; see README.md";
        driverAndServer = "Driver=SQL Server;" + fragment;
        name = "Account1_" + std::to_string(getpid());
        Connection master;
        master.Open(driverAndServer + ";Database=master");
        master.Execute("CREATE DATABASE " + name);
        Connect();
        SetUpSqlServerDatabase(*owner, SampleParticulars());
    }
    void TearDown() override {
        owner.reset();
        if (name.empty())
            return;
        Connection master;
        master.Open(driverAndServer + ";Database=master");
        master.Execute("DROP DATABASE " + name);
    }

    std::string Station() const { return driverAndServer + ";Database=" + name; }
    void RunCommand(const char* what) {
        EXPECT_EQ(std::system((command + " " + what).c_str()), 0) << what;
    }

    /// Connects as soon as the server accepts connections.
    void Connect() {
        const auto deadline = Clock::now() + std::chrono::minutes(2);
        for (;;) {
            try {
                owner = std::make_unique<Connection>();
                owner->Open(Station());
                return;
            } catch (const Failure&) {
                if (Clock::now() > deadline)
                    throw;
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            }
        }
    }
    int Ask(const std::string& query) {
        return static_cast<int>(owner->Execute(query).Fields(0).Number());
    }

    /// Starts a station and kills the server while it saves.
    Account SaveUntilKilled(int round) {
        Account account;
        StationProcess station(Station(), "r" + std::to_string(round));
        station.Order("work");
        const auto begin = Clock::now();
        while (account.stored.size() < 2 && account.boxes.empty())
            account.Take(station.NextLine());
        EXPECT_TRUE(account.boxes.empty())
            << "a restarted station cannot save: " << account.boxes.front();
        const auto twoSaves = Clock::now() - begin;
        std::this_thread::sleep_for(twoSaves * std::uniform_int_distribution(0, 1000)(chance) /
                                    1000);
        RunCommand("kill");
        for (const std::string& line : station.LinesOfOrder())
            account.Take(line);
        return account;
    }

    void ExpectReported(const Account& account) {
        ASSERT_FALSE(account.boxes.empty());
        const std::string& first = account.boxes.front();
        EXPECT_TRUE(first.starts_with("Database: [")) << first;
        EXPECT_NE(first.find("|The connection to the database server is lost."), std::string::npos)
            << first;
        EXPECT_EQ(first.find("|The save or removal may or may not have completed.") !=
                      std::string::npos,
                  account.stage == Stage::AtTheCommit)
            << first;
        if (account.stage != Stage::AfterTheCommit) {
            EXPECT_TRUE(account.areEntriesKept) << "the entries are not on the screen any more";
        }
        for (const std::string& box : account.boxes)
            ++boxes[box];
    }

    /// Each save that was reported as stored is stored. The last one is not, unless the server was
    /// killed during its commit. Every arrival is complete.
    void ExpectComplete(const Account& account) {
        for (const std::string& driver : account.stored)
            EXPECT_EQ(ArrivalsOf(driver), 1) << driver;
        stored += static_cast<int>(account.stored.size());
        if (!account.stored.contains(account.driver)) {
            const int left = ArrivalsOf(account.driver);
            EXPECT_LE(left, account.stage == Stage::AtTheCommit ? 1 : 0) << account.driver;
            stored += left;
            storedWithoutReport += left;
        }
        EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID > 1042"), stored);
        EXPECT_EQ(Ask("Select Count(*) From ArrivalsBody Where ArrivalId Not In (Select ArrivalID "
                      "From Arrivals)"),
                  0);
        EXPECT_EQ(Ask("Select Count(*) From (Select A.ArrivalID From Arrivals A Left Outer Join "
                      "ArrivalsBody B On B.ArrivalId = A.ArrivalID Where A.ArrivalID > 1042 Group "
                      "By A.ArrivalID Having Count(B.LineId) = 0 Or Count(B.LineId) <> "
                      "Min(Cast(B.BiltyNo As int)) Or Min(B.DriverName) <> Max(B.DriverName) Or "
                      "Abs(Sum(B.NetWeight) - 8203) > 0.000001) Halves"),
                  0);
    }
    int ArrivalsOf(const std::string& driver) {
        return Ask("Select Count(Distinct ArrivalId) From ArrivalsBody Where DriverName = '" +
                   driver + "'");
    }

    void PrintCounts() const {
        const auto times = [&](Stage stage) {
            const auto found = kills.find(stage);
            return found == kills.end() ? 0 : found->second;
        };
        std::cout << "kills before a transaction " << times(Stage::BeforeTheTransaction)
                  << ", inside one " << times(Stage::InTheTransaction) << ", at the commit "
                  << times(Stage::AtTheCommit) << " (of which stored " << storedWithoutReport
                  << "), after it " << times(Stage::AfterTheCommit) << "; arrivals " << stored
                  << ", all complete\n";
        for (const auto& [box, count] : boxes)
            std::cout << count << " x " << box << "\n";
        std::cout << std::flush;
    }

    std::string driverAndServer, name, command;
    std::unique_ptr<Connection> owner;
    std::mt19937 chance;
    std::map<Stage, int> kills;
    std::map<std::string, int> boxes;
    int stored = 0;
    int storedWithoutReport = 0;
};

TEST_F(KilledServer, AtRandomMomentsLeavesCompleteArrivalsAndTheNextStartSaves) {
    const int rounds = FromEnvironment("QUILLANE_KILLS", UsualKills);
    const int seed = FromEnvironment("QUILLANE_SEED", UsualSeed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    chance.seed(static_cast<unsigned>(seed));
    for (int round = 1; round <= rounds && !HasFailure(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        owner.reset();
        const Account account = SaveUntilKilled(round);
        RunCommand("start");
        Connect();
        ++kills[account.stage];
        ExpectReported(account);
        ExpectComplete(account);
    }
    PrintCounts();
}

} // namespace
} // namespace Quillane::Testing
