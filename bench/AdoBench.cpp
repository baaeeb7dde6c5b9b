// The data access objects, each compared with the same work done directly on SQLite. Limits within
// one run: Open 1.3 times the time and 1.5 times the bytes of its reference, a one-row query 1.3
// times, the T-SQL translator a quarter.

#include "platform/ado/Connection.h"
#include "platform/ado/sqlite/TSqlTranslator.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <malloc.h>

namespace Quillane {

namespace {

constexpr int rowCount = 100'000;
constexpr auto allRows = "Select ArrivalId, VehicleNo, DriverName, NetWeight From ArrivalsBody";
constexpr auto oneRow = "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where "
                        "ArrivalID = 7";
constexpr auto slipRows =
    " SELECT A.ArrivalId, A.TareWeight, B.VehicleNo, B.DriverName, B.NetWeight FROM Arrivals A "
    "INNER JOIN (SELECT ArrivalId, VehicleNo, DriverName, NetWeight FROM ArrivalsBody) B "
    "ON A.ArrivalId = B.ArrivalId  WHERE A.ArrivalId =7";

void RunScript(sqlite3* database, const char* script) {
    if (sqlite3_exec(database, script, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(database));
}

/// A temporary folder with a filled database.
class FilledDatabase {
public:
    FilledDatabase() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "quillane-bench-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        sqlite3_open((folder / "Account1.db").string().c_str(), &handle);
        RunScript(
            handle,
            "PRAGMA journal_mode=WAL; BEGIN;"
            "CREATE TABLE Arrivals (ArrivalID INTEGER PRIMARY KEY, NoOfBags REAL, BagWeight "
            "REAL, TareWeight REAL);"
            "CREATE TABLE ArrivalsBody (ArrivalId INT, VehicleNo TEXT, DriverName TEXT, "
            "NetWeight REAL);"
            "CREATE INDEX BodyOfArrival ON ArrivalsBody (ArrivalId);"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
            "INSERT INTO ArrivalsBody SELECT i, 'LES-' || i, 'Driver of load ' || i, "
            "i * 0.75 FROM n;"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
            "INSERT INTO Arrivals SELECT i, 40, 100.5, 4320 FROM n; COMMIT;");
        sqlite3_close(handle);
        // With the settings of the embedded engine.
        sqlite3_open_v2((folder / "Account1.db").string().c_str(), &handle,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        connection.SetEmbeddedSupport({folder.string(), {}});
        connection.Open("Server=(embedded);Database=Account1");
    }
    ~FilledDatabase() {
        connection.Close();
        sqlite3_close(handle);
        std::filesystem::remove_all(folder);
    }

    std::filesystem::path folder;
    sqlite3* handle = nullptr;
    Connection connection;
};

FilledDatabase& Database() {
    static FilledDatabase database;
    return database;
}

/// The smallest storage for all cells: the kind, the length of texts and the bytes of each cell in
/// sequence, and the start of each row.
struct RawArena {
    void Add(const void* bytes, std::size_t count) {
        const std::size_t end = cells.size();
        cells.resize(end + count);
        std::memcpy(cells.data() + end, bytes, count);
    }
    void AddCell(sqlite3_stmt* statement, int column) {
        const auto kind = static_cast<char>(sqlite3_column_type(statement, column));
        Add(&kind, 1);
        if (kind == SQLITE_INTEGER) {
            const sqlite3_int64 whole = sqlite3_column_int64(statement, column);
            Add(&whole, sizeof whole);
        } else if (kind == SQLITE_FLOAT) {
            const double real = sqlite3_column_double(statement, column);
            Add(&real, sizeof real);
        } else if (kind != SQLITE_NULL) {
            const void* text = sqlite3_column_text(statement, column);
            const int length = sqlite3_column_bytes(statement, column);
            Add(&length, sizeof length);
            Add(text, static_cast<std::size_t>(length));
        }
    }
    void Read(sqlite3* database, const char* text) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, text, -1, &statement, nullptr);
        const int columns = sqlite3_column_count(statement);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            rows.push_back(static_cast<unsigned>(cells.size()));
            for (int column = 0; column < columns; ++column)
                AddCell(statement, column);
        }
        sqlite3_finalize(statement);
        cells.shrink_to_fit();
        rows.shrink_to_fit();
    }

    std::vector<char> cells;
    std::vector<unsigned> rows;
};

double BytesInUse() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// The heap memory of a container of rows, as counted by the allocator.
template <typename Make>
double BytesOf(Make make) {
    { const auto warmUp = make(); }
    const double before = BytesInUse();
    const auto held = make();
    return BytesInUse() - before;
}

Recordset Opened(const char* source) {
    Recordset rows;
    rows.Open(source, Database().connection);
    return rows;
}

RawArena ReadRaw(const char* source) {
    RawArena arena;
    arena.Read(Database().handle, source);
    return arena;
}

void OpenAllRows(benchmark::State& state) {
    for (auto _ : state) {
        const Recordset rows = Opened(allRows);
        if (rows.RecordCount() != rowCount)
            state.SkipWithError("not all rows");
    }
    state.counters["bytes"] = BytesOf([] { return Opened(allRows); });
}

void OpenAllRowsRaw(benchmark::State& state) {
    for (auto _ : state) {
        const RawArena arena = ReadRaw(allRows);
        if (arena.rows.size() != rowCount)
            state.SkipWithError("not all rows");
    }
    state.counters["bytes"] = BytesOf([] { return ReadRaw(allRows); });
}

void OpenOneRow(benchmark::State& state) {
    for (auto _ : state) {
        const Recordset rows = Opened(oneRow);
        benchmark::DoNotOptimize(rows.Fields(0).Number());
    }
}

void OpenOneRowRaw(benchmark::State& state) {
    sqlite3* database = Database().handle;
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, oneRow, -1, &statement, nullptr);
        sqlite3_step(statement);
        benchmark::DoNotOptimize(sqlite3_column_double(statement, 0));
        sqlite3_finalize(statement);
    }
}

void Translator(benchmark::State& state, const char* statement) {
    for (auto _ : state)
        benchmark::DoNotOptimize(FromTSql(statement));
}

void SqlitePrepare(benchmark::State& state, const char* statement) {
    sqlite3* database = Database().handle;
    const std::string text = FromTSql(statement);
    for (auto _ : state) {
        sqlite3_stmt* prepared = nullptr;
        sqlite3_prepare_v2(database, text.c_str(), -1, &prepared, nullptr);
        benchmark::DoNotOptimize(prepared);
        sqlite3_finalize(prepared);
    }
}

constexpr auto nextId = "Select IsNull(Max(ArrivalID),0)+1 From dbo.Arrivals";
constexpr auto probe = "Select TOP 1 * From ArrivalsBody Where ArrivalId=12";

BENCHMARK(OpenAllRows)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenAllRowsRaw)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenOneRow);
BENCHMARK(OpenOneRowRaw);
BENCHMARK_CAPTURE(Translator, NextId, nextId);
BENCHMARK_CAPTURE(SqlitePrepare, NextId, nextId);
BENCHMARK_CAPTURE(Translator, Probe, probe);
BENCHMARK_CAPTURE(SqlitePrepare, Probe, probe);
BENCHMARK_CAPTURE(Translator, Slip, slipRows);
BENCHMARK_CAPTURE(SqlitePrepare, Slip, slipRows);

} // namespace

} // namespace Quillane

BENCHMARK_MAIN();
