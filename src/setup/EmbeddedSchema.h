#pragma once

#include "signin/PasswordHash.h"

#include <string>

namespace Quillane {

/// What a new database is made from.
struct NewDatabase {
    std::string companyName;
    std::string companyAddress;
    std::string companyPhone;
    std::string companyEmail;
    std::string userName; ///< the first user, of level 1
    std::string password;
    /// Rows to try the station with, among them a second user of level 2: `SampleUserName`, whose
    /// password is his name.
    bool sampleRows = false;
    /// On SQL Server: the company's particulars take the place of those that the database holds.
    bool replaceParticulars = false;
    HashCost hashCost = HashCost::Interactive;
};

inline constexpr const char* SampleUserName = "gate";

/// Makes an embedded database. It is built in a file beside, "<file>.new", which takes the name
/// when it is complete and on the disk: set-up that breaks off leaves nothing behind under the
/// name, and what it leaves beside is replaced by the next try. A file that already has the name is
/// never touched: that is a failure (58), and so is the journal of an earlier database of that
/// name.
void CreateEmbeddedDatabase(const std::string& file, const NewDatabase& particulars);

class EmbeddedFile;

/// Whether the database holds the station's own tables.
bool HoldsStationTables(EmbeddedFile& file);

/// What stands under the name of an embedded database.
struct EmbeddedDatabase {
    enum class Kind {
        None,      ///< no file
        NoAccess,  ///< a file that cannot be opened or is in use
        Unknown,   ///< a file that is no database
        Foreign,   ///< a database of something else
        OfStations ///< a database with the station's tables
    };
    Kind kind = Kind::None;
    std::string companyName;
    long arrivals = 0;
    long users = 0;
};

/// Looks without changing anything. Never fails.
EmbeddedDatabase LookAtEmbeddedDatabase(const std::string& file);

} // namespace Quillane
