// One key press on the search screens, from the key to the painted grid, compared with stepping its
// statement raw; and the memory of the list of the arrivals of a year. Each size of the database is
// measured in a separate process:
//
//     SearchBench [arrivals ...]      default: 10000 100000 1000000
//
// Limits: ratio 1.3, 5 ms of processor time for a complete id, and twice the bytes of the shown
// values for the memory.

#include "EachSize.h"
#include "ManyArrivals.h"
#include "Memory.h"
#include "RawSession.h"
#include "SideBySide.h"
#include "data/Con.h"
#include "platform/runtime/Numbers.h"
#include "search/SchArrivals.h"
#include "search/SchParty.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QTest>
#include <QWindow>

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using namespace Quillane;

constexpr double limit = 1.3;

/// Counts the paint events of the lines of a grid.
class PaintCount : public QObject {
public:
    explicit PaintCount(SSOleDBGrid& grid)
        : view_(dynamic_cast<QAbstractScrollArea&>(grid.Widget())) {
        view_.viewport()->installEventFilter(this);
    }

    /// Runs an action and then processes events, as the event loop does after a key, until the grid
    /// has been painted.
    void AwaitOneAfter(const std::function<void()>& act) {
        const int before = count_;
        act();
        for (int tries = 0; count_ == before; ++tries) {
            if (tries > 1000)
                throw std::runtime_error("the grid was not painted");
            QCoreApplication::processEvents();
        }
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++count_;
        return false;
    }

private:
    QAbstractScrollArea& view_;
    int count_ = 0;
};

/// A visible search screen that records its statements.
template <typename Search>
class Shown {
public:
    explicit Shown(SSOleDBGrid Search::*grid) : painted_(screen.*grid), grid_(screen.*grid) {
        Con->StatementObserver = [this](std::string_view text) { statement = text; };
        painted_.AwaitOneAfter([this] { screen.Show(); });
    }
    ~Shown() {
        Con->StatementObserver = {};
        screen.Unload();
    }

    /// The state before the key press: the box has the focus and contains all but the last
    /// character.
    void Prepare(TextBox& box, std::string_view text) {
        box.SetFocus();
        painted_.AwaitOneAfter([&] { box.SetText(text); });
        QCoreApplication::processEvents();
    }
    /// A character or a Qt::Key.
    template <typename Key>
    void Press(Key key) {
        painted_.AwaitOneAfter([&] { QTest::keyEvent(QTest::Press, screen.windowHandle(), key); });
    }
    template <typename Key>
    void Release(Key key) {
        QTest::keyEvent(QTest::Release, screen.windowHandle(), key);
    }
    int Rows() const { return grid_.Rows(); }

    Search screen;
    std::string statement; ///< the last statement

private:
    PaintCount painted_;
    SSOleDBGrid& grid_;
};

int TurnsFor(const ManyArrivals& database) {
    return database.Arrivals() > 200'000 ? 21 : 101;
}

/// The last key of a text typed into a box, compared with its statement.
template <typename Search>
void MeasureKey(Shown<Search>& shown, TextBox& box, const std::string& text, std::string_view what,
                const RawSession& raw, int turns) {
    const std::string before = text.substr(0, text.size() - 1);
    shown.Prepare(box, before);
    shown.Press(text.back());
    const std::string statement = RawSession::Statement(shown.statement);
    const int rows = shown.Rows();
    if (raw.Step(statement.c_str()) != rows)
        throw std::runtime_error("the screen does not show the rows of its statement");
    const SideBySide measured(
        turns, {[&] { shown.Prepare(box, before); }, [&] { shown.Press(text.back()); }},
        {{}, [&] { raw.Step(statement.c_str()); }});
    PrintLine(what, rows, measured, limit);
    shown.Prepare(box, "");
}

void MeasureEmptying(Shown<SchArrivals>& shown, const RawSession& raw, int turns) {
    TextBox& box = shown.screen.TxtFilter;
    shown.Prepare(box, "a");
    shown.Press(Qt::Key_Backspace);
    const std::string statement = RawSession::Statement(shown.statement);
    const SideBySide measured(
        turns, {[&] { shown.Prepare(box, "a"); }, [&] { shown.Press(Qt::Key_Backspace); }},
        {{}, [&] { raw.Step(statement.c_str()); }});
    PrintLine("Arrivals, Name emptied: the whole year", shown.Rows(), measured, limit);
}

void MeasureLoad(const RawSession& raw, int turns) {
    std::string statement;
    long rows = 0;
    auto shown = std::make_unique<Shown<SchArrivals>>(&SchArrivals::GrdSch);
    shown->screen.RefreshArrivals();
    statement = RawSession::Statement(shown->statement);
    rows = shown->Rows();
    const SideBySide measured(
        turns,
        {[&] { shown.reset(); },
         [&] { shown = std::make_unique<Shown<SchArrivals>>(&SchArrivals::GrdSch); }},
        {{}, [&] { raw.Step(statement.c_str()); }});
    PrintLine("Arrivals, opening the screen", rows, measured, limit);
}

