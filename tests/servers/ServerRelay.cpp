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
    return ByWayOf(listener_, connectionString_);
}

void ServerRelay::Break(Moment moment, Kind kind) {
    kind_ = kind;
    moment_ = moment;
    state_ = moment == Moment::Now ? State::Broken : State::Awaiting;
    Wake();
}

void ServerRelay::Mend() {
    state_ = State::Whole;
    Wake();
}

void ServerRelay::Wake() const {
    static_cast<void>(!write(wakeUp_[1], "!", 1));
}

void ServerRelay::TakeCall() {
    Call call{accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC), -1};
    if (state_ != State::Broken)
        call.server = CallServer(connectionString_);
    if (call.server < 0)
        return HangUp(call);
    SendAtOnce(call.station);
    SendAtOnce(call.server);
    calls_.push_back(call);
}

void ServerRelay::HangUp(Call& call) {
    for (int* line : {&call.station, &call.server})
        if (*line >= 0)
            close(std::exchange(*line, -1));
}

void ServerRelay::HangUpAll() {
    for (Call& call : calls_)
        HangUp(call);
}

void ServerRelay::BreakNow() {
    state_ = State::Broken;
    if (kind_ == Kind::Cut)
        HangUpAll();
}

void ServerRelay::Pass(Call& call, bool fromStation) {
    char data[16'384];
    const ssize_t size = recv(fromStation ? call.station : call.server, data, sizeof data, 0);
    if (size <= 0)
        return HangUp(call);
    if (state_ == State::Broken)
        return;
    const bool breaks =
        state_ == State::Awaiting && fromStation == (moment_ == Moment::AtNextRequest);
    if (breaks)
        return BreakNow();
    if (!SendAll(fromStation ? call.server : call.station, {data, static_cast<std::size_t>(size)}))
        HangUp(call);
}

// A silent way reads what comes and drops it, so that a side that gives up is noticed.
void ServerRelay::Run() {
    bool wasBroken = false;
    while (!isEnding_) {
        std::vector<pollfd> watched{{wakeUp_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
        for (const Call& call : calls_) {
            watched.push_back({call.station, POLLIN, 0});
            watched.push_back({call.server, POLLIN, 0});
        }
        poll(watched.data(), watched.size(), -1);
        if (watched[0].revents != 0) {
            char orders[16];
            static_cast<void>(!read(wakeUp_[0], orders, sizeof orders));
        }
        const bool isBroken = state_ == State::Broken;
        if ((isBroken && kind_ == Kind::Cut) || (wasBroken && !isBroken))
            HangUpAll();
        wasBroken = isBroken;
        for (std::size_t i = 0; i < calls_.size(); ++i)
            for (const bool fromStation : {true, false})
                if (watched[2 + 2 * i + (fromStation ? 0 : 1)].revents != 0 &&
                    calls_[i].station >= 0)
                    Pass(calls_[i], fromStation);
        std::erase_if(calls_, [](const Call& call) { return call.station < 0; });
        if (watched[1].revents != 0)
            TakeCall();
    }
    HangUpAll();
}

} // namespace Quillane
