#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace Quillane {

/// A way to a database server that breaks when a test wants it to: a port on loopback that passes
/// on whatever comes, in both directions, until then.
class ServerRelay {
public:
    enum class Moment {
        Now,
        AtNextRequest, ///< the next thing that is sent never reaches the server
        AtNextAnswer,  ///< the next thing that is sent does, and the answer to it is lost
    };
    enum class Kind {
        Cut,     ///< both sides learn of it
        Silence, ///< nobody does: nothing comes any more
    };

    /// To the server that the connection string names by `Server` and `Port`.
    explicit ServerRelay(std::string connectionString);
    ~ServerRelay();
    ServerRelay(const ServerRelay&) = delete;
    ServerRelay& operator=(const ServerRelay&) = delete;

    /// The connection string with the relay in place of the server.
    std::string ConnectionString() const;

    /// From that moment on. A way that has broken takes no new calls either.
    void Break(Moment moment, Kind kind = Kind::Cut);
    /// Lets new calls through again; old ones stay lost.
    void Mend();

private:
    struct Call {
        int station = -1;
        int server = -1;
    };
    enum class State { Whole, Awaiting, Broken };

    void Run();
    void TakeCall();
    void Pass(Call& call, bool fromStation);
    void BreakNow();
    void HangUp(Call& call);
    void HangUpAll();
    void Wake() const;

    std::string connectionString_;
    int listener_ = -1;
    int wakeUp_[2] = {-1, -1};
    std::vector<Call> calls_; ///< of the thread alone
    std::atomic<State> state_ = State::Whole;
    std::atomic<Moment> moment_ = Moment::Now;
    std::atomic<Kind> kind_ = Kind::Cut;
    std::atomic<bool> isEnding_ = false;
    std::thread thread_;
};

} // namespace Quillane
