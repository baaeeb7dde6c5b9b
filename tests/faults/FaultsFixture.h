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

/// A station on a new database with the sample rows (arrivals 1031 to 1042) on the SQL Server that
/// tests/sqlserver.local names. The station reaches the server through a relay; the owner's
/// connection does not.
class FaultsTest : public testing::Test {
protected:
    using Moment = ServerRelay::Moment;
    using Kind = ServerRelay::Kind;
    static constexpr int NextId = 1043;

    void SetUp() override;
    void TearDown() override;

    /// Restores the relay and starts the station again.
    void Restart(int commandTimeout = 30);
    FrmWeighment& Screen() { return *station->screen; }

    /// The first field of the first row.
    std::string Ask(std::string_view query) { return owner.Execute(query).Fields(0).Text(); }
    void Run(std::string_view statement) { owner.Execute(statement); }
    /// The number of arrivals of this driver. Checks that each has its header and all of its lines.
    int Stored(const std::string& driver);
    /// The rows of all tables that the station writes.
    std::vector<std::string> Tables();
    /// A new weighment is entered and saved. The only box is the question of printing.
    void ExpectNextSaveWorks();

    /// The text of a box, which must be one that reports a failure of the database.
    static std::string TextOfDatabaseBox(const Box& box);

    std::optional<SqlServerDatabase> database;
    Connection owner;
    std::optional<ServerRelay> relay;
    std::optional<ServerStation> station;
};

/// The text after the driver's text in a box about a lost connection.
inline const std::string LostText =
    "\nThe connection to the database server is lost. Restart the program to reconnect.";
/// The text after that if the connection was lost during a commit.
inline const std::string UnknownOutcomeText =
    "\nThe save or removal may or may not have completed. Check the record before repeating it.";
/// The text of every statement after the server has rolled the transaction back.
inline constexpr std::string_view RolledBackText = "has rolled back the open transaction";

bool Holds(std::string_view text, std::string_view part);

} // namespace Quillane::Testing
