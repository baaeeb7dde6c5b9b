#pragma once

#include <array>
#include <map>
#include <set>
#include <string>

namespace Quillane {

/// The settings of one station, read from `Station.ini` in the station folder.
///
///     [Station]
///     StationRole=Client
///     AskCompanyName=-1
///     [CompanyNames]
///     1=Veltrane Flour Mills
///     [Ports]
///     1=/dev/ttyUSB0
///     [WholeBursts]
///     1=yes
///     [Backup]
///     Folder=/mnt/backups
///     Keep=30
///     WarnAfterDays=3
///
/// Blanks around a name or a value are ignored, lines that begin with ; or # are comments, and the
/// names of sections and keys are not case-sensitive. A value ends at the end of its line. The text
/// is UTF-8.
struct StationFile {
    std::string StationRole;
    /// By company number, 1 to 9; entry 0 is not used. If entry 1 is empty, it gets the name stored
    /// in the database once the database is open.
    std::array<std::string, 10> CompanyNames;
    int AskCompanyName = 0;
    std::map<int, std::string> Ports; ///< device by port number
    std::set<int> WholeBursts;        ///< ports whose indicator pauses between its frames
    /// Where backups go; a relative path counts from the station's folder. Empty: its `backups`.
    std::string BackupFolder;
    int BackupsKept = 0;         ///< 0: all
    int WarnAfterBackupDays = 0; ///< the sign-in reports a last backup that is older; 0: never

    /// Reads a station file; a missing one gives the defaults. Errors: a failure that names the
    /// file and the line. An unknown or repeated section or key is an error too: if a misspelt name
    /// were ignored, the station would run with another role or port than its owner has configured.
    static StationFile Read(const std::string& path);

    /// The device of a port number: the one given in [Ports], otherwise /dev/ttyS(n-1) or COMn.
    std::string PortDevice(int number) const;
};

/// The settings of this station. The program reads them once at start.
StationFile& TheStation();

} // namespace Quillane
