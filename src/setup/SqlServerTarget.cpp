#include "setup/SqlServerTarget.h"

#include "platform/forms/core/Text.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"

#include <algorithm>

namespace Quillane {

namespace {

using Entry = std::string SqlServerTarget::*;

/// The name of an entry at the beginning and inside of a sentence.
struct EntryName {
    const char* first;
    const char* within;
};

EntryName NameOf(Entry entry) {
    if (entry == &SqlServerTarget::server)
        return {"The server's name", "server's name"};
    if (entry == &SqlServerTarget::database)
        return {"The database's name", "database's name"};
    if (entry == &SqlServerTarget::userName)
        return {"The name", "name"};
    if (entry == &SqlServerTarget::password)
        return {"The password", "password"};
    return {"The options", "options"};
}

bool Holds(std::string_view text, std::string_view any) {
    return text.find_first_of(any) != std::string_view::npos;
}

bool HasInstance(const SqlServerTarget& target) {
    return Holds(target.server, "\\");
}

bool HoldsControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char character) {
        return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
    });
}

// FreeTDS reads a value in braces up to the first closing brace before a semicolon. It does not
// know doubled braces.
bool CanBeWritten(std::string_view value, SqlServerDriver driver) {
    if (HoldsControlCharacter(value))
        return false;
    return driver != SqlServerDriver::FreeTds || value.find("};") == std::string_view::npos;
}

std::string ValueFor(std::string_view value, SqlServerDriver driver) {
    if (driver == SqlServerDriver::FreeTds) {
        const bool plain = !Holds(value, ";") && !value.starts_with('{');
        return plain ? std::string(value) : "{" + std::string(value) + "}";
    }
    if (!Holds(value, "{}[](),;?*=!@ "))
        return std::string(value);
    return "{" + Doubled(value, '}') + "}";
}

std::string FaultOfServer(const std::string& server) {
    if (server.empty())
        return "Enter the server's name or address.";
    if (Holds(server, ","))
        return "Enter the port in its own box, not after the server's name.";
    if (Holds(server, " ;=\"'{}") || EqualIgnoringCase(server, "(embedded)"))
        return "This is not a name or address of a server.";
    return {};
}

std::string FaultOfPort(const SqlServerTarget& target) {
    if (HasInstance(target))
        return target.port.empty()
                   ? ""
                   : "Enter either the port or, after the server, the name of an instance.";
    if (target.port.empty())
        return "Enter the server's port; the usual one is 1433.";
    const bool isNumber =
        target.port.size() <= 5 && target.port.find_first_not_of("0123456789") == std::string::npos;
    if (!isNumber || ToLong(target.port) < 1 || ToLong(target.port) > 65535)
        return "A port is a number from 1 to 65535.";
    return {};
}

std::string FaultOfOptions(const std::string& options) {
    const bool isPair = options.find('=') != std::string::npos && !options.starts_with('=');
    return options.empty() || isPair ? ""
                                     : "Options are pairs that the driver knows, separated "
                                       "by semicolons: Encryption=require";
}

std::optional<TargetFault> FaultOfSignIn(const SqlServerTarget& target) {
    if (target.windowsSignIn)
        return std::nullopt;
    if (target.userName.empty())
        return TargetFault{&SqlServerTarget::userName, "Enter the name to sign in with."};
    if (target.password.empty())
        return TargetFault{&SqlServerTarget::password, "Enter the password of this name."};
    return std::nullopt;
}

std::optional<TargetFault> FaultOfValues(const SqlServerTarget& target, SqlServerDriver driver) {
    for (const Entry entry :
         {&SqlServerTarget::database, &SqlServerTarget::userName, &SqlServerTarget::password})
        if (!CanBeWritten(target.*entry, driver))
            return TargetFault{entry, std::string(NameOf(entry).first) +
                                          " contains characters that the connection string cannot "
                                          "contain, such as \"};\". Choose another."};
    return std::nullopt;
}

// A comma requires quotes around the line, and a quote in it would end it.
std::optional<TargetFault> FaultOfCommaAndQuote(const SqlServerTarget& target,
                                                SqlServerDriver driver) {
    const std::string fragment = ConfigFragment(target, driver);
    if (!Holds(fragment, ",") || !Holds(fragment, "\""))
        return std::nullopt;
    for (const Entry entry : {&SqlServerTarget::password, &SqlServerTarget::userName,
                              &SqlServerTarget::options, &SqlServerTarget::database})
        if (Holds(target.*entry, "\""))
            return TargetFault{entry, std::string("Config.ini cannot contain both a comma and a "
                                                  "double quote. Choose a ") +
                                          NameOf(entry).within + " without the double quote."};
    return std::nullopt;
}

} // namespace

SqlServerDriver DriverOfThisSystem() {
#ifdef _WIN32
    return SqlServerDriver::Windows;
#else
    return SqlServerDriver::FreeTds;
#endif
}

std::string WhyNameIsUnfit(std::string_view database) {
    const QString name = ToQt(database);
    const std::string rule = "The eighth character is the company number, as in Account1.";
    if (name.size() < 8)
        return "The database's name \"" + std::string(database) +
               "\" has fewer than eight characters. " + rule;
    if (name[7] < u'0' || name[7] > u'9')
        return "The eighth character of the database's name \"" + std::string(database) +
               "\" is not a digit. " + rule;
    return {};
}

std::optional<TargetFault> FaultOf(const SqlServerTarget& target, SqlServerDriver driver) {
    if (const std::string reason = FaultOfServer(target.server); !reason.empty())
        return TargetFault{&SqlServerTarget::server, reason};
    if (const std::string reason = FaultOfPort(target); !reason.empty())
        return TargetFault{&SqlServerTarget::port, reason};
    if (target.database.empty())
        return TargetFault{&SqlServerTarget::database, "Enter the database's name."};
    if (const std::string reason = WhyNameIsUnfit(target.database); !reason.empty())
        return TargetFault{&SqlServerTarget::database, reason};
    if (const std::string reason = FaultOfOptions(target.options); !reason.empty())
        return TargetFault{&SqlServerTarget::options, reason};
    if (const auto fault = FaultOfSignIn(target))
        return fault;
    if (const auto fault = FaultOfValues(target, driver))
        return fault;
    return FaultOfCommaAndQuote(target, driver);
}

std::string ConfigFragment(const SqlServerTarget& target, SqlServerDriver driver) {
    const bool isFreeTds = driver == SqlServerDriver::FreeTds;
    std::string text = "Server=" + target.server;
    if (!target.port.empty())
        text += (isFreeTds ? ";Port=" : ",") + target.port;
    text += ";Database=" + ValueFor(target.database, driver);
    if (target.windowsSignIn)
        text += ";Trusted_Connection=Yes";
    else
        text += ";UID=" + ValueFor(target.userName, driver) +
                ";PWD=" + ValueFor(target.password, driver);
    // After the password: a blank at the end of the string would be lost.
    if (isFreeTds)
        text += ";TDS_Version=7.4";
    if (!target.options.empty())
        text += ";" + target.options;
    while (text.ends_with(';'))
        text.pop_back();
    return text;
}

std::string ConfigFileText(std::string_view fragment) {
    const bool needsQuotes = Holds(fragment, ",");
    const std::string quote = needsQuotes ? "\"" : "";
    return quote + std::string(fragment) + quote + "\n";
}

} // namespace Quillane
