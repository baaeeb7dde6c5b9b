#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include <string>

namespace Quillane {

class ConnectionAttributes;
struct SignIn;

/// The connection string for the driver: the given one, followed by the user and password of the
/// sign-in if there are any. For FreeTDS two attributes are added if the string does not have them:
/// the character set, because FreeTDS would not store text beyond ASCII correctly, and the protocol
/// version, because without one it tries several in turn, each for the whole time-out, and the
/// oldest one never times out on a server that accepts the connection and does not answer.
std::string OdbcConnectionText(const ConnectionAttributes& connection, const SignIn& signIn,
                               bool driverIsFreeTds);

/// The library of the driver that the string names, as the driver manager finds it; empty if the
/// driver is not registered.
std::string OdbcDriverLibrary(const ConnectionAttributes& connection);

/// What to do if the driver is missing: the Debian package that contains it.
std::string MissingDriverAdvice(const std::string& driver);

/// Opens a connection within the time-out of the sign-in. Errors: a Failure with all diagnostics of
/// the driver; if the driver is missing, with the package that contains it and the SQLSTATE IM002.
OdbcHandle ConnectByOdbc(const OdbcHandle& environment, const ConnectionAttributes& connection,
                         const SignIn& signIn);

} // namespace Quillane
