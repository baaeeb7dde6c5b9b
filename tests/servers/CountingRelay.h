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

/// A TCP relay on loopback between a station and a database server. It counts round trips and can
/// delay the bytes that it forwards.
class CountingRelay {
public:
    /// Relays to the server that `Server` and `Port` of the connection string name.
    explicit CountingRelay(std::string connectionString);
    ~CountingRelay();
    CountingRelay(const CountingRelay&) = delete;
    CountingRelay& operator=(const CountingRelay&) = delete;

    /// The connection string with the relay's address instead of the server's.
    std::string ConnectionString() const;

    /// Delays all bytes from now on, in each direction.
    void SetDelay(std::chrono::microseconds eachWay) { delay_ = eachWay; }

    /// The requests since the last call, with all their bytes. All bytes that a station sends until
    /// an answer begins are one request, so their number is the number of round trips.
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
    void Accept();
    void Receive(Call& call, int from);
    void NoteRequest(Call& call, std::string_view bytes);
    void PassOnWhatIsDue(Call& call);
    std::chrono::nanoseconds UntilNextIsDue() const;

    std::string connectionString_;
    int listener_ = -1;
    int wakeUp_[2] = {-1, -1};
    std::list<Call> calls_; ///< only for the thread
    std::atomic<std::chrono::microseconds> delay_{};
    std::mutex mutex_; ///< for the requests
    std::vector<std::string> requests_;
    std::thread thread_;
};

/// The first text of a request to SQL Server: the statement that it holds.
std::string StatementOfTdsRequest(std::string_view request);

} // namespace Quillane
