#include "setup/StationSetup.h"

#include "station/SampleDatabase.h"

#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

namespace Quillane {
namespace {

class StationSetup : public testing::Test {
protected:
    void SetUp() override { TheStation() = StationFile(); }
    void TearDown() override { TheStation() = StationFile(); }
    FreshFolder folder;
};

TEST_F(StationSetup, WritesTheDatabaseTheNameAndTheConfigFile) {
    SetUpStation(folder.path, SampleParticulars());
    EXPECT_EQ(LookAtEmbeddedDatabase(folder.File("Account1.db")).companyName,
              "Veltrane Flour Mills");
    EXPECT_EQ(folder.Read("Config.ini"), "Server=(embedded);Database=Account1\n");
    EXPECT_EQ(StationFile::Read(folder.File("Station.ini")).CompanyNames[1],
              "Veltrane Flour Mills");
    EXPECT_EQ(TheStation().CompanyNames[1], "Veltrane Flour Mills");
}

// The database contains the users' hashes, and the other file may contain a password.
TEST_F(StationSetup, RestrictsTheDatabaseAndTheConfigFileToOwnerAndGroup) {
    const mode_t before = ::umask(0);
    SetUpStation(folder.path, SampleParticulars());
    ::umask(before);
    namespace fs = std::filesystem;
    constexpr fs::perms ownerAndGroup = fs::perms::owner_read | fs::perms::owner_write |
                                        fs::perms::group_read | fs::perms::group_write;
    EXPECT_EQ(fs::status(folder.File("Account1.db")).permissions(), ownerAndGroup);
    EXPECT_EQ(fs::status(folder.File("Config.ini")).permissions(), ownerAndGroup);
    EXPECT_NE(fs::status(folder.File("Station.ini")).permissions(), ownerAndGroup);
}

TEST_F(StationSetup, DoesNotChangeAStationFileWithTheName) {
    folder.Write("Station.ini", "[CompanyNames]\n1=Veltrane Flour Mills\n# mine\n");
    TheStation() = StationFile::Read(folder.File("Station.ini"));
    SetUpStation(folder.path, SampleParticulars());
    EXPECT_EQ(folder.Read("Station.ini"), "[CompanyNames]\n1=Veltrane Flour Mills\n# mine\n");
}

TEST_F(StationSetup, WritesNoConfigFileIfTheDatabaseCannotBeCreated) {
    folder.Write("Account1.db", "something else");
    EXPECT_THROW(SetUpStation(folder.path, SampleParticulars()), Failure);
    EXPECT_FALSE(folder.Has("Config.ini"));
    EXPECT_EQ(folder.Read("Account1.db"), "something else");
}

TEST_F(StationSetup, AdoptsADatabaseWithItsName) {
    AdoptDatabase(folder.path, "Brellix");
    EXPECT_EQ(TheStation().CompanyNames[1], "Brellix");
    EXPECT_TRUE(folder.Has("Config.ini"));
    AdoptDatabase(folder.path, "Another");
    EXPECT_EQ(TheStation().CompanyNames[1], "Brellix");
}

} // namespace
} // namespace Quillane
