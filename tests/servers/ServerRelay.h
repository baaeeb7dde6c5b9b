#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace Quillane {

/// A TCP relay on loopback between a station and a database server. It forwards all bytes in both
/// directions until a test breaks it.
class ServerRelay {
public:
    enum class Moment {
        Now,
        AtNextRequest, ///< the next request does not reach the server
        AtNextAnswer,  ///< the next request reaches the server; its answer is lost
    };
    enum class Kind {
        Cut,     ///< the sockets are closed
        Silence, ///< the sockets stay open; no bytes are forwarded
    };

    /// Relays to the server that `Server` and `Port` of the connection string name.
    explicit ServerRelay(std::string connectionString);
    ~ServerRelay();
    ServerRelay(const ServerRelay&) = delete;
    ServerRelay& operator=(const ServerRelay&) = delete;

    /// The connection string with the relay's address instead of the server's.
    std::string ConnectionString() const;

    /// Breaks at this moment. A broken relay refuses new connections too.
    void Break(Moment moment, Kind kind = Kind::Cut);
    /// Accepts new connections again. Broken ones stay broken.
    void Restore();

private:
    struct Pair {
        int station = -1;
        int server = -1;
    };
    enum class State { Open, Awaiting, Broken };

    void Run();
    void Accept();
    void Pass(Pair& pair, bool fromStation);
    void BreakNow();
    void ClosePair(Pair& pair);
    void CloseAll();
    void Wake() const;

    std::string connectionString_;
    int listener_ = -1;
    int wakeUp_[2] = {-1, -1};
    std::vector<Pair> pairs_; ///< only for the thread
    std::atomic<State> state_ = State::Open;
    std::atomic<Moment> moment_ = Moment::Now;
    std::atomic<Kind> kind_ = Kind::Cut;
    std::atomic<bool> isEnding_ = false;
    std::thread thread_;
};

} // namespace Quillane
