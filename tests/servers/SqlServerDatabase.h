#pragma once

#include <string>

namespace Quillane {

/// A fresh database on the T-SQL server that the file tests/sqlserver.local names, dropped with
/// this object. The file is not part of the project; its first line is what a station's Config.ini
/// would hold, for a sign-in that may create databases:
///
///     Server=127.0.0.1;Port=1433;UID=sa;PWD=secret;TDS_Version=7.4
class SqlServerDatabase {
public:
    SqlServerDatabase();
    ~SqlServerDatabase();
    SqlServerDatabase(const SqlServerDatabase&) = delete;
    SqlServerDatabase& operator=(const SqlServerDatabase&) = delete;

    /// Empty where the file is there.
    static std::string WhyMissing();

    std::string ConnectionString() const;

private:
    std::string name_;
};

} // namespace Quillane
