#pragma once

#include <functional>
#include <string>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// Signs in as at the station and shows the main window until it is closed. If the user restores a
/// copy of an embedded database, the window is closed for it and opened again. `open` opens the
/// station's database. Returns the exit code of the process: 0 also if the user cancels the
/// sign-in.
int RunOffice(const std::function<void(Connection&)>& open, const std::string& folder);

/// Asks for the password of the database server's sign-in. Returns false if the user cancels.
bool AskServerPassword(const std::string& signIn, std::string& password);

} // namespace Quillane::Office
