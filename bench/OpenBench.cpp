// Opening a stored arrival of three lines, beside the very statement that it runs, stepped raw: the
// whole procedure, without and with the layout of texts behind it, and of it the recordset alone.
// Each size of the database is measured in a process of its own:
//
//     OpenBench [arrivals ...]      10000 100000 1000000 where none is given
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

/// Ids that the box's path can open, a different one for each turn.
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

/// With the texts laid out that the procedure leaves to the next event.
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
