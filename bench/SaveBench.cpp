// A save of three bag lines, from the click to the commit, compared with the same statements run
// raw on SQLite; and the memory growth of a day of 1,000 weighments.

#include "EnteredLoad.h"
#include "data/Con.h"
#include "data/EmbeddedFunctions.h"
#include "platform/forms/core/Application.h"
#include "platform/forms/core/Boxes.h"
#include "setup/EmbeddedSchema.h"
#include "weighment/FrmWeighment.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QTemporaryDir>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace Quillane;
using Clock = std::chrono::steady_clock;

/// The statements of one save as SQLite executed them, with values.
std::vector<std::string>* recorder = nullptr;

int Record(unsigned /*kind*/, void* /*context*/, void* statement, void* text) {
    if (recorder == nullptr || std::string_view(static_cast<const char*>(text)).starts_with("--"))
        return 0;
    char* expanded = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
    recorder->emplace_back(expanded);
    sqlite3_free(expanded);
    return 0;
}

/// A new database with its session and a weighment screen.
class MeasuredStation {
public:
    explicit MeasuredStation(bool traced = false) {
        NewDatabase particulars;
        particulars.companyName = "Veltrane Flour Mills";
        particulars.userName = "first";
        particulars.password = "first";
        particulars.sampleRows = true;
        particulars.hashCost = HashCost::Minimum;
        CreateEmbeddedDatabase(File(), particulars);
        Con = std::make_unique<Connection>();
        Con->SetEmbeddedSupport(
            {.folder = folder_.path().toStdString(), .registerFunctions = [traced](sqlite3* db) {
                 RegisterEmbeddedFunctions(db);
                 if (traced)
                     sqlite3_trace_v2(db, SQLITE_TRACE_STMT, Record, nullptr);
             }});
        Con->Open("Driver=SQL Server;Server=(embedded);Database=Account1");
        SetBoxPresenter({.message = [this](const Box& box) { return Answer(box); }, .input = {}});
        screen_ = std::make_unique<FrmWeighment>();
        screen_->Show();
        screen_->Timer.SetEnabled(false);
    }

    ~MeasuredStation() {
        screen_.reset();
        Con.reset();
        SetBoxPresenter({});
    }

    std::string File() const { return folder_.filePath("Account1.db").toStdString(); }

    void FillIn() { EnterLoad(*screen_, "Ghulam Abbas"); }

    /// Enters and clears a weighment without saving, so that the processor caches are in the same
    /// state for the reference.
    void EnterAndClear() {
        FillIn();
        screen_->NewWeighment();
    }

    /// Seconds from the click to the commit.
    double Save() {
        saved_ = false;
        const auto start = Clock::now();
        screen_->BtnSave_Click();
        if (!saved_)
            throw std::runtime_error("the weighment was not saved");
        return std::chrono::duration<double>(committed_ - start).count();
    }

    std::int32_t NextId() const { return screen_->ArrivalNo; }

private:
    BoxAnswer Answer(const Box& box) {
        // The first message box is shown after the commit.
        if (box.text == "Do you want to print?") {
            committed_ = Clock::now();
            saved_ = true;
        } else if (box.title != "Serial line") {
            throw std::runtime_error(box.text);
        }
        return box.buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Ok;
    }

    QTemporaryDir folder_;
    std::unique_ptr<FrmWeighment> screen_;
    Clock::time_point committed_;
    bool saved_ = false;
};

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

/// The statements of a save up to its commit, and the id of the arrival.
struct Recording {
    std::vector<std::string> statements;
    std::string id;
};

Recording RecordSave() {
    MeasuredStation station(true);
    station.FillIn();
    Recording recording;
    recording.id = std::to_string(station.NextId());
    recorder = &recording.statements;
    station.Save();
    recorder = nullptr;
    for (std::size_t i = 0; i < recording.statements.size(); ++i)
        if (recording.statements[i].starts_with("COMMIT"))
            recording.statements.resize(i + 1);
    return recording;
}

void SaveOnTheScreen(benchmark::State& state) {
    MeasuredStation station;
    for (auto _ : state) {
        station.FillIn();
        state.SetIterationTime(station.Save());
    }
}

void SameStatementsRaw(benchmark::State& state) {
    const Recording recording = RecordSave();
    MeasuredStation station; // for its database and its session's settings
    int id = station.NextId();
    sqlite3* session = nullptr;
    // The session that the connection has opened and configured.
    Connection raw;
    raw.SetEmbeddedSupport({.folder = station.File().substr(0, station.File().rfind('/')),
                            .registerFunctions = [&session](sqlite3* opened) {
                                RegisterEmbeddedFunctions(opened);
                                session = opened;
                            }});
    raw.Open("Driver=SQL Server;Server=(embedded);Database=Account1");
    for (auto _ : state) {
        std::vector<std::string> statements;
        for (const std::string& statement : recording.statements)
            statements.push_back(Replaced(statement, recording.id, std::to_string(id)));
        station.EnterAndClear();
        const auto start = Clock::now();
        for (const std::string& statement : statements)
            if (sqlite3_exec(session, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
                throw std::runtime_error(std::string(sqlite3_errmsg(session)) + ": " + statement);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        ++id;
    }
    state.counters["statements"] = static_cast<double>(recording.statements.size());
}

double ResidentMegabytes() {
    std::ifstream statm("/proc/self/statm");
    double size = 0;
    double resident = 0;
    statm >> size >> resident;
    return resident * 4096 / 1e6;
}

/// One iteration of 1,000 weighments; the counter is the growth after the first 100.
void DayOfWeighments(benchmark::State& state) {
    MeasuredStation station;
    for (auto _ : state) {
        double afterHundred = 0;
        for (int weighment = 1; weighment <= 1000; ++weighment) {
            station.FillIn();
            station.Save();
            if (weighment == 100)
                afterHundred = ResidentMegabytes();
        }
        state.counters["growth_MB"] = ResidentMegabytes() - afterHundred;
    }
}

BENCHMARK(SaveOnTheScreen)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(300);
BENCHMARK(SameStatementsRaw)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(300);
BENCHMARK(DayOfWeighments)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    Quillane::Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
