#pragma once

#include "platform/ado/Connection.h"
#include "servers/PostgresServer.h"
#include "support/FailureOf.h"
#include "support/SkipIfMissing.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace Quillane {

/// An open ODBC connection to a new PostgreSQL database. Skipped if the server or its driver is not
/// installed.
class OdbcOnPostgres : public testing::Test {
protected:
    void SetUp() override {
        SKIP_IF_MISSING(PostgresServer::WhyMissing());
        database.emplace();
        connection.Open(database->ConnectionString());
    }

    void Run(std::string_view statement) { connection.Execute(statement); }
    /// The first field of the first row, as it was read.
    Value OneValue(std::string_view statement) { return connection.Execute(statement).Fields(0); }
    std::string OneText(std::string_view statement) { return OneValue(statement).Text(); }

    Recordset Writing(std::string_view source) {
        Recordset rows;
        rows.Open(source, connection, adOpenStatic, adLockOptimistic);
        return rows;
    }

    std::optional<PostgresDatabase> database;
    Connection connection;
};

} // namespace Quillane
