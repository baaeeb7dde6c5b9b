// The move of an embedded database to a server: copying all tables and comparing them there. The
// reference is a raw copy of the same rows with bound arrays of parameters, in blocks and
// transactions of the same size. Both use the same tables of the same server, in turn.
//
//     MoveBench [arrivals [turns]]      default: 100000 3
//
// The limit of the ratio is 1.5. The memory must be that of the program's blocks for any number of
// arrivals. The benchmark runs on PostgreSQL, which it starts itself, and on the SQL Server that
// tests/sqlserver.local names.

#include "ManyArrivals.h"
#include "Memory.h"
#include "SideBySide.h"
#include "office/move/MoveRows.h"
#include "office/move/PostgresTarget.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcConnect.h"
#include "platform/ado/odbc/OdbcText.h"
#include "platform/runtime/LongWork.h"
#include "servers/PostgresServer.h"
#include "servers/SqlServerDatabase.h"
#include "setup/EmbeddedFile.h"
#include "setup/SqlServerDatabaseSetup.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace Quillane;
using namespace Quillane::Office;

constexpr double limit = 1.5;
constexpr std::size_t blockRows = 512;
constexpr std::size_t textUnits = 201;

/// One bound column of a block.
struct RawColumn {
    int kind = SQLITE_TEXT;
    std::vector<std::int64_t> wholes = std::vector<std::int64_t>(blockRows);
    std::vector<double> reals = std::vector<double>(blockRows);
    std::vector<SQLWCHAR> texts = std::vector<SQLWCHAR>(blockRows * textUnits);
    std::vector<SQLLEN> lengths = std::vector<SQLLEN>(blockRows);

    void Bind(const OdbcHandle& statement, SQLUSMALLINT number) {
        const auto bind = [&](SQLSMALLINT cType, SQLSMALLINT type, SQLULEN size, void* cells,
                              std::size_t bytes) {
            statement.Check(SQLBindParameter(statement.Get(), number, SQL_PARAM_INPUT, cType, type,
                                             size, 0, cells, static_cast<SQLLEN>(bytes),
                                             lengths.data()));
        };
        if (kind == SQLITE_INTEGER)
            bind(SQL_C_SBIGINT, SQL_BIGINT, 19, wholes.data(), sizeof(std::int64_t));
        else if (kind == SQLITE_FLOAT)
            bind(SQL_C_DOUBLE, SQL_DOUBLE, 53, reals.data(), sizeof(double));
        else
            bind(SQL_C_WCHAR, SQL_WVARCHAR, textUnits - 1, texts.data(),
                 textUnits * sizeof(SQLWCHAR));
    }

    void Take(sqlite3_stmt* source, int column, std::size_t row) {
        if (sqlite3_column_type(source, column) == SQLITE_NULL) {
            lengths[row] = SQL_NULL_DATA;
            return;
        }
        lengths[row] = sizeof(std::int64_t);
        if (kind == SQLITE_INTEGER) {
            wholes[row] = sqlite3_column_int64(source, column);
        } else if (kind == SQLITE_FLOAT) {
            reals[row] = sqlite3_column_double(source, column);
        } else {
            const void* text = sqlite3_column_text16(source, column);
            const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes16(source, column));
            std::memcpy(texts.data() + row * textUnits, text, bytes);
            lengths[row] = static_cast<SQLLEN>(bytes);
        }
    }
};

int KindOf(const char* declared) {
    const std::string type = declared ? declared : "";
    return type == "INTEGER"                     ? SQLITE_INTEGER
           : type == "REAL" || type == "NUMERIC" ? SQLITE_FLOAT
                                                 : SQLITE_TEXT;
}

/// The raw copy, which uses only the interfaces of the engine and of the driver.
class RawCopy {
public:
    RawCopy(const std::string& connectionString, std::string prefix)
        : environment_(OdbcEnvironment()),
          connection_(
              ConnectByOdbc(environment_, ConnectionAttributes(connectionString), SignIn{})),
          prefix_(std::move(prefix)) {}

    void Run(EmbeddedFile& file, const std::vector<SourceTable>& tables, bool hasIdentities) {
        for (auto table = tables.rbegin(); table != tables.rend(); ++table)
            Execute("DELETE FROM " + prefix_ + table->name);
        for (const SourceTable& table : tables) {
            const bool numbers = hasIdentities && table.name == "ArrivalsBody";
            if (numbers)
                Execute("SET IDENTITY_INSERT " + prefix_ + table.name + " ON");
            Copy(file, table);
            if (numbers)
                Execute("SET IDENTITY_INSERT " + prefix_ + table.name + " OFF");
        }
    }

private:
    void Execute(const std::string& text) {
        const OdbcHandle statement(SQL_HANDLE_STMT, connection_);
        OdbcText odbc = ToOdbc(text);
        statement.Check(SQLExecDirectW(statement.Get(), odbc.data(), SQL_NTS));
    }

