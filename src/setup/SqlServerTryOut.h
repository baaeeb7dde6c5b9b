#pragma once

#include "setup/SqlServerContents.h"
#include "setup/SqlServerPlace.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

class Connection;

/// Who signs in for the set-up alone, because the station's own sign-in may not make tables. An
/// empty name: the station's sign-in does it all.
struct OwnerSignIn {
    std::string userName{};
    std::string password{};

    bool IsGiven() const { return !userName.empty(); }
};

/// The same database with the owner's sign-in, where there is one.
SqlServerPlace PlaceForSetUp(const SqlServerPlace& station, const OwnerSignIn& owner);

/// How a try-out ended.
struct TryOut {
    bool works = false;
    std::string answer; ///< for the person who sets the station up; below it the driver's own words
    SqlServerContents contents;
};

/// Signs in as the station would and looks at the database; with an owner's sign-in also as the
/// owner. Never fails: what goes wrong is in the answer.
TryOut TrySqlServer(const SqlServerPlace& station, const OwnerSignIn& owner);

/// Opens the database the way the start-up does, with a shorter wait. A statement may take so many
/// seconds.
std::unique_ptr<Connection> OpenSqlServer(const SqlServerPlace& place, int commandSeconds = 30);

/// What is wrong where the place could not be opened, in plain words above the driver's.
/// `serverAnswers`: the server takes the same sign-in for its own database "master".
std::string WhyItDoesNotOpen(const SqlServerPlace& place, std::string_view wordsOfDriver,
                             bool serverAnswers);

} // namespace Quillane
