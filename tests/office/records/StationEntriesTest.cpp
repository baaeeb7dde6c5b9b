#include "office/records/StationEntries.h"

#include "OfficeDatabase.h"

#include "office/records/Settings.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

#include <array>

namespace Quillane::Office {
namespace {

class StationEntries : public testing::Test {
protected:
    std::string Save(const StationEntry& entry) {
        return SaveStationEntries(database.folder.path, std::array{entry});
    }
    std::string StoredName() {
        return database.Text(
            "Select value From Project_Registry Where registrykey = 'CompanyName'");
    }
    std::string SaveName(const std::string& name) {
        return SaveCompanyName(database.connection, database.folder.path, StoredName(), name);
    }
    std::string File() { return database.folder.Read("Station.ini"); }

    OfficeDatabase database;
};

TEST_F(StationEntries, PortIsAddedWithCommentsKept) {
    database.folder.Write("Station.ini", "; our station\n[Ports]\n1=/dev/ttyUSB0\n# end\n");
    EXPECT_EQ(Save({"Ports", 12, std::nullopt, "/dev/ttyUSB1"}), "");
    EXPECT_EQ(StationFile::Read(database.folder.File("Station.ini")).PortDevice(12),
              "/dev/ttyUSB1");
    EXPECT_NE(File().find("; our station\n"), std::string::npos);
    EXPECT_NE(File().find("# end\n"), std::string::npos);
    EXPECT_EQ(Save({"Ports", 12, "/dev/ttyUSB1", std::nullopt}), "");
    EXPECT_FALSE(ReadStationEntry(database.folder.path, "Ports", 12));
}

TEST_F(StationEntries, EntryChangedByAnotherUserIsReportedWithAllValues) {
    database.folder.Write("Station.ini", "[Ports]\n1=/dev/ttyUSB7\n");
    EXPECT_EQ(Save({"Ports", 1, "/dev/ttyUSB0", "/dev/ttyS3"}),
              "Another user has changed Station.ini in the meantime: [Ports] 1 was "
              "\"/dev/ttyUSB0\", it is now \"/dev/ttyUSB7\", your entry is \"/dev/ttyS3\". Nothing "
              "was written. Check the entry and try again.");
    EXPECT_EQ(File(), "[Ports]\n1=/dev/ttyUSB7\n");
}

TEST_F(StationEntries, CompanyNameIsStoredInTheFileAndInCapitalsInTheDatabase) {
    database.folder.Write("Station.ini", "; ours\n[CompanyNames]\n1=Old Mills\n");
    EXPECT_EQ(SaveName("Mühle am Bach"), "");
    EXPECT_EQ(File(), "; ours\n[CompanyNames]\n1=Mühle am Bach\n");
    EXPECT_EQ(StoredName(), "MÜHLE AM BACH");
}

TEST_F(StationEntries, CompanyNameWithAnApostropheIsRefused) {
    const std::string before = StoredName();
    EXPECT_EQ(SaveName("Owner's Mills"), "The company name contains an apostrophe. Remove it.");
    EXPECT_EQ(SaveName(""), "The company name is empty. Fill it in.");
    EXPECT_NE(SaveName("Two\nlines"), "");
    EXPECT_EQ(StoredName(), before);
    EXPECT_FALSE(database.folder.Has("Station.ini"));
}

TEST_F(StationEntries, FileIsRestoredIfTheDatabaseRefusesTheName) {
    database.folder.Write("Station.ini", "[CompanyNames]\n1=Old Mills\n");
    database.Refuse({.write = "UPDATE", .table = "Project_Registry", .words = "refused"});
    EXPECT_THROW(SaveName("New Mills"), Failure);
    EXPECT_EQ(File(), "[CompanyNames]\n1=Old Mills\n");
    database.AcceptAgain();
    EXPECT_NE(SaveCompanyName(database.connection, database.folder.path, "SOMETHING", "New Mills"),
              "");
    EXPECT_EQ(File(), "[CompanyNames]\n1=Old Mills\n");
}

TEST_F(StationEntries, CompanyEntryDependsOnTheCompanyNumber) {
    EXPECT_EQ(CompanyNameEntry(database.connection), 1);
}

} // namespace
} // namespace Quillane::Office
