#pragma once

#include <string>

namespace Quillane {

/// A new database on the SQL Server that the file tests/sqlserver.local names. The destructor drops
/// it. The file is not part of the project. Its first line has the form of a station's Config.ini
/// and a sign-in that may create databases:
///
///     Server=127.0.0.1;Port=1433;UID=sa;PWD=secret;TDS_Version=7.4
///
/// Tests that use it are registered only where the file exists. Errors: std::runtime_error if the
/// file does not exist.
class SqlServerDatabase {
public:
    SqlServerDatabase();
    ~SqlServerDatabase();
    SqlServerDatabase(const SqlServerDatabase&) = delete;
    SqlServerDatabase& operator=(const SqlServerDatabase&) = delete;

    /// The reason why there is no server, for benchmarks that run without one; empty if the file
    /// names one.
    static std::string WhyMissing();

    std::string ConnectionString() const;

private:
    std::string name_;
};

} // namespace Quillane
