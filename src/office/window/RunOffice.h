#pragma once

#include <string>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// Signs in as at the station and shows the main window until it is closed. Gives the exit code of
/// the process: 0 also where nobody signs in.
int RunOffice(Connection& connection, const std::string& folder);

/// Asks for the password of the database server's sign-in. Returns false if the user cancels.
bool AskServerPassword(const std::string& signIn, std::string& password);

} // namespace Quillane::Office
