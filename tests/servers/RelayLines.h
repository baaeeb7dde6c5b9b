#pragma once

#include <string>
#include <string_view>

/// Sockets of a relay between a station and a database server.
namespace Quillane {

/// A listening socket on a free port of loopback.
int ListenOnLoopback();
/// A socket to the server that `Server` and `Port` of the connection string name; -1 if it does not
/// answer.
int ConnectToServer(const std::string& connectionString);
/// The connection string with the address of the listening relay instead of the server's.
std::string ThroughRelay(int listener, const std::string& connectionString);

/// Sends each write at once (TCP_NODELAY).
void DisableSendDelay(int line);
/// False if the socket is closed.
bool SendAll(int line, std::string_view bytes);

} // namespace Quillane
