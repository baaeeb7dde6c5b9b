#pragma once

#include <string>
#include <string_view>

/// The lines of a relay between a station and a database server.
namespace Quillane {

/// A listening socket on a port of loopback that nobody has.
int ListenOnLoopback();
/// A line to the server that the connection string names by `Server` and `Port`; -1 where that
/// does not answer.
int CallServer(const std::string& connectionString);
/// The connection string with the relay that listens there in place of the server.
std::string ByWayOf(int listener, const std::string& connectionString);

/// What is written goes out piece by piece as it comes.
void SendAtOnce(int line);
/// False where the line has ended.
bool SendAll(int line, std::string_view bytes);

} // namespace Quillane
