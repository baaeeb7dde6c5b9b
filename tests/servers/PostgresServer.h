#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// A PostgreSQL server that the tests start themselves, on loopback, and that is gone with this
/// object or with the process. It needs Debian's packages postgresql and odbc-postgresql.
class PostgresServer {
public:
    PostgresServer();
    ~PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    /// The server that the test run has started for all of its tests; one for this process where
    /// there is none.
    static const PostgresServer& Shared();

    /// Empty where the server and its ODBC driver are there, else which package is missing.
    static std::string WhyMissing();

    /// What a connection is opened with; `more` is added to it.
    std::string ConnectionString(std::string_view database, std::string_view more = {}) const;

    /// Ends the server at once, as a power cut would, and returns when it has gone.
    void Kill() const;
    /// After that its connection string is another.
    void StartAgain();

private:
    explicit PostgresServer(std::string infoFile);
    void ReadInfo();

    std::string infoFile_;
    bool isOwn_ = false;
    std::string port_;
};

/// A fresh database on the shared server, dropped with this object.
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
