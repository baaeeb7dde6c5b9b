#pragma once

#include <atomic>
#include <chrono>
#include <deque>
#include <list>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace Quillane {

/// A way to a database server that counts the turns on it and takes as long as it is told to: a
/// port on loopback that passes on whatever comes, in both directions.
class CountingRelay {
public:
    /// To the server that the connection string names by `Server` and `Port`.
    explicit CountingRelay(std::string connectionString);
    ~CountingRelay();
    CountingRelay(const CountingRelay&) = delete;
    CountingRelay& operator=(const CountingRelay&) = delete;

    /// The connection string with the relay in place of the server.
    std::string ConnectionString() const;

    /// From now on whatever passes is held back for so long, each way.
    void SetDelay(std::chrono::microseconds eachWay) { delay_ = eachWay; }

    /// What was asked since the last call, to the byte. Whatever a station sends until an answer
    /// begins is one request: so many round trips were made.
    std::vector<std::string> TakeRequests();

private:
    using Clock = std::chrono::steady_clock;
    struct Piece {
        Clock::time_point due;
        std::string bytes;
    };
    struct Call {
        int lines[2]; ///< to the station, to the server
        std::deque<Piece> underWay[2]{};
        bool isAsking = false;
        bool hasEnded = false;
    };

    void Run();
    void TakeCall();
    void Receive(Call& call, int from);
    void NoteRequest(Call& call, std::string_view bytes);
    void PassOnWhatIsDue(Call& call);
    std::chrono::nanoseconds UntilNextIsDue() const;

    std::string connectionString_;
    int listener_ = -1;
    int wakeUp_[2] = {-1, -1};
    std::list<Call> calls_; ///< of the thread alone
    std::atomic<std::chrono::microseconds> delay_{};
    std::mutex mutex_; ///< for the requests
    std::vector<std::string> requests_;
    std::thread thread_;
};

/// The first text of a request to SQL Server: the statement that it holds.
std::string StatementOfTdsRequest(std::string_view request);

} // namespace Quillane
