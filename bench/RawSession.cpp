#include "RawSession.h"

#include "data/Con.h"
#include "data/EmbeddedFunctions.h"
#include "platform/ado/sqlite/TSqlTranslator.h"
#include "platform/runtime/Failure.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>

namespace Quillane {

namespace {

void ReadColumn(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
    case SQLITE_NULL:
        return;
    default:
        benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
        benchmark::DoNotOptimize(sqlite3_column_bytes(statement, column));
    }
}

} // namespace

RawSession::RawSession(const ManyArrivals& database) {
    connection_.SetEmbeddedSupport(
        {.folder = database.Folder(), .registerFunctions = [this](sqlite3* opened) {
             RegisterEmbeddedFunctions(opened);
             session_ = opened;
         }});
    connection_.Open(ManyArrivals::ConnectionText);
}

std::string RawSession::Statement(std::string_view text) {
    return FromTSql(text);
}

long RawSession::Step(const char* text) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(session_, text, -1, &statement, nullptr) != SQLITE_OK)
        throw Failure(FailureNumber::Database, sqlite3_errmsg(session_), FailureSource::Database);
    const int columns = sqlite3_column_count(statement);
    long rows = 0;
    for (; sqlite3_step(statement) == SQLITE_ROW; ++rows)
        for (int column = 0; column < columns; ++column)
            ReadColumn(statement, column);
    sqlite3_finalize(statement);
    return rows;
}

void OpenCon(const ManyArrivals& database) {
    Con = std::make_unique<Connection>();
    Con->SetEmbeddedSupport(
        {.folder = database.Folder(), .registerFunctions = RegisterEmbeddedFunctions});
    Con->CursorLocation = adUseClient;
    Con->Open(ManyArrivals::ConnectionText);
}

} // namespace Quillane