    void Copy(EmbeddedFile& file, const SourceTable& table) {
        std::string names, marks;
        for (const std::string& column : table.columns) {
            names += (names.empty() ? "" : ", ") + column;
            marks += marks.empty() ? "?" : ", ?";
        }
        sqlite3_stmt* source = nullptr;
        sqlite3_prepare_v2(file.Session(), ("SELECT " + names + " FROM " + table.name).c_str(), -1,
                           &source, nullptr);
        std::vector<RawColumn> columns(table.columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i)
            columns[i].kind = KindOf(sqlite3_column_decltype(source, static_cast<int>(i)));
        OdbcText insert = ToOdbc("INSERT INTO " + prefix_ + table.name + " (" + names +
                                 ") VALUES (" + marks + ")");
        for (std::size_t rows = blockRows; rows == blockRows;) {
            for (rows = 0; rows < blockRows && sqlite3_step(source) == SQLITE_ROW; ++rows)
                for (std::size_t i = 0; i < columns.size(); ++i)
                    columns[i].Take(source, static_cast<int>(i), rows);
            if (rows > 0)
                Send(insert, columns, rows);
        }
        sqlite3_finalize(source);
    }

    void Send(OdbcText& insert, std::vector<RawColumn>& columns, std::size_t rows) {
        Execute(prefix_.empty() ? "BEGIN" : "BEGIN TRANSACTION");
        {
            const OdbcHandle statement(SQL_HANDLE_STMT, connection_);
            statement.Check(SQLSetStmtAttrW(statement.Get(), SQL_ATTR_PARAMSET_SIZE,
                                            reinterpret_cast<SQLPOINTER>(rows), 0));
            for (std::size_t i = 0; i < columns.size(); ++i)
                columns[i].Bind(statement, static_cast<SQLUSMALLINT>(i + 1));
            statement.Check(SQLExecDirectW(statement.Get(), insert.data(), SQL_NTS));
            while (SQLMoreResults(statement.Get()) != SQL_NO_DATA) {
            }
        }
        Execute("COMMIT");
    }

    OdbcHandle environment_;
    OdbcHandle connection_;
    std::string prefix_;
};

void Measure(const char* server, const std::string& connectionString, const MoveDialect& dialect,
             const std::function<void(Connection&)>& makeSchema, EmbeddedFile& file, int turns) {
    Connection connection;
    connection.CommandTimeout = 0;
    connection.Open(connectionString);
    makeSchema(connection);
    const SourceDatabase source(file);
    TargetDatabase target(connection, dialect);
    long rows = 0;
    for (const SourceTable& table : source.Tables())
        rows += table.rows;
    const auto copy = [&] {
        LongWork work;
        return CopyRows(source, target, work);
    };
    const auto copyAndCompare = [&] {
        LongWork work;
        CompareRows(source, copy(), target, work);
    };
    RawCopy raw(connectionString, dialect.schema);
    const auto rawCopy = [&] { raw.Run(file, source.Tables(), dialect.hasIdentities); };
    PrintHeading(server);
    const SideBySide measured(turns, {{}, copyAndCompare}, {{}, rawCopy});
    PrintLine("copying and comparing, processor", rows, measured, limit);
    std::printf("by the clock: %.1f s, raw %.1f s, ratio %.2f\n",
                measured.program.MedianByClock() / 1000, measured.reference.MedianByClock() / 1000,
                measured.RatioByClock());
    const MemoryGrowth growth(copyAndCompare);
    std::printf("memory of a move of %ld rows: heap %.2f MB, at its peak %.2f MB\n", rows,
                growth.heap / 1e6, growth.peak / 1e6);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int arrivals = argc > 1 ? std::atoi(argv[1]) : 100'000;
    const int turns = argc > 2 ? std::atoi(argv[2]) : 3;
    try {
        const ManyArrivals database(arrivals);
        const std::string path = database.Folder() + "/Account1.db";
        EmbeddedFile file(path, SQLITE_OPEN_READWRITE);
        if (PostgresServer::WhyMissing().empty()) {
            const PostgresServer server;
            const std::string text = server.ConnectionString("postgres");
            const PostgresTarget target(path, text, database.Folder());
            Measure(
                "PostgreSQL", text, PostgresTarget::Dialect(),
                [&](Connection& connection) { target.MakeSchema(connection); }, file, turns);
        }
        if (SqlServerDatabase::WhyMissing().empty()) {
            const SqlServerDatabase server;
            Measure(
                "SQL Server", server.ConnectionString(), DialectOfSqlServer(),
                [](Connection& connection) { SetUpSqlServerDatabase(connection, NewDatabase{}); },
                file, turns);
        }
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
