#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// A PostgreSQL server on loopback that the tests start. The destructor, or the end of the process,
/// ends it. It needs Debian's packages postgresql and odbc-postgresql.
class PostgresServer {
public:
    PostgresServer();
    ~PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    /// The server that the test run has started for all its tests; if there is none, one for this
    /// process.
    static const PostgresServer& Shared();

    /// What is missing, the server or its ODBC driver, and its package; empty if nothing is.
    static std::string WhyMissing();

    /// A connection string for this database; `more` is appended.
    std::string ConnectionString(std::string_view database, std::string_view more = {}) const;

    /// Ends the server like a power failure, and returns when its process has ended.
    void Kill() const;
    /// Its connection string changes.
    void StartAgain();

private:
    explicit PostgresServer(std::string infoFile);
    void ReadInfo();

    std::string infoFile_;
    bool isOwn_ = false;
    std::string port_;
};

/// A new database on the shared server. The destructor drops it.
class PostgresDatabase {
public:
    PostgresDatabase();
    ~PostgresDatabase();
    PostgresDatabase(const PostgresDatabase&) = delete;
    PostgresDatabase& operator=(const PostgresDatabase&) = delete;

    const std::string& Name() const { return name_; }
    std::string ConnectionString(std::string_view more = {}) const {
        return PostgresServer::Shared().ConnectionString(name_, more);
    }

private:
    std::string name_;
};

} // namespace Quillane
