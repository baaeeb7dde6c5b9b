#pragma once

#include "setup/SqlServerContents.h"
#include "setup/SqlServerTarget.h"

#include <memory>
#include <string>

namespace Quillane {

class Connection;
class Failure;

/// The sign-in for the set-up only, if the station's sign-in may not create tables. With an empty
/// name the station's sign-in is used.
struct OwnerSignIn {
    std::string userName{};
    std::string password{};

    bool IsGiven() const { return !userName.empty(); }
};

/// The same database with the owner's sign-in, if one is given.
SqlServerTarget TargetForSetup(const SqlServerTarget& station, const OwnerSignIn& owner);

/// The result of a test.
struct TryOut {
    bool works = false;
    std::string answer; ///< for the user of the dialog, with the driver's text
    SqlServerContents contents;
};

/// Signs in as the station, and as the owner if one is given, and examines the database. Throws
/// nothing: the answer describes a failure.
TryOut TrySqlServer(const SqlServerTarget& station, const OwnerSignIn& owner);

/// Opens the database as the start-up does, with a shorter time-out. `commandSeconds` is the
/// time-out of a statement.
std::unique_ptr<Connection> OpenSqlServer(const SqlServerTarget& target, int commandSeconds = 30);

/// The reason why a database cannot be opened, and what to do, followed by the driver's text. It is
/// found by the codes of the failure. `serverAnswers` is true if the server accepts the same
/// sign-in for its database "master".
std::string WhyItDoesNotOpen(const SqlServerTarget& target, const Failure& failure,
                             bool serverAnswers);

} // namespace Quillane
