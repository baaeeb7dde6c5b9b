#include "office/commands/CommandLine.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

Request Read(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "quillane-office");
    return ReadArguments(arguments);
}

TEST(OfficeCommandLine, ImportNamesItsTableFileAndOptions) {
    const Request request =
        Read({"--import", "parties", "list.csv", "--yes", "--skip-faulty", "--station", "/mill"});
    EXPECT_EQ(request.fault, "");
    EXPECT_EQ(request.act, Request::Act::Import);
    EXPECT_EQ(request.table, "parties");
    EXPECT_EQ(request.file, "list.csv");
    EXPECT_EQ(request.station, "/mill");
    EXPECT_TRUE(request.isConfirmed);
    EXPECT_TRUE(request.skipsFaulty);
}

TEST(OfficeCommandLine, UsersAreNamedWithTheirLevel) {
    const Request added = Read({"--add-user", "Imran", "--level", "1", "--sign-in", "sa"});
    EXPECT_EQ(added.fault, "");
    EXPECT_EQ(added.act, Request::Act::AddUser);
    EXPECT_EQ(added.user, "Imran");
    EXPECT_EQ(added.level, 1);
    EXPECT_EQ(added.signIn, "sa");
    EXPECT_EQ(Read({"--add-user", "Imran"}).level, 2);
    EXPECT_EQ(Read({"--reset-password", "Imran"}).act, Request::Act::ResetPassword);
}

TEST(OfficeCommandLine, DriverIsRegisteredForTheSystemOrTheUser) {
    const Request request = Read({"--register-driver", "system"});
    EXPECT_EQ(request.fault, "");
    EXPECT_EQ(request.act, Request::Act::RegisterDriver);
    EXPECT_EQ(request.driverFor, "system");
    EXPECT_EQ(Read({"--register-driver", "user"}).fault, "");
    EXPECT_EQ(Read({"--register-driver", "all"}).fault,
              "The option --register-driver needs \"system\" or \"user\".");
    EXPECT_EQ(Read({"--register-driver", "user", "--yes"}).fault,
              "--yes can only be used with --import, --restore and --move-to-server.");
}

TEST(OfficeCommandLine, BackupNamesAFolderAndANumberOrNeither) {
    const Request named = Read({"--backup", "/mnt/usb", "--keep", "30"});
    EXPECT_EQ(named.fault, "");
    EXPECT_EQ(named.act, Request::Act::Backup);
    EXPECT_EQ(named.folder, "/mnt/usb");
    EXPECT_EQ(named.keep, 30);
    const Request plain = Read({"--backup"});
    EXPECT_EQ(plain.fault, "");
    EXPECT_EQ(plain.folder, "");
    EXPECT_EQ(plain.keep, 0);
}

TEST(OfficeCommandLine, RestoreNamesItsFile) {
    const Request request = Read({"--restore", "/mnt/usb/Account1.db", "--yes"});
    EXPECT_EQ(request.fault, "");
    EXPECT_EQ(request.act, Request::Act::Restore);
    EXPECT_EQ(request.file, "/mnt/usb/Account1.db");
    EXPECT_TRUE(request.isConfirmed);
}

TEST(OfficeCommandLine, MoveNamesItsServer) {
    const Request request =
        Read({"--move-to-server", "mill-sql", "--user", "gate", "--database", "Account1", "--port",
              "1434", "--options", "Encryption=require", "--sign-in", "sa", "--yes"});
    EXPECT_EQ(request.fault, "");
    EXPECT_EQ(request.act, Request::Act::Move);
    EXPECT_EQ(request.move.server, "mill-sql");
    EXPECT_EQ(request.move.user, "gate");
    EXPECT_EQ(request.move.database, "Account1");
    EXPECT_EQ(request.move.port, "1434");
    EXPECT_EQ(request.move.options, "Encryption=require");
    EXPECT_EQ(request.signIn, "sa");
    EXPECT_TRUE(request.isConfirmed);
    EXPECT_EQ(Read({"--backup", "--port", "1"}).fault,
              "--port can only be used with --move-to-server.");
    EXPECT_EQ(Read({"--move-to-server", "a", "--csv", "x"}).fault,
              "--csv can only be used with --day-book.");
}

TEST(OfficeCommandLine, HelpAndVersionNeedNothingElse) {
    EXPECT_EQ(Read({"--help"}).act, Request::Act::Help);
    EXPECT_EQ(Read({"-v"}).act, Request::Act::Version);
    EXPECT_EQ(Read({"--help"}).fault, "");
    EXPECT_NE(HelpText().find("--reset-password NAME"), std::string::npos);
}

TEST(OfficeCommandLine, WindowOpensWithoutACommand) {
    const Request request = Read({"--station", "/mill", "--sign-in", "sa"});
    EXPECT_EQ(request.fault, "");
    EXPECT_EQ(request.act, Request::Act::Window);
    EXPECT_EQ(request.station, "/mill");
    EXPECT_EQ(request.signIn, "sa");
    EXPECT_EQ(Read({}).act, Request::Act::Window);
}

