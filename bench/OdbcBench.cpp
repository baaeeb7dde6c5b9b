// The data access objects on a server reached by ODBC, each compared with the same work done with
// plain ODBC calls: on a PostgreSQL server that the benchmark starts, and on the SQL Server named
// in the file tests/sqlserver.local. The limit is 1.2 times the reference.
//
// The plain loop binds known columns in blocks of the same size. It is measured twice: with texts
// as UTF-16, as the engine reads them, and with texts that the driver converts to the character set
// of the station, which is correct only for UTF-8. A one-row query is also measured twice: with a
// new statement handle for each query, to which the limit applies, and with one handle for all
// queries.

#include "SideBySide.h"
#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/Engine.h"
#include "platform/ado/ResultSet.h"
#include "platform/ado/odbc/OdbcConnect.h"
#include "platform/ado/odbc/OdbcText.h"
#include "servers/PostgresServer.h"
#include "servers/SqlServerDatabase.h"

#include <clocale>
#include <cstdint>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace Quillane {

namespace {

constexpr int rowCount = 100'000;
constexpr std::size_t blockRows = 256;
constexpr auto allRows = "Select ArrivalId, VehicleNo, DriverName, NetWeight From ArrivalsBody";
constexpr auto oneRow = "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where "
                        "ArrivalID = 7";

/// A filled database and two connections to it: one of the program and a plain ODBC one.
class FilledDatabase {
public:
    explicit FilledDatabase(const std::string& connectionString) {
        connection.Open(connectionString);
        connection.Execute("Create Table Arrivals (ArrivalID int Not Null Primary Key, NoOfBags "
                           "float, BagWeight float, TareWeight float)");
        connection.Execute("Create Table ArrivalsBody (ArrivalId int, VehicleNo " + TextOf(40) +
                           ", DriverName " + TextOf(60) + ", NetWeight float)");
        connection.Execute("Insert Into ArrivalsBody Select i, Concat('LES-', i), Concat('Driver "
                           "of load ', i), i * 0.75 From (" +
                           Numbers(5) + ") Numbers");
        connection.Execute("Insert Into Arrivals Select i, 40, 100.5, 4320 From (" + Numbers(3) +
                           ") Numbers");
        bare_ = ConnectByOdbc(environment_, ConnectionAttributes(connectionString), SignIn{});
    }

    const OdbcHandle& Bare() const { return bare_; }

    Connection connection;

private:
    /// varchar of PostgreSQL corresponds to nvarchar of SQL Server.
    std::string TextOf(int length) {
        const bool isPostgres =
            connection
                .Execute("Select 1 From information_schema.tables Where table_name = "
                         "'pg_class'")
                .RecordCount() > 0;
        return (isPostgres ? "varchar(" : "nvarchar(") + std::to_string(length) + ")";
    }

    /// A query for the numbers from 0 with this number of digits.
    static std::string Numbers(int digits) {
        std::string number;
        std::string tables;
        for (int digit = 0; digit < digits; ++digit) {
            const std::string table = "D" + std::to_string(digit);
            number = digit == 0 ? table + ".n" : "(" + number + ") * 10 + " + table + ".n";
            tables += (digit == 0 ? "" : " Cross Join ") +
                      ("(Values (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)) " + table) +
                      "(n)";
        }
        return "Select " + number + " As i From " + tables;
    }

    OdbcHandle environment_ = OdbcEnvironment();
    OdbcHandle bare_;
};

void RunBare(const OdbcHandle& statement, const char* source) {
    OdbcText text = ToOdbc(source);
    statement.Check(SQLExecDirectW(statement.Get(), text.data(), SQL_NTS));
}

OdbcHandle BareStatement(const FilledDatabase& database, const char* source) {
    OdbcHandle statement(SQL_HANDLE_STMT, database.Bare());
    RunBare(statement, source);
    return statement;
}

/// A column of a block, bound directly.
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
ResultSet ReadBare(const FilledDatabase& database, SQLSMALLINT textType) {
    const OdbcHandle statement = BareStatement(database, allRows);
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

void ExpectAll(int count) {
    if (count != rowCount)
        throw std::runtime_error("not all rows");
}

void ReadOneRowBare(const OdbcHandle& statement) {
    double gross = 0;
    double tare = 0;
    SQLBindCol(statement.Get(), 1, SQL_C_DOUBLE, &gross, 0, nullptr);
    SQLBindCol(statement.Get(), 2, SQL_C_DOUBLE, &tare, 0, nullptr);
    SQLFetch(statement.Get());
    if (gross + tare <= 0 || SQLFetch(statement.Get()) != SQL_NO_DATA)
        throw std::runtime_error("not the row");
}

void OpenOneRowBare(const FilledDatabase& database) {
    ReadOneRowBare(BareStatement(database, oneRow));
}

void OpenOneRowOnKeptHandle(const OdbcHandle& statement) {
    RunBare(statement, oneRow);
    ReadOneRowBare(statement);
    SQLFreeStmt(statement.Get(), SQL_CLOSE);
}

Action Repeating(int times, const std::function<void()>& act) {
    return {.ready = {}, .act = [=] {
                for (int i = 0; i < times; ++i)
                    act();
            }};
}

void Measure(const std::string& server, const std::string& connectionString) {
    FilledDatabase database(connectionString);
    constexpr double limit = 1.2;
    constexpr int turns = 25;
    constexpr int oneRowTimes = 300;
    const Action open = Repeating(1, [&] {
        Recordset rows;
        rows.Open(allRows, database.connection);
        ExpectAll(rows.RecordCount());
    });
    const Action bare =
        Repeating(1, [&] { ExpectAll(ReadBare<SQLWCHAR>(database, SQL_C_WCHAR).RowCount()); });
    const Action bareInStationsSet =
        Repeating(1, [&] { ExpectAll(ReadBare<char>(database, SQL_C_CHAR).RowCount()); });
    const Action openOne = Repeating(oneRowTimes, [&] {
        Recordset rows;
        rows.Open(oneRow, database.connection);
        if (rows.Fields(0).Number() <= 0)
            throw std::runtime_error("not the row");
    });
    const Action openOneBare = Repeating(oneRowTimes, [&] { OpenOneRowBare(database); });
    const OdbcHandle kept(SQL_HANDLE_STMT, database.Bare());
    const Action openOneOnKept = Repeating(oneRowTimes, [&] { OpenOneRowOnKeptHandle(kept); });
    PrintHeading(server);
    PrintLine("all rows", rowCount, SideBySide(turns, open, bare), limit);
    PrintLine("all rows, converted by the driver", rowCount,
              SideBySide(turns, open, bareInStationsSet), limit);
    PrintLine("one row, 300 times", 1, SideBySide(turns, openOne, openOneBare), limit);
    PrintLine("one row, one handle for all queries", 1, SideBySide(turns, openOne, openOneOnKept),
              limit);
}

/// Prints a message if the server is missing.
bool IsThere(const std::string& whyMissing) {
    if (!whyMissing.empty())
        std::cerr << "OdbcBench: " << whyMissing << '\n';
    return whyMissing.empty();
}

} // namespace

} // namespace Quillane

int main() {
    using namespace Quillane;
    std::setlocale(LC_ALL, "C.UTF-8");
    try {
        if (IsThere(PostgresServer::WhyMissing())) {
            const PostgresServer server;
            Measure("PostgreSQL", server.ConnectionString("postgres"));
        }
        if (IsThere(SqlServerDatabase::WhyMissing())) {
            const SqlServerDatabase database;
            Measure("SQL Server", database.ConnectionString());
        }
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
