#include "setup/StationSetup.h"

#include "platform/host/StationFile.h"
#include "platform/host/StationText.h"
#include "platform/host/WholeFile.h"

namespace Quillane {

namespace {

void StoreCompanyName(const std::string& folder, const std::string& companyName) {
    std::string& current = TheStation().CompanyNames[1];
    if (current == companyName)
        return;
    const std::string path = folder + "/Station.ini";
    WriteWholeFile(path, WithStationEntry(ReadWholeFile(path), "CompanyNames", "1", companyName));
    current = companyName;
}

// The file may contain a password.
void WriteConfigFile(const std::string& folder, const std::string& fragment) {
    WriteWholeFile(folder + "/Config.ini", ConfigFileText(fragment), FileReaders::OwnerAndGroup);
}

std::string EmbeddedFragment() {
    return std::string("Server=(embedded);Database=") + EmbeddedDatabaseName;
}

} // namespace

std::string EmbeddedDatabasePath(const std::string& folder) {
    return folder + "/" + EmbeddedDatabaseName + ".db";
}

void SetUpStation(const std::string& folder, const NewDatabase& particulars) {
    CreateEmbeddedDatabase(EmbeddedDatabasePath(folder), particulars);
    StoreCompanyName(folder, particulars.companyName);
    WriteConfigFile(folder, EmbeddedFragment());
}

void AdoptDatabase(const std::string& folder, const std::string& companyName) {
    if (TheStation().CompanyNames[1].empty())
        StoreCompanyName(folder, companyName);
    WriteConfigFile(folder, EmbeddedFragment());
}

void PointToSqlServer(const std::string& folder, const SqlServerTarget& target,
                      const std::string& newName, const std::string& storedName) {
    if (!newName.empty())
        StoreCompanyName(folder, newName);
    else if (TheStation().CompanyNames[1].empty())
        StoreCompanyName(folder, storedName);
    WriteConfigFile(folder, ConfigFragment(target, DriverOfThisSystem()));
}

} // namespace Quillane
