#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

class Connection;

/// The batches of a script for SQL Server: what stands between lines that hold nothing but GO, in
/// any case and with blanks around it. A GO within a text, a quoted name or a comment is none.
/// Batches without a statement are left out.
std::vector<std::string> ScriptBatches(std::string_view script);

/// Told before each batch how many have run, of how many; answers whether to go on.
using ScriptProgress = std::function<bool(int done, int all)>;

/// Runs a script batch by batch. The first failure ends it; what ran before stays. Returns false
/// where `progress` has answered no.
bool RunScript(Connection& connection, std::string_view script,
               const ScriptProgress& progress = {});

} // namespace Quillane
