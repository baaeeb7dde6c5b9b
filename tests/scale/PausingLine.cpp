#include "scale/PausingLine.h"

#include "platform/runtime/Numbers.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace Quillane::Testing {

namespace {

using namespace std::chrono_literals;
using Duration = Bursts::Duration;
using Time = Bursts::Time;

/// The indicator's side: the bytes that have arrived by a given time.
class Sender {
public:
    explicit Sender(const PausingLine& line)
        : line_(line), character_(Duration(10s) / line.rate), frameStart_(Time{} - line.start) {
        while (Sent() < Time{})
            Advance();
    }

    Time Next() const { return HandedOver(Sent()); }

    std::string Until(Time now) {
        std::string bytes;
        for (; Next() <= now; Advance())
            bytes += line_.frame[at_];
        return bytes;
    }

private:
    Time Sent() const { return frameStart_ + static_cast<int>(at_ + 1) * character_; }
    Time HandedOver(Time sent) const {
        if (line_.adapter == Duration{})
            return sent;
        const auto late = sent.time_since_epoch() % line_.adapter;
        return late == Duration{} ? sent : sent - late + line_.adapter;
    }
    void Advance() {
        if (++at_ < line_.frame.size())
            return;
        at_ = 0;
        frameStart_ += static_cast<int>(line_.frame.size()) * character_ + line_.pause;
    }

    const PausingLine& line_;
    Duration character_;
    Time frameStart_;
    std::size_t at_ = 0;
};

/// The station's side: an event loop with three kinds of events.
class Receiver {
public:
    explicit Receiver(const PausingLine& line)
        : line_(line), sender_(line), silence_(std::max<Duration>(50ms, 30s / line.rate)),
          bursts_(silence_, line.leastBursts, now_), silenceDue_(now_ + silence_),
          tickDue_(now_ + line.tick) {}

    void Run(const std::function<void(const std::string&)>& take) {
        while (now_ < Time{} + line_.time) {
            now_ = std::max(now_, std::min({sender_.Next(), silenceDue_, tickDue_}));
            if (tickDue_ <= now_)
                Tick(take);
            else if (silenceDue_ <= now_)
                AwaitSilence();
            else
                Look();
        }
    }

private:
    void Tick(const std::function<void(const std::string&)>& take) {
        tickDue_ = now_ + line_.tick;
        Look();
        const std::string bytes =
            line_.leastBursts > 0 ? bursts_.Take() : std::exchange(received_, {});
        if (!bytes.empty())
            take(bytes);
        if (line_.busyAtMost > Duration{})
            now_ += Duration(static_cast<Duration::rep>(chance_() % line_.busyAtMost.count()));
    }

    void AwaitSilence() {
        Look();
        silenceDue_ = bursts_.IsSilent() ? Time::max() : now_ + silence_;
    }

    void Look() {
        const std::string bytes = sender_.Until(now_);
        if (line_.leastBursts == 0) {
            received_ += bytes;
        } else if (bytes.empty()) {
            bursts_.FindNothing(now_);
        } else {
            bursts_.Receive(bytes, now_);
            silenceDue_ = now_ + silence_;
        }
    }

    const PausingLine& line_;
    Sender sender_;
    Time now_{};
    Duration silence_;
    Bursts bursts_;
    std::string received_;
    Time silenceDue_, tickDue_;
    std::mt19937_64 chance_{1};
};

} // namespace

void PausingLine::Read(const std::function<void(const std::string&)>& take) const {
    Receiver(*this).Run(take);
}

void Count(Readings& readings, const PausingLine& line, const LiveReading& settings,
           double weight) {
    line.Read([&](const std::string& rawText) {
        const auto shown = DecodeLiveWeight(rawText, settings);
        ++readings.all;
        readings.right += shown && Val(*shown) == weight;
        readings.wrong += shown && Val(*shown) != weight;
    });
}

} // namespace Quillane::Testing
