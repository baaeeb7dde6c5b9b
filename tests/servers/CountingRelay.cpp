#include "servers/CountingRelay.h"

#include "servers/RelayLines.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <stdexcept>
#include <utility>

namespace Quillane {

namespace {

using namespace std::chrono_literals;

/// The time that a sleeping thread may need to wake up.
constexpr std::chrono::nanoseconds wakingTime = 300us;

timespec TimeSpec(std::chrono::nanoseconds time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    return {static_cast<time_t>(seconds.count()), static_cast<long>((time - seconds).count())};
}

} // namespace

CountingRelay::CountingRelay(std::string connectionString)
    : connectionString_(std::move(connectionString)), listener_(ListenOnLoopback()) {
    if (pipe(wakeUp_) != 0)
        throw std::runtime_error("no pipe for the relay");
    thread_ = std::thread([this] { Run(); });
}

CountingRelay::~CountingRelay() {
    static_cast<void>(!write(wakeUp_[1], "!", 1));
    thread_.join();
    for (const int descriptor : {listener_, wakeUp_[0], wakeUp_[1]})
        close(descriptor);
}

std::string CountingRelay::ConnectionString() const {
    return ThroughRelay(listener_, connectionString_);
}

std::vector<std::string> CountingRelay::TakeRequests() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(requests_, {});
}

void CountingRelay::Accept() {
    Call call{
        {accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC), ConnectToServer(connectionString_)}};
    if (call.lines[1] < 0)
        throw std::runtime_error("the relay does not reach the server");
    for (const int line : call.lines)
        DisableSendDelay(line);
    calls_.push_back(std::move(call));
}

void CountingRelay::NoteRequest(Call& call, std::string_view bytes) {
    const std::scoped_lock lock(mutex_);
    if (!call.isAsking)
        requests_.emplace_back();
    requests_.back() += bytes;
    call.isAsking = true;
}

void CountingRelay::Receive(Call& call, int from) {
    char bytes[65'536];
    const ssize_t size = recv(call.lines[from], bytes, sizeof bytes, 0);
    if (size <= 0) {
        call.hasEnded = true;
        return;
    }
    const std::string_view piece(bytes, static_cast<std::size_t>(size));
    if (from == 0)
        NoteRequest(call, piece);
    else
        call.isAsking = false;
    call.underWay[1 - from].push_back({Clock::now() + delay_.load(), std::string(piece)});
}

void CountingRelay::PassOnWhatIsDue(Call& call) {
    for (const int to : {0, 1})
        while (!call.underWay[to].empty() && call.underWay[to].front().due <= Clock::now()) {
            call.hasEnded =
                !SendAll(call.lines[to], call.underWay[to].front().bytes) || call.hasEnded;
            call.underWay[to].pop_front();
        }
}

std::chrono::nanoseconds CountingRelay::UntilNextIsDue() const {
    Clock::time_point next = Clock::now() + std::chrono::hours(1);
    for (const Call& call : calls_)
        for (const auto& pieces : call.underWay)
            if (!pieces.empty())
                next = std::min(next, pieces.front().due);
    return next - Clock::now();
}

void CountingRelay::Run() {
    // Without this the kernel may delay the end of a sleep.
    prctl(PR_SET_TIMERSLACK, 1);
    for (;;) {
        std::vector<pollfd> watched{{wakeUp_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
        for (const Call& call : calls_)
            for (const int line : call.lines)
                watched.push_back({line, POLLIN, 0});
        // A sleep would end too late: the rest of the delay is spent in this loop.
        const timespec wait = TimeSpec(std::max(UntilNextIsDue() - wakingTime, 0ns));
        ppoll(watched.data(), watched.size(), &wait, nullptr);
        if (watched[0].revents != 0)
            break;
        std::size_t place = 2;
        for (Call& call : calls_) {
            for (const int from : {0, 1})
                if (watched[place++].revents != 0)
                    Receive(call, from);
            PassOnWhatIsDue(call);
        }
        for (const Call& call : calls_)
            if (call.hasEnded)
                for (const int line : call.lines)
                    close(line);
        calls_.remove_if([](const Call& call) { return call.hasEnded; });
        if (watched[1].revents != 0)
            Accept();
    }
    for (const Call& call : calls_)
        for (const int line : call.lines)
            close(line);
}

std::string StatementOfTdsRequest(std::string_view request) {
    // Each packet of a request has its length after its kind and state.
    constexpr std::size_t heading = 8;
    std::string bytes;
    while (request.size() > heading) {
        const auto high = static_cast<unsigned char>(request[2]);
        const auto low = static_cast<unsigned char>(request[3]);
        const std::size_t length =
            std::clamp<std::size_t>(high * 256U + low, heading, request.size());
        bytes += request.substr(heading, length - heading);
        request.remove_prefix(length);
    }
    constexpr std::size_t shortest = 8;
    std::string text;
    for (std::size_t at = 0; at + 1 < bytes.size();) {
        const bool isText = bytes[at] >= ' ' && bytes[at] <= '~' && bytes[at + 1] == 0;
        if (isText)
            text += bytes[at];
        else if (text.size() >= shortest)
            break;
        else
            text.clear();
        at += isText ? 2 : 1;
    }
    return text;
}

} // namespace Quillane