TEST(OfficeCommandLine, EachWrongArgumentHasItsMessage) {
    EXPECT_EQ(Read({"--import", "cows", "x.csv"}).fault, "There is no table \"cows\".");
    EXPECT_EQ(Read({"--import", "parties"}).fault, "A table and one file are needed.");
    EXPECT_EQ(Read({"--export", "parties", "a", "b"}).fault, "A table and one file are needed.");
    EXPECT_EQ(Read({"--add-user", "Imran", "secret"}).fault, "Unexpected argument \"secret\".");
    EXPECT_EQ(Read({"--add-user", "a", "--level", "x"}).fault,
              "The option --level needs a number.");
    EXPECT_EQ(Read({"--export", "parties", "a", "--yes"}).fault,
              "--yes can only be used with --import, --restore and --move-to-server.");
    EXPECT_EQ(Read({"--reset-password", "a", "--level", "1"}).fault,
              "--level can only be used with --add-user.");
    EXPECT_EQ(Read({"--add-user", "a", "--reset-password", "b"}).fault,
              "Only one command can be given at a time.");
    EXPECT_EQ(Read({"--add-user", "a", "--skip-faulty"}).fault,
              "--skip-faulty can only be used with --import.");
    EXPECT_EQ(Read({"--backup", "a", "b"}).fault, "The option --backup takes at most one folder.");
    EXPECT_EQ(Read({"--backup", "--keep", "0"}).fault,
              "The option --keep needs a number of at least 1.");
    EXPECT_EQ(Read({"--backup", "--keep", "many"}).fault, "The option --keep needs a number.");
    EXPECT_EQ(Read({"--restore", "a", "--keep", "3"}).fault,
              "--keep can only be used with --backup.");
    EXPECT_NE(Read({"--frobnicate"}).fault, "");
}

TEST(OfficeCommandLine, DayBookNamesItsDaysFileAndFilters) {
    SetClock([] { return ParseDate("2026-11-20"); });
    const Request request =
        Read({"--day-book", "01/11/2026", "today", "--csv", "book.csv", "--sums", "Party",
              "--party", "6010001", "--commodity", "2", "--vehicle", "LEA", "--inside"});
    EXPECT_EQ(request.fault, "");
    EXPECT_EQ(request.act, Request::Act::DayBook);
    EXPECT_EQ(request.file, "book.csv");
    EXPECT_EQ(request.dayBook.sums, SumsBy::Party);
    EXPECT_FALSE(request.dayBook.isWorkbook);
    const ArrivalFilter& filter = request.dayBook.filter;
    EXPECT_EQ(filter.from, ParseDate("2026-11-01"));
    EXPECT_EQ(filter.to, ParseDate("2026-11-20"));
    EXPECT_EQ(filter.party, "6010001");
    EXPECT_EQ(filter.commodity, "2");
    EXPECT_EQ(filter.vehicle, "LEA");
    EXPECT_TRUE(filter.onlyInside);
    EXPECT_EQ(
        Read({"--day-book", "yesterday", "2026-11-20", "--xlsx", "b.xlsx"}).dayBook.filter.from,
        ParseDate("2026-11-19"));
    SetClock({});
}

TEST(OfficeCommandLine, IncompleteDayBookArgumentsAreReported) {
    const auto fault = [](std::vector<std::string> arguments) { return Read(arguments).fault; };
    EXPECT_EQ(fault({"--day-book", "2026-11-20", "--csv", "x"}),
              "A day book needs a first and a last day.");
    EXPECT_EQ(fault({"--day-book", "2026-11-20", "2026-02-30", "--csv", "x"}),
              "\"2026-02-30\" is not a date. Write it as 2026-11-20.");
    EXPECT_EQ(fault({"--day-book", "2026-11-20", "2026-11-19", "--csv", "x"}),
              "The last day of the day book is before its first one.");
    const std::string oneFile = "A day book needs one file, with --csv or --xlsx.";
    EXPECT_EQ(fault({"--day-book", "2026-11-20", "2026-11-20"}), oneFile);
    EXPECT_EQ(fault({"--day-book", "2026-11-20", "2026-11-20", "--csv", "x", "--xlsx", "y"}),
              oneFile);
    EXPECT_EQ(fault({"--day-book", "2026-11-20", "2026-11-20", "--xlsx", "-"}),
              "A workbook needs a file with a name.");
    EXPECT_EQ(fault({"--day-book", "2026-11-20", "2026-11-20", "--csv", "x", "--sums", "week"}),
              "The option --sums needs day, party or commodity.");
    EXPECT_EQ(fault({"--export", "parties", "x", "--csv", "y"}),
              "--csv can only be used with --day-book.");
}

} // namespace
} // namespace Quillane::Office
