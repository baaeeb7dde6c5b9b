#pragma once

#include "office/backup/Backup.h"
#include "platform/runtime/LongWork.h"
#include "setup/EmbeddedFile.h"
#include "station/SampleDatabase.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

namespace Quillane::Office {

/// The number of rounds, from the environment.
inline int RoundsOf(const char* variable, int otherwise) {
    const char* given = std::getenv(variable);
    return given ? std::atoi(given) : otherwise;
}

/// The names of the files in a folder.
inline std::set<std::string> FilesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (!entry.is_directory())
            names.insert(entry.path().filename().string());
    return names;
}

inline long CountIn(const std::string& file, const char* query) {
    EmbeddedFile session(file, SQLITE_OPEN_READONLY);
    return session.FirstNumber(query);
}

constexpr const char* Arrivals = "SELECT count(*) FROM Arrivals";

inline void AddArrival(EmbeddedFile& file, int id) {
    file.Run("INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) SELECT ?, "
             "'2026-11-20T00:00:00', min(CommodityId), '6010001' FROM Commodities",
             {std::to_string(id)});
}

inline void Overwrite(const std::string& file, std::streamoff at, const std::string& bytes) {
    std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
    stream.seekp(at);
    stream << bytes;
}

/// A station's embedded database with sample rows, and an empty folder for its backups.
class BackupTest : public testing::Test {
protected:
    BackupTest() { station.folder.Write("Config.ini", station.ConfigText()); }

    std::string Database() const { return station.folder.File("Account1.db"); }
    std::optional<Backup> Make(int keep = 0) {
        return BackUp({.database = Database(), .folder = backups.path, .keep = keep}, work);
    }
    std::string FailureOfMake() {
        return FailureOf([&] { Make(); }).Description();
    }

    StationDatabase station;
    FreshFolder backups;
    LongWork work;
};

} // namespace Quillane::Office
