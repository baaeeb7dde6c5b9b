#include "platform/host/StationFile.h"

#include "platform/runtime/Failure.h"
#include "station/FreshFolder.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(StationFile, MissingFileGivesTheDefaults) {
    const FreshFolder folder;
    const StationFile station = StationFile::Read(folder.File("Station.ini"));
    EXPECT_EQ(station.StationRole, "");
    EXPECT_EQ(station.AskCompanyName, 0);
    EXPECT_EQ(station.CompanyNames, (std::array<std::string, 10>{}));
    EXPECT_TRUE(station.Ports.empty());
    EXPECT_TRUE(station.WholeBursts.empty());
}

TEST(StationFile, AllSectionsAreRead) {
    const FreshFolder folder;
    const StationFile station = StationFile::Read(folder.Write("Station.ini", "; the gate\n"
                                                                              "[Station]\n"
                                                                              "StationRole=Client\n"
                                                                              "AskCompanyName=-1\n"
                                                                              "\n"
                                                                              "[CompanyNames]\n"
                                                                              "1=Veltrane Mills\n"
                                                                              "9=ویلٹرین = ملز\n"
                                                                              "[Ports]\n"
                                                                              "# the indicator\n"
                                                                              "1=/dev/ttyUSB0\n"
                                                                              "12=/dev/ttyS7\n"));
    EXPECT_EQ(station.StationRole, "Client");
    EXPECT_EQ(station.AskCompanyName, -1);
    EXPECT_EQ(station.CompanyNames[1], "Veltrane Mills");
    EXPECT_EQ(station.CompanyNames[9], "ویلٹرین = ملز");
    EXPECT_EQ(station.CompanyNames[2], "");
    EXPECT_EQ(station.Ports, (std::map<int, std::string>{{1, "/dev/ttyUSB0"}, {12, "/dev/ttyS7"}}));
}

TEST(StationFile, BlanksLineEndsByteOrderMarkAndCaseOfNamesAreIgnored) {
    const FreshFolder folder;
    const StationFile station = StationFile::Read(folder.Write(
        "Station.ini",
        "\xEF\xBB\xBF  [ station ]\r\n\tSTATIONROLE =  Client \r\naskcompanyname= -1"));
    EXPECT_EQ(station.StationRole, "Client");
    EXPECT_EQ(station.AskCompanyName, -1);
}

TEST(StationFile, PortsWithWholeBurstsAreRead) {
    const FreshFolder folder;
    const StationFile station = StationFile::Read(folder.Write("Station.ini", "[WholeBursts]\n"
                                                                              "1=yes\n"
                                                                              "2=no\n"
                                                                              "12 = Yes\n"
                                                                              "[Ports]\n"
                                                                              "3=/dev/ttyS7\n"));
    EXPECT_EQ(station.WholeBursts, (std::set<int>{1, 12}));
}

TEST(StationFile, HasTheFolderAndTheNumberOfBackups) {
    const FreshFolder folder;
    const StationFile none = StationFile::Read(folder.Write("Station.ini", "[Backup]\n"));
    EXPECT_EQ(none.BackupFolder, "");
    EXPECT_EQ(none.BackupsKept, 0);
    EXPECT_EQ(none.WarnAfterBackupDays, 0);
    const StationFile station =
        StationFile::Read(folder.Write("Station.ini", "[Backup]\n"
                                                      "Folder=/mnt/my disk\n"
                                                      "keep = 30\n"
                                                      "WarnAfterDays=3\n"));
    EXPECT_EQ(station.BackupFolder, "/mnt/my disk");
    EXPECT_EQ(station.BackupsKept, 30);
    EXPECT_EQ(station.WarnAfterBackupDays, 3);
}

struct Damage {
    std::string text;
    int line;

    friend void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.line; }
};

class DamagedStationFile : public testing::TestWithParam<Damage> {};

TEST_P(DamagedStationFile, FailureNamesTheFileAndTheLine) {
    const FreshFolder folder;
    const std::string path = folder.Write("Station.ini", GetParam().text);
    const Failure failure = FailureOf([&] { StationFile::Read(path); });
    EXPECT_NE(failure.Description().find(path), std::string::npos) << failure.Description();
    EXPECT_NE(failure.Description().find("line " + std::to_string(GetParam().line) + ":"),
              std::string::npos)
        << failure.Description();
    EXPECT_EQ(failure.Source(), "Quillane");
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryKind, DamagedStationFile,
    testing::Values(Damage{"[Station]\nStationRole\n", 2}, Damage{"[Station\n", 1},
                    Damage{"StationRole=Client\n", 1}, Damage{"\n[Scale]\n", 2},
                    Damage{"[Station]\nStationRol=Client\n", 2},
                    Damage{"[Station]\nAskCompanyName=yes\n", 2},
                    Damage{"[Station]\nAskCompanyName=\n", 2},
                    Damage{"[Station]\nAskCompanyName=99999999999\n", 2},
                    Damage{"[Station]\nStationRole=Client\nStationRole=\n", 3},
                    Damage{"[CompanyNames]\n0=None\n", 2}, Damage{"[CompanyNames]\n10=Ten\n", 2},
                    Damage{"[CompanyNames]\none=One\n", 2}, Damage{"[Ports]\n1=\n", 2},
                    Damage{"[CompanyNames]\n1=One\n01=Other\n", 3},
                    Damage{"[CompanyNames]\n1=Caf\xE9 Mill\n", 2},
                    Damage{"[CompanyNames]\n1=Mill \xD9\n", 2},
                    Damage{"[Ports]\n-1=/dev/ttyS0\n", 2}, Damage{"[Ports]\n1.5=/dev/ttyS0\n", 2},
                    Damage{"[WholeBursts]\n1=\n", 2}, Damage{"[WholeBursts]\n1=-1\n", 2},
                    Damage{"[WholeBursts]\n1=yes\n1=no\n", 3}, Damage{"[WholeBursts]\n0=yes\n", 2},
                    Damage{"[WholeBursts]\nyes\n", 2}, Damage{"[Backup]\nFolder=\n", 2},
                    Damage{"[Backup]\nKeep=0\n", 2}, Damage{"[Backup]\nKeep=some\n", 2},
                    Damage{"[Backup]\nWarnAfterDays=0\n", 2}, Damage{"[Backup]\nTo=/mnt\n", 2},
                    Damage{std::string("\0\0\0\0", 4), 1}));

TEST(StationFile, UnreadableFileFails) {
    const FreshFolder folder;
    std::filesystem::create_directory(folder.File("Station.ini"));
    const Failure failure = FailureOf([&] { StationFile::Read(folder.File("Station.ini")); });
    EXPECT_EQ(failure.Number(), FailureNumber::PathAccess);
    EXPECT_NE(failure.Description().find(folder.File("Station.ini")), std::string::npos);
}

TEST(StationFile, PortWithoutAnEntryHasTheDefaultDevice) {
    StationFile station;
    station.Ports[2] = "/dev/ttyUSB0";
    EXPECT_EQ(station.PortDevice(2), "/dev/ttyUSB0");
    EXPECT_EQ(station.PortDevice(1), "/dev/ttyS0");
    EXPECT_EQ(station.PortDevice(3), "/dev/ttyS2");
}

TEST(TheStation, IsTheSameObjectForTheWholeProcess) {
    TheStation().StationRole = "Client";
    EXPECT_EQ(TheStation().StationRole, "Client");
    TheStation() = StationFile();
    EXPECT_EQ(TheStation().StationRole, "");
}

} // namespace
} // namespace Quillane
