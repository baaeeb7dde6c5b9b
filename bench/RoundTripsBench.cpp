// The number of round trips between a station and a database server, and their cost for a distant
// server. A relay counts and delays them.

#include "ServerStation.h"

#include "OffscreenDisplay.h"
#include "RawStation.h"
#include "platform/forms/core/Application.h"
#include "servers/CountingRelay.h"
#include "servers/SqlServerDatabase.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace Quillane {

namespace {

using namespace std::chrono_literals;

constexpr auto delay = 5ms;
constexpr auto allowance = 10ms;
constexpr int savesPerRun = 21;

void List(const char* what, const std::vector<std::string>& requests) {
    std::printf("\n%s: %zu round trips\n", what, requests.size());
    for (const std::string& request : requests)
        std::printf("    %.110s\n", StatementOfTdsRequest(request).c_str());
}

double Milliseconds(std::chrono::duration<double> time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

/// The times of several saves, in milliseconds.
class Times {
public:
    void Add(std::chrono::duration<double> time) {
        times_.push_back(Milliseconds(time));
        std::ranges::sort(times_);
    }
    double Median() const { return times_[times_.size() / 2]; }
    void Print(const char* what) const {
        std::printf("%-36s %7.2f ms (%.2f-%.2f)\n", what, Median(), times_.front(), times_.back());
    }

private:
    std::vector<double> times_;
};

class RoundTrips {
public:
    RoundTrips()
        : relay_((MakeStationDatabase(database_.ConnectionString()), database_.ConnectionString())),
          station_(relay_.ConnectionString()), bare_(relay_.ConnectionString()) {
        station_.Committed = [this] { requestsOfSave_ = relay_.TakeRequests(); };
    }

    void Count() {
        station_.Enter("Ghulam Abbas");
        relay_.TakeRequests();
        station_.TrySave();
        List("First save of three bag lines, click to commit", requestsOfSave_);
        List("New weighment", relay_.TakeRequests());
        station_.Enter("Ghulam Abbas");
        relay_.TakeRequests();
        station_.TrySave();
        List("Every other save", requestsOfSave_);
        tripsOfSave_ = requestsOfSave_.size();
        relay_.TakeRequests();
        station_.Open(station_.SavedId());
        List("Opening by id", relay_.TakeRequests());
        station_.Screen().NewWeighment();
    }

    /// Runs the station and the same statements without it alternately.
    void Time() {
        std::printf("\nSave of three bag lines, click to commit; %d of each\n", savesPerRun);
        Take("without delay", "only the same statements");
        relay_.SetDelay(delay);
        const double delayed = Take("5 ms each way", "only the same statements");
        relay_.SetDelay(0ms);
        const double limit =
            static_cast<double>(tripsOfSave_) * 2 * Milliseconds(delay) + Milliseconds(allowance);
        std::printf("%-36s %7.2f ms%s\n", "limit", limit, delayed > limit ? "  over" : "");
    }

private:
    double Take(const char* ofStation, const char* ofReference) {
        Times station;
        Times bare;
        for (int save = 0; save < savesPerRun; ++save) {
            station_.Enter("Ghulam Abbas");
            station_.TrySave();
            station.Add(station_.Time());
            bare_.Begin();
            const auto start = std::chrono::steady_clock::now();
            bare_.TrySave("Ghulam Abbas");
            bare.Add(std::chrono::steady_clock::now() - start);
            station_.Screen().NewWeighment();
        }
        station.Print(ofStation);
        bare.Print(ofReference);
        return station.Median();
    }

    SqlServerDatabase database_;
    CountingRelay relay_;
    ServerStation station_;
    RawStation bare_;
    std::vector<std::string> requestsOfSave_;
    std::size_t tripsOfSave_ = 0;
};

} // namespace

} // namespace Quillane

int main(int argc, char** argv) {
    const std::string whyMissing = Quillane::SqlServerDatabase::WhyMissing();
    if (!whyMissing.empty()) {
        std::fprintf(stderr, "RoundTripsBench: %s\n", whyMissing.c_str());
        return 77;
    }
    const Quillane::OffscreenDisplay display;
    const Quillane::Application application(argc, argv);
    try {
        Quillane::RoundTrips trips;
        trips.Count();
        for (int run = 0; run < 3; ++run)
            trips.Time();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