/// Each digit separately; the statement finds its row by the key.
void MeasureId(Shown<SchArrivals>& shown, const ManyArrivals& database, int turns) {
    const std::string id = std::to_string(database.Arrivals() - 5);
    std::printf("\nArrivals, an id typed digit by digit: ms of the processor to the painted grid, "
                "limit 5\n");
    for (std::size_t digits = 1; digits <= id.size(); ++digits) {
        const std::string before = id.substr(0, digits - 1);
        const Turns measured =
            Repeated(turns, {[&] { shown.Prepare(shown.screen.TxtFilterId, before); },
                             [&] { shown.Press(id[digits - 1]); }});
        std::printf("  %-10s %6d rows  %7.3f\n", id.substr(0, digits).c_str(), shown.Rows(),
                    measured.Median());
    }
    shown.Prepare(shown.screen.TxtFilterId, "");
}

void MeasurePartyId(Shown<SchParty>& shown, int turns) {
    const std::string id = "6014987";
    const Turns last = Repeated(
        turns, {[&] { shown.Prepare(shown.screen.TxtFilterId, id.substr(0, id.size() - 1)); },
                [&] { shown.Press(id.back()); }});
    std::printf("\nParties, the last digit of an id: %.3f ms of the processor to the painted grid "
                "(no statement runs)\n",
                last.Median());
}

std::size_t ShownBytes() {
    Shown<SchArrivals> shown(&SchArrivals::GrdSch);
    shown.screen.RefreshArrivals();
    Recordset rows;
    rows.Open(shown.statement, *Con);
    std::size_t bytes = 0;
    for (int row = 0; row < rows.RecordCount(); ++row)
        bytes += rows.ValueAt(row, 0).Text().size() +
                 ShownDate(rows.ValueAt(row, 1).AsDate()).size() +
                 rows.ValueAt(row, 2).Text().size() + rows.ValueAt(row, 3).Text().size();
    return bytes;
}

/// From the screen with an empty list to the screen with the list of the year.
MemoryGrowth MeasureMemory() {
    Shown<SchArrivals> shown(&SchArrivals::GrdSch);
    shown.Prepare(shown.screen.TxtFilterId, "x");
    const MemoryGrowth growth([&] { shown.Prepare(shown.screen.TxtFilterId, ""); });
    return growth;
}

void Measure(const ManyArrivals& database) {
    // Memory first, while the process is in the same state as a station.
    const MemoryGrowth growth = MeasureMemory();
    const auto shownBytes = static_cast<double>(ShownBytes());
    std::printf("\nmemory: %d rows of %.2f MB as shown; resident %.2f MB (%.2f times), at its peak "
                "%.2f MB (%.2f times); from the heap %.2f MB (%.2f times); limit 2\n",
                database.InSearchedYear(), shownBytes / 1e6, growth.resident / 1e6,
                growth.resident / shownBytes, growth.peak / 1e6, growth.peak / shownBytes,
                growth.heap / 1e6, growth.heap / shownBytes);
    const RawSession raw(database);
    const int turns = TurnsFor(database);
    PrintHeading("the last key, to the painted grid");
    MeasureLoad(raw, turns);
    {
        Shown<SchArrivals> shown(&SchArrivals::GrdSch);
        TextBox& name = shown.screen.TxtFilter;
        MeasureEmptying(shown, raw, turns);
        MeasureKey(shown, name, "a", "Arrivals, Name \"a\"", raw, turns);
        MeasureKey(shown, name, "Traders", "Arrivals, Name \"Traders\"", raw, turns);
        MeasureKey(shown, name, "Zulfiqar Warraich", "Arrivals, Name \"Zulfiqar Warraich\"", raw,
                   turns);
        MeasureId(shown, database, turns);
    }
    Shown<SchParty> shown(&SchParty::Grid);
    PrintHeading("");
    constexpr int many = 201;
    MeasureKey(shown, shown.screen.TxtFilter, "a", "Parties, Name \"a\"", raw, many);
    MeasureKey(shown, shown.screen.TxtFilter, "Traders", "Parties, Name \"Traders\"", raw, many);
    MeasureKey(shown, shown.screen.TxtFilter, "Zulfiqar Warraich",
               "Parties, Name \"Zulfiqar Warraich\"", raw, many);
    MeasurePartyId(shown, many);
}

} // namespace

int main(int argc, char** argv) {
    return MeasureEachSize(argc, argv, Measure);
}
