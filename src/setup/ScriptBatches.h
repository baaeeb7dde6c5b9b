#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

class Connection;

/// The batches of a script for SQL Server, which are separated by lines that contain only GO, in
/// any case and with blanks around it. A GO within a text, a quoted name or a comment does not
/// separate. Batches without a statement are left out.
std::vector<std::string> ScriptBatches(std::string_view script);

/// Called before each batch with the number of completed batches and of all batches. Returning
/// false ends the script.
using ScriptProgress = std::function<bool(int done, int all)>;

/// Runs a script batch by batch. The first failure ends it; completed batches are not undone.
/// Returns false if `progress` has returned false.
bool RunScript(Connection& connection, std::string_view script,
               const ScriptProgress& progress = {});

} // namespace Quillane
