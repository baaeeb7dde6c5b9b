#include "servers/ServerRelay.h"

#include "servers/RelayLines.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace Quillane {

ServerRelay::ServerRelay(std::string connectionString)
    : connectionString_(std::move(connectionString)), listener_(ListenOnLoopback()) {
    if (pipe(wakeUp_) != 0)
        throw std::runtime_error("no pipe for the relay");
    thread_ = std::thread([this] { Run(); });
}

ServerRelay::~ServerRelay() {
    isEnding_ = true;
    Wake();
    thread_.join();
    for (const int descriptor : {listener_, wakeUp_[0], wakeUp_[1]})
        close(descriptor);
}

std::string ServerRelay::ConnectionString() const {
    return ThroughRelay(listener_, connectionString_);
}

void ServerRelay::Break(Moment moment, Kind kind) {
    kind_ = kind;
    moment_ = moment;
    state_ = moment == Moment::Now ? State::Broken : State::Awaiting;
    Wake();
}

void ServerRelay::Restore() {
    state_ = State::Open;
    Wake();
}

void ServerRelay::Wake() const {
    static_cast<void>(!write(wakeUp_[1], "!", 1));
}

void ServerRelay::Accept() {
    Pair pair{accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC), -1};
    if (state_ != State::Broken)
        pair.server = ConnectToServer(connectionString_);
    if (pair.server < 0)
        return ClosePair(pair);
    DisableSendDelay(pair.station);
    DisableSendDelay(pair.server);
    pairs_.push_back(pair);
}

void ServerRelay::ClosePair(Pair& pair) {
    for (int* line : {&pair.station, &pair.server})
        if (*line >= 0)
            close(std::exchange(*line, -1));
}

void ServerRelay::CloseAll() {
    for (Pair& pair : pairs_)
        ClosePair(pair);
}

void ServerRelay::BreakNow() {
    state_ = State::Broken;
    if (kind_ == Kind::Cut)
        CloseAll();
}

void ServerRelay::Pass(Pair& pair, bool fromStation) {
    char data[16'384];
    const ssize_t size = recv(fromStation ? pair.station : pair.server, data, sizeof data, 0);
    if (size <= 0)
        return ClosePair(pair);
    if (state_ == State::Broken)
        return;
    const bool breaks =
        state_ == State::Awaiting && fromStation == (moment_ == Moment::AtNextRequest);
    if (breaks)
        return BreakNow();
    if (!SendAll(fromStation ? pair.server : pair.station, {data, static_cast<std::size_t>(size)}))
        ClosePair(pair);
}

// A silent relay reads and drops the bytes, so that it notices when a side closes its socket.
void ServerRelay::Run() {
    bool wasBroken = false;
    while (!isEnding_) {
        std::vector<pollfd> watched{{wakeUp_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
        for (const Pair& pair : pairs_) {
            watched.push_back({pair.station, POLLIN, 0});
            watched.push_back({pair.server, POLLIN, 0});
        }
        poll(watched.data(), watched.size(), -1);
        if (watched[0].revents != 0) {
            char orders[16];
            static_cast<void>(!read(wakeUp_[0], orders, sizeof orders));
        }
        const bool isBroken = state_ == State::Broken;
        if ((isBroken && kind_ == Kind::Cut) || (wasBroken && !isBroken))
            CloseAll();
        wasBroken = isBroken;
        for (std::size_t i = 0; i < pairs_.size(); ++i)
            for (const bool fromStation : {true, false})
                if (watched[2 + 2 * i + (fromStation ? 0 : 1)].revents != 0 &&
                    pairs_[i].station >= 0)
                    Pass(pairs_[i], fromStation);
        std::erase_if(pairs_, [](const Pair& pair) { return pair.station < 0; });
        if (watched[1].revents != 0)
            Accept();
    }
    CloseAll();
}

} // namespace Quillane
