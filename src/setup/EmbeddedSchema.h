#pragma once

#include "signin/PasswordHash.h"

#include <string>

namespace Quillane {

/// The entries for a new database.
struct NewDatabase {
    std::string companyName;
    std::string companyAddress;
    std::string companyPhone;
    std::string companyEmail;
    std::string userName; ///< the first user; gets level 1
    std::string password;
    /// Adds sample rows, among them a second user with level 2: `SampleUserName`, whose password is
    /// the same as the name.
    bool sampleRows = false;
    /// On SQL Server: the company details replace those in the database.
    bool replaceParticulars = false;
    HashCost hashCost = HashCost::Interactive;
};

inline constexpr const char* SampleUserName = "gate";

/// Creates an embedded database. It is built in the file "<file>.new", which is renamed when it is
/// complete and on the disk. A set-up that is interrupted therefore leaves no incomplete database;
/// the next attempt replaces the ".new" file. Errors: file already exists (58) if there is a file
/// with this name, or the journal of an earlier database with this name; neither is changed.
void CreateEmbeddedDatabase(const std::string& file, const NewDatabase& particulars);

class EmbeddedFile;

/// True if the database contains the tables of a station.
bool HoldsStationTables(EmbeddedFile& file);

/// The contents of a file with the name of an embedded database.
struct EmbeddedDatabase {
    enum class Kind {
        None,      ///< no file
        NoAccess,  ///< a file that cannot be opened, or is in use
        Unknown,   ///< a file that is not a database
        Foreign,   ///< a database of another program
        OfStations ///< a database with the tables of a station
    };
    Kind kind = Kind::None;
    std::string companyName;
    long arrivals = 0;
    long users = 0;
};

/// Examines the file without changing it. Never fails.
EmbeddedDatabase LookAtEmbeddedDatabase(const std::string& file);

} // namespace Quillane
