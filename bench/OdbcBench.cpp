// What the data access objects cost on a server behind ODBC, each beside the same work done with
// the driver's bare functions, on a PostgreSQL server of the benchmark's own. Compare the pairs of
// one run: each at most 1.2 times its reference.
//
// The bare loop knows the columns ahead and binds them in blocks of the same size. It comes twice:
// with texts as UTF-16, as the engine asks for them, and with texts as the driver turns them into
// the station's character set by itself, which is right only where that is UTF-8.

#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Engine.h"
#include "platform/ado/OdbcConnect.h"
#include "platform/ado/OdbcText.h"
#include "platform/ado/PostgresServer.h"
#include "platform/ado/ResultSet.h"

#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

namespace Quillane {

namespace {

constexpr int rowCount = 100'000;
constexpr std::size_t blockRows = 256;
constexpr auto allRows = "Select ArrivalId, VehicleNo, DriverName, NetWeight From ArrivalsBody";
constexpr auto oneRow = "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where "
                        "ArrivalID = 7";

/// A server with a filled database, and two connections to it: the system's and a bare one.
class FilledServer {
public:
    FilledServer() {
        const std::string text = server_.ConnectionString("postgres");
        connection.Open(text);
        connection.Execute("Create Table Arrivals (ArrivalID int Primary Key, NoOfBags float8, "
                           "BagWeight float8, TareWeight float8)");
        connection.Execute("Create Table ArrivalsBody (ArrivalId int, VehicleNo varchar(40), "
                           "DriverName varchar(60), NetWeight float8)");
        connection.Execute("Insert Into ArrivalsBody Select i, 'LES-' || i, 'Driver of load ' || "
                           "i, i * 0.75 From generate_series(1, 100000) i");
        connection.Execute("Insert Into Arrivals Select i, 40, 100.5, 4320 From "
                           "generate_series(1, 1000) i");
        connection.Execute("Analyze");
        bare_ = ConnectByOdbc(environment_, ConnectionString(text), SignIn{});
    }

    const OdbcHandle& Bare() const { return bare_; }

    Connection connection;

private:
    PostgresServer server_;
    OdbcHandle environment_ = OdbcEnvironment();
    OdbcHandle bare_;
};

FilledServer& Server() {
    static FilledServer server;
    return server;
}

OdbcHandle BareStatement(const char* source) {
    OdbcHandle statement(SQL_HANDLE_STMT, Server().Bare());
    OdbcText text = ToOdbc(source);
    statement.Check(SQLExecDirectW(statement.Get(), text.data(), SQL_NTS));
    return statement;
}

/// A column of a block, bound by hand.
template <typename Cell>
struct BareColumn {
    BareColumn(const OdbcHandle& statement, SQLUSMALLINT number, SQLSMALLINT cType,
               std::size_t cellsPerRow)
        : cells(blockRows * cellsPerRow), lengths(blockRows), width(cellsPerRow) {
        statement.Check(SQLBindCol(statement.Get(), number, cType, cells.data(),
                                   static_cast<SQLLEN>(width * sizeof(Cell)), lengths.data()));
    }

    std::vector<Cell> cells;
    std::vector<SQLLEN> lengths;
    std::size_t width;
};

void AddText(const BareColumn<char>& column, std::size_t row, std::string&, ResultSet& rows) {
    rows.AddText(
        {column.cells.data() + row * column.width, static_cast<std::size_t>(column.lengths[row])});
}

void AddText(const BareColumn<SQLWCHAR>& column, std::size_t row, std::string& utf8,
             ResultSet& rows) {
    utf8.clear();
    AppendUtf8(utf8, column.cells.data() + row * column.width,
               static_cast<std::size_t>(column.lengths[row]) / sizeof(SQLWCHAR));
    rows.AddText(utf8);
}

template <typename Character>
ResultSet ReadBare(SQLSMALLINT textType) {
    const OdbcHandle statement = BareStatement(allRows);
    SQLULEN fetched = 0;
    const auto set = [&](SQLINTEGER attribute, SQLPOINTER value) {
        statement.Check(SQLSetStmtAttrW(statement.Get(), attribute, value, 0));
    };
    set(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(blockRows));
    set(SQL_ATTR_ROWS_FETCHED_PTR, &fetched);
    const BareColumn<std::int64_t> id(statement, 1, SQL_C_SBIGINT, 1);
    const BareColumn<Character> vehicle(statement, 2, textType, 81);
    const BareColumn<Character> driver(statement, 3, textType, 121);
    const BareColumn<double> weight(statement, 4, SQL_C_DOUBLE, 1);
    ResultSet rows;
    rows.SetColumns({"ArrivalId", "VehicleNo", "DriverName", "NetWeight"});
    std::string utf8;
    while (SQLFetch(statement.Get()) != SQL_NO_DATA)
        for (std::size_t row = 0; row < fetched; ++row) {
            rows.BeginRow();
            rows.AddWhole(id.cells[row]);
            AddText(vehicle, row, utf8, rows);
            AddText(driver, row, utf8, rows);
            rows.AddReal(weight.cells[row]);
        }
    rows.Finish();
    return rows;
}

void ExpectAll(benchmark::State& state, int count) {
    if (count != rowCount)
        state.SkipWithError("not all rows");
}

void OpenAllRows(benchmark::State& state) {
    for (auto _ : state) {
        Recordset rows;
        rows.Open(allRows, Server().connection);
        ExpectAll(state, rows.RecordCount());
    }
}

void OpenAllRowsBare(benchmark::State& state) {
    for (auto _ : state)
        ExpectAll(state, ReadBare<SQLWCHAR>(SQL_C_WCHAR).RowCount());
}

void OpenAllRowsBareInStationsSet(benchmark::State& state) {
    for (auto _ : state)
        ExpectAll(state, ReadBare<char>(SQL_C_CHAR).RowCount());
}

void OpenOneRow(benchmark::State& state) {
    for (auto _ : state) {
        Recordset rows;
        rows.Open(oneRow, Server().connection);
        benchmark::DoNotOptimize(rows.Fields(0).Number());
    }
}

void OpenOneRowBare(benchmark::State& state) {
    for (auto _ : state) {
        const OdbcHandle statement = BareStatement(oneRow);
        double gross = 0;
        double tare = 0;
        SQLBindCol(statement.Get(), 1, SQL_C_DOUBLE, &gross, 0, nullptr);
        SQLBindCol(statement.Get(), 2, SQL_C_DOUBLE, &tare, 0, nullptr);
        SQLFetch(statement.Get());
        benchmark::DoNotOptimize(gross + tare);
    }
}

BENCHMARK(OpenAllRows)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenAllRowsBare)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenAllRowsBareInStationsSet)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenOneRow);
BENCHMARK(OpenOneRowBare);

} // namespace

} // namespace Quillane

int main(int count, char** arguments) {
    const std::string whyMissing = Quillane::PostgresServer::WhyMissing();
    if (!whyMissing.empty()) {
        std::cerr << "OdbcBench: PostgreSQL is not there: " << whyMissing << '\n';
        return 77;
    }
    std::setlocale(LC_ALL, "C.UTF-8");
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
