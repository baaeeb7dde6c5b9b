// Eight stations, each a process with its screen, save on one database server as fast as they can.
// The reference is eight processes that send the same statements directly to the driver, for an
// identical database. Both run alternately, so that both are measured under the same load. At the
// end every arrival that was reported as saved must be in the database.
//
// First each station types ids of a separate range, so that there are no conflicts: once without
// painting the screens, because real stations have their own processors for it, and once with
// painting. Then all stations take the next free id, as fast as they can, and conflict with each
// other.
//
//     ManyStationsBench [saves of each station]

#include "ServerStation.h"

#include "Crew.h"
#include "OffscreenDisplay.h"
#include "RawStation.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Application.h"
#include "servers/SqlServerDatabase.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Quillane {

namespace {

constexpr int stations = 8;
constexpr int turns = 10;
/// The ids of the sample rows are smaller; the ranges of the stations start here.
constexpr int firstRange = 10'000;
constexpr int rangeOfStation = 10'000;

/// The loop of a crew process: makes the requested saves and prints each one and its refusals.
template <typename SaveOne>
void Obey(const std::string& name, const SaveOne& saveOne) {
    std::cout << "ready" << std::endl;
    int serial = 0;
    for (int saves = 0; std::cin >> saves;) {
        for (int save = 0; save < saves; ++save) {
            const std::string driver = name + "-" + std::to_string(++serial);
            int refusals = 0;
            const int id = saveOne(driver, serial, refusals);
            std::cout << "saved " << driver << ' ' << id << ' ' << refusals << '\n';
        }
        std::cout << "done" << std::endl;
    }
}

/// The id that a process types for its next weighment; 0 to keep the shown one.
int TypedId(const std::string& kind, const std::string& name, int serial) {
    return kind.find("-ranges") != std::string::npos
               ? firstRange + rangeOfStation * (name.back() - '0') + serial
               : 0;
}

void WorkAsStation(const std::string& kind, const std::string& name,
                   const std::string& connectionString) {
    ServerStation station(connectionString);
    if (kind.ends_with("-unpainted"))
        station.StopPainting();
    Obey(name, [&](const std::string& driver, int serial, int& refusals) {
        station.Enter(driver, TypedId(kind, name, serial));
        while (!station.TrySave())
            ++refusals;
        return station.SavedId();
    });
}

void WorkRaw(const std::string& kind, const std::string& name,
             const std::string& connectionString) {
    RawStation station(connectionString);
    Obey(name, [&](const std::string& driver, int serial, int& refusals) {
        if (const int id = TypedId(kind, name, serial); id > 0)
            station.TypeId(id);
        while (!station.TrySave(driver))
            ++refusals;
        station.Begin();
        return station.SavedId();
    });
}

/// The stored rows of one arrival.
struct Stored {
    int lines = 0;
    std::set<std::string> drivers;
};

std::map<int, Stored> StoredArrivals(const std::string& connectionString) {
    Connection connection;
    connection.Open(connectionString);
    Recordset rows;
    rows.Open("Select A.ArrivalID, B.DriverName From Arrivals A Left Join ArrivalsBody B On "
              "B.ArrivalId = A.ArrivalID Where A.ArrivalID > 1042",
              connection);
    std::map<int, Stored> arrivals;
    for (; !rows.Eof(); rows.MoveNext()) {
        Stored& arrival = arrivals[rows.Fields(0).Long()];
        ++arrival.lines;
        arrival.drivers.insert(rows.Fields(1).TextOrEmpty());
    }
    return arrivals;
}

/// Compares the reported saves with the stored arrivals. If another station saves the same id
/// between the check of the id and the write of the header, the later save replaces the earlier one
/// as a whole, as the rules of saving require; such an arrival counts as taken over.
bool Check(const Crew& crew, const std::string& connectionString) {
    const std::map<int, Stored> arrivals = StoredArrivals(connectionString);
    std::map<int, std::set<std::string>> reported;
    for (const Crew::Save& save : crew.Saves())
        reported[save.id].insert(save.driver);
    std::size_t incomplete = 0, unreported = 0, lost = 0;
    for (const auto& [id, arrival] : arrivals) {
        incomplete += arrival.lines != 3 || arrival.drivers.size() != 1;
        unreported += !reported.contains(id) || !reported.at(id).contains(*arrival.drivers.begin());
    }
    for (const auto& [id, drivers] : reported)
        lost += !arrivals.contains(id);
    std::printf(
        "\n%zu saves reported by the stations, %zu arrivals stored, %zu taken over by a later "
        "save of the same id\n%zu lost, %zu incomplete, %zu never reported\n",
        crew.Saves().size(), arrivals.size(), crew.Saves().size() - reported.size(), lost,
        incomplete, unreported);
    return lost + incomplete + unreported == 0;
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

bool Measure(const std::string& program, int saves, const std::string& kind, const char* title) {
    const SqlServerDatabase ofStations;
    const SqlServerDatabase ofReference;
    MakeStationDatabase(ofStations.ConnectionString());
    MakeStationDatabase(ofReference.ConnectionString());
    Crew crew(program, "station" + kind, ofStations.ConnectionString(), stations);
    Crew reference(program, "raw" + kind, ofReference.ConnectionString(), stations);
    // First let the server compile the statements of each connection.
    crew.Work(2);
    reference.Work(2);
    std::vector<double> ofCrew, ofRaw;
    std::printf("\n%s: %d processes, saves in a second\n%10s %10s %7s\n", title, stations,
                "stations", "raw", "ratio");
    for (int turn = 0; turn < turns; ++turn) {
        double speeds[2] = {};
        for (const int which : {turn % 2, 1 - turn % 2})
            speeds[which] = (which == 0 ? crew : reference).Work(std::max(saves / turns, 1));
        ofCrew.push_back(speeds[0]);
        ofRaw.push_back(speeds[1]);
        std::printf("%10.1f %10.1f %7.2f\n", speeds[0], speeds[1], speeds[0] / speeds[1]);
        std::fflush(stdout);
    }
    std::printf("%10.1f %10.1f %7.2f  medians and their ratio\n", Median(ofCrew), Median(ofRaw),
                Median(ofCrew) / Median(ofRaw));
    std::printf("refused and pressed again: %d by the stations, %d raw\n", crew.Refusals(),
                reference.Refusals());
    return Check(crew, ofStations.ConnectionString());
}

bool MeasureAll(const std::string& program, int saves) {
    const std::pair<const char*, const char*> kinds[] = {
        {"-ranges-unpainted", "Ids typed by each station, screens not painted"},
        {"-ranges", "Ids typed by each station, screens painted"},
        {"", "The next free id for all, screens painted"}};
    bool isRight = true;
    for (const auto& [kind, title] : kinds)
        isRight = Measure(program, saves, kind, title) && isRight;
    return isRight;
}

} // namespace

} // namespace Quillane

int main(int argc, char** argv) {
    using namespace Quillane;
    try {
        if (argc == 4 && std::string(argv[1]).starts_with("raw")) {
            WorkRaw(argv[1], argv[2], argv[3]);
            return 0;
        }
        if (argc == 4) {
            const OffscreenDisplay display;
            const Application application(argc, argv);
            WorkAsStation(argv[1], argv[2], argv[3]);
            return 0;
        }
        const std::string whyMissing = SqlServerDatabase::WhyMissing();
        if (whyMissing.empty())
            return MeasureAll(argv[0], argc > 1 ? std::stoi(argv[1]) : 500) ? 0 : 1;
        std::cerr << "ManyStationsBench: " << whyMissing << '\n';
        return 77;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
