#pragma once

#include "faults/ServerStation.h"
#include "platform/ado/Connection.h"
#include "servers/ServerRelay.h"
#include "servers/SqlServerDatabase.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Testing {

/// A station with the sample rows (arrivals 1031 to 1042) on a fresh database of the SQL Server
/// that tests/sqlserver.local names, reached through a relay, and the owner's connection beside it.
/// Skipped, out loud, where there is no such file.
class FaultsTest : public testing::Test {
protected:
    using Moment = ServerRelay::Moment;
    using Kind = ServerRelay::Kind;
    static constexpr int NextId = 1043;

    void SetUp() override;
    void TearDown() override;

    /// A new start of the station, over a way that is whole again.
    void StartAnew(int commandTimeout = 30);
    FrmWeighment& Screen() { return *station->screen; }

    /// The first field of the first row.
    std::string Ask(std::string_view query) { return beside.Execute(query).Fields(0).Text(); }
    void Run(std::string_view statement) { beside.Execute(statement); }
    /// How often an arrival of this driver is stored, each whole: header, and all of its lines.
    int Stored(const std::string& driver);
    /// Rows of all tables that the station writes.
    std::vector<std::string> Tables();
    /// A fresh weighment is entered and saved without any box but the question of printing.
    void ExpectNextSaveWorks();

    /// The words of a box that reports a failure of the database, and nothing else.
    static std::string WordsOf(const Box& box);

    std::optional<SqlServerDatabase> database;
    Connection beside;
    std::optional<ServerRelay> relay;
    std::optional<ServerStation> station;
};

/// What a box says whose failure is one of the way to the server, behind the driver's words.
inline const std::string LostWords =
    "\nThe connection to the database server is lost. Start the program again to connect anew.";
inline const std::string UnknownWords =
    "\nIt is not known whether this was still saved or removed: "
    "look it up before you do it again.";

bool Holds(std::string_view text, std::string_view part);

} // namespace Quillane::Testing
