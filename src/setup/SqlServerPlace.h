#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

/// The ODBC driver that goes by the name "SQL Server": FreeTDS, or the one that Windows brings.
/// They read the same attributes with small differences.
enum class SqlServerDriver { FreeTds, Windows };

/// The driver that a station of this build finds under the name.
SqlServerDriver DriverOfThisSystem();

/// A database on SQL Server and how to sign in to it.
struct SqlServerPlace {
    std::string server{}; ///< name or address; with "\" and the instance where it has a name
    std::string port{};   ///< empty beside the name of an instance
    std::string database{};
    bool windowsSignIn = false; ///< as whoever is signed in to the computer
    std::string userName{};     ///< not read for the Windows sign-in, nor is the password
    std::string password{};
    std::string options{}; ///< further attributes for the driver, "Encryption=require"
};

/// What is wrong with an entry of a place.
struct PlaceFault {
    std::string SqlServerPlace::*entry;
    std::string reason;
};

/// The first entry that cannot go into `Config.ini` or would not lead to a station's database.
std::optional<PlaceFault> FaultOf(const SqlServerPlace& place, SqlServerDriver driver);

/// Why a database of this name cannot be a station's; empty where it can. The eighth character is
/// the number of the company.
std::string WhyNameIsUnfit(std::string_view database);

/// The connection string's part behind the driver's name.
std::string ConfigFragment(const SqlServerPlace& place, SqlServerDriver driver);

/// What `Config.ini` holds for a fragment. Only the first field of its first line is read, so that
/// a fragment with a comma stands in double quotes, which no fragment with both can.
std::string ConfigFileText(std::string_view fragment);

} // namespace Quillane
