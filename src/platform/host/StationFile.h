#pragma once

#include <array>
#include <map>
#include <set>
#include <string>

namespace Quillane {

/// What a station knows of itself, from `Station.ini` in its folder.
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
/// Blanks around a name or a value do not count, lines that begin with ; or # are notes, and the
/// names of sections and keys may be in any case. A value runs to the end of its line. The text is
/// UTF-8.
struct StationFile {
    std::string StationRole;
    /// 1 to 9; entry 0 is not used. An empty entry 1 takes the name that the database has, once
    /// that is open.
    std::array<std::string, 10> CompanyNames;
    int AskCompanyName = 0;
    std::map<int, std::string> Ports; ///< device by port number
    std::set<int> WholeBursts;        ///< ports whose indicator pauses between its frames
    /// Where backups go; a relative path counts from the station's folder. Empty: its `backups`.
    std::string BackupFolder;
    int BackupsKept = 0;         ///< 0: all
    int WarnAfterBackupDays = 0; ///< the sign-in reports a last backup that is older; 0: never

    /// A missing file gives the defaults. A damaged one is a failure that names the file and the
    /// line; nothing is guessed. A section or key that nothing reads, or that stands twice, counts
    /// as damage too: a misspelt name would otherwise be passed over without a word, and the
    /// station would run with another role or port than its owner wrote down.
    static StationFile Read(const std::string& path);

    /// The device behind a port number: what [Ports] names, else /dev/ttyS(n-1), or COMn.
    std::string PortDevice(int number) const;
};

/// The station's file, read once at start; the start-up fills it.
StationFile& TheStation();

} // namespace Quillane
