#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include <string>

namespace Quillane {

class ConnectionString;
struct SignIn;

/// The text that goes to the driver: the connection string as it stands, with the user and password
/// of the sign-in where it has some. Where the driver is FreeTDS and the string is silent, it is
/// told the character set, since it would garble what is beyond ASCII otherwise, and the version of
/// the protocol: without one it tries several in turn, each for the whole time-out, and the oldest
/// has no end on a server that takes the call and never answers.
std::string OdbcConnectionText(const ConnectionString& connection, const SignIn& signIn,
                               bool driverIsFreeTds);

/// The library of the driver that the string names, as the driver manager finds it; empty where the
/// driver is not registered.
std::string OdbcDriverLibrary(const ConnectionString& connection);

/// What to do where the driver is not there: which Debian package brings it.
std::string MissingDriverAdvice(const std::string& driver);

/// Opens a connection, waiting no longer than the sign-in allows. Fails with all that the driver
/// says; where the driver itself is missing, with the package that brings it.
OdbcHandle ConnectByOdbc(const OdbcHandle& environment, const ConnectionString& connection,
                         const SignIn& signIn);

} // namespace Quillane
