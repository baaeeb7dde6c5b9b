// Opening a stored arrival of three lines, compared with stepping its statement raw: the whole
// procedure, without and with the text layout that follows it, and only its recordset. Each size of
// the database is measured in a separate process:
//
//     OpenBench [arrivals ...]      default: 10000 100000 1000000
//
// The limit of each is 1.3.

#include "EachSize.h"
#include "ManyArrivals.h"
#include "RawSession.h"
#include "SideBySide.h"
#include "data/Con.h"
#include "slip/SlipStatement.h"
#include "weighment/FrmWeighment.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

using namespace Quillane;

constexpr double limit = 1.3;
constexpr int turns = 501;

/// Ids that can be opened by typing, a different one for each turn.
class Ids {
public:
    explicit Ids(const ManyArrivals& database) : most_(std::min(database.Arrivals(), 32'000)) {}
    std::int16_t Next() {
        last_ = last_ % most_ + 7919;
        last_ = last_ % most_ + 1;
        return static_cast<std::int16_t>(last_);
    }

private:
    int most_;
    int last_ = 0;
};

void Load(FrmWeighment& screen, std::int16_t id) {
    screen.LoadArrival(id);
    if (screen.ArrivalNo != id || !screen.IsOpened)
        throw std::runtime_error("the arrival was not opened");
}

/// Includes the text layout in the next event.
void LoadAndLayOut(FrmWeighment& screen, std::int16_t id) {
    Load(screen, id);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::User);
}

void MeasureStatement(const ManyArrivals& database, const RawSession& raw) {
    Ids ids(database);
    Ids idsOfReference(database);
    std::string program;
    std::string reference;
    const SideBySide measured(
        turns,
        {[&] { program = SlipStatement(ids.Next()); },
         [&] {
             Recordset rows;
             rows.Open(program, *Con, adOpenStatic, adLockReadOnly, adCmdUnspecified);
             benchmark::DoNotOptimize(rows.RecordCount());
         }},
        {[&] { reference = RawSession::Statement(SlipStatement(idsOfReference.Next())); },
         [&] { raw.Step(reference.c_str()); }});
    PrintLine("The recordset of an arrival", ManyArrivals::LinesEach, measured, limit);
}

void MeasureProcedure(const ManyArrivals& database, const RawSession& raw, FrmWeighment& screen,
                      void (*load)(FrmWeighment&, std::int16_t), std::string_view what) {
    Ids ids(database);
    Ids idsOfReference(database);
    std::int16_t id = 0;
    std::string reference;
    const SideBySide measured(
        turns,
        {[&] {
             id = ids.Next();
             QCoreApplication::processEvents();
         },
         [&] { load(screen, id); }},
        {[&] { reference = RawSession::Statement(SlipStatement(idsOfReference.Next())); },
         [&] { raw.Step(reference.c_str()); }});
    PrintLine(what, ManyArrivals::LinesEach, measured, limit);
}

void Measure(const ManyArrivals& database) {
    const RawSession raw(database);
    FrmWeighment screen;
    screen.Show();
    screen.Timer.SetEnabled(false);
    QCoreApplication::processEvents();
    PrintHeading("opening an arrival");
    MeasureStatement(database, raw);
    MeasureProcedure(database, raw, screen, Load, "LoadArrival, not painted");
    MeasureProcedure(database, raw, screen, LoadAndLayOut, "LoadArrival, texts laid out");
}

} // namespace

int main(int argc, char** argv) {
    return Quillane::MeasureEachSize(argc, argv, Measure);
}
