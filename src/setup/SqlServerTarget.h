#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

/// The ODBC driver registered as "SQL Server": FreeTDS, or the driver of Windows. They read the
/// same attributes with small differences.
enum class SqlServerDriver { FreeTds, Windows };

/// The driver with this name on the system of this build.
SqlServerDriver DriverOfThisSystem();

/// A database on SQL Server and how to sign in to it.
struct SqlServerTarget {
    std::string server{}; ///< name or address; "\" and an instance may follow
    std::string port{};   ///< empty if the server has the name of an instance
    std::string database{};
    bool windowsSignIn = false; ///< as the user signed in to the computer
    std::string userName{};     ///< not used for the Windows sign-in, nor is the password
    std::string password{};
    std::string options{}; ///< other attributes for the driver, "Encryption=require"
};

/// An entry that cannot be used, and the reason.
struct TargetFault {
    std::string SqlServerTarget::*entry;
    std::string reason;
};

/// The first entry that cannot be written to `Config.ini` or cannot be that of a station's
/// database.
std::optional<TargetFault> FaultOf(const SqlServerTarget& target, SqlServerDriver driver);

/// The reason why a station's database cannot have this name; empty if it can. The eighth character
/// is the number of the company.
std::string WhyNameIsUnfit(std::string_view database);

/// The connection string without the driver.
std::string ConfigFragment(const SqlServerTarget& target, SqlServerDriver driver);

/// The contents of `Config.ini` for a fragment. Only the first field of its first line is read, so
/// a fragment with a comma is written in double quotes. Requires: no comma together with a double
/// quote.
std::string ConfigFileText(std::string_view fragment);

} // namespace Quillane
