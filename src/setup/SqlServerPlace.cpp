#include "setup/SqlServerPlace.h"

#include "platform/forms/core/Text.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"

#include <algorithm>

namespace Quillane {

namespace {

using Entry = std::string SqlServerPlace::*;

/// How a reason begins, and how a sentence goes on.
struct Called {
    const char* first;
    const char* within;
};

Called NameOf(Entry entry) {
    if (entry == &SqlServerPlace::server)
        return {"The server's name", "server's name"};
    if (entry == &SqlServerPlace::database)
        return {"The database's name", "database's name"};
    if (entry == &SqlServerPlace::userName)
        return {"The name", "name"};
    if (entry == &SqlServerPlace::password)
        return {"The password", "password"};
    return {"The options", "options"};
}

bool Holds(std::string_view text, std::string_view any) {
    return text.find_first_of(any) != std::string_view::npos;
}

bool HasInstance(const SqlServerPlace& place) {
    return Holds(place.server, "\\");
}

bool HoldsControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char character) {
        return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
    });
}

// FreeTDS takes a value as it stands, and one in braces up to the first closing brace in front of a
// semicolon; it knows no doubled brace.
bool CanStand(std::string_view value, SqlServerDriver driver) {
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
    std::string text = "{";
    for (const char character : value)
        text.append(character == '}' ? 2 : 1, character);
    return text + "}";
}

std::string FaultOfServer(const std::string& server) {
    if (server.empty())
        return "Please give the server's name or address.";
    if (Holds(server, ","))
        return "Please give the port in its own box, not behind the server's name.";
    if (Holds(server, " ;=\"'{}") || EqualIgnoringCase(server, "(embedded)"))
        return "This is no name or address of a server.";
    return {};
}

std::string FaultOfPort(const SqlServerPlace& place) {
    if (HasInstance(place))
        return place.port.empty()
                   ? ""
                   : "Please give either the port or, behind the server, the name of an instance.";
    if (place.port.empty())
        return "Please give the server's port; 1433 is the usual one.";
    const bool isNumber =
        place.port.size() <= 5 && place.port.find_first_not_of("0123456789") == std::string::npos;
    if (!isNumber || ToLong(place.port) < 1 || ToLong(place.port) > 65535)
        return "A port is a number from 1 to 65535.";
    return {};
}

std::string FaultOfOptions(const std::string& options) {
    const bool isPair = options.find('=') != std::string::npos && !options.starts_with('=');
    return options.empty() || isPair ? ""
                                     : "Options are pairs as the driver knows them, with "
                                       "semicolons between: Encryption=require";
}

std::optional<PlaceFault> FaultOfSignIn(const SqlServerPlace& place) {
    if (place.windowsSignIn)
        return std::nullopt;
    if (place.userName.empty())
        return PlaceFault{&SqlServerPlace::userName, "Please give the name to sign in with."};
    if (place.password.empty())
        return PlaceFault{&SqlServerPlace::password, "Please give the password of that name."};
    return std::nullopt;
}

std::optional<PlaceFault> FaultOfValues(const SqlServerPlace& place, SqlServerDriver driver) {
    for (const Entry entry :
         {&SqlServerPlace::database, &SqlServerPlace::userName, &SqlServerPlace::password})
        if (!CanStand(place.*entry, driver))
            return PlaceFault{entry, std::string(NameOf(entry).first) +
                                         " holds characters that the connection cannot carry, such "
                                         "as \"};\". Please choose another."};
    return std::nullopt;
}

// The comma asks for quotes around the line, in which a quote would end it.
std::optional<PlaceFault> FaultOfCommaAndQuote(const SqlServerPlace& place,
                                               SqlServerDriver driver) {
    const std::string fragment = ConfigFragment(place, driver);
    if (!Holds(fragment, ",") || !Holds(fragment, "\""))
        return std::nullopt;
    for (const Entry entry : {&SqlServerPlace::password, &SqlServerPlace::userName,
                              &SqlServerPlace::options, &SqlServerPlace::database})
        if (Holds(place.*entry, "\""))
            return PlaceFault{entry, std::string("Config.ini cannot hold a comma and a double "
                                                 "quote together. Please choose a ") +
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
    const std::string rule = "The eighth is the company's number, as in Account1.";
    if (name.size() < 8)
        return "The database's name \"" + std::string(database) +
               "\" has fewer than eight characters. " + rule;
    if (name[7] < u'0' || name[7] > u'9')
        return "The eighth character of the database's name \"" + std::string(database) +
               "\" is no digit. " + rule;
    return {};
}

std::optional<PlaceFault> FaultOf(const SqlServerPlace& place, SqlServerDriver driver) {
    if (const std::string reason = FaultOfServer(place.server); !reason.empty())
        return PlaceFault{&SqlServerPlace::server, reason};
    if (const std::string reason = FaultOfPort(place); !reason.empty())
        return PlaceFault{&SqlServerPlace::port, reason};
    if (place.database.empty())
        return PlaceFault{&SqlServerPlace::database, "Please give the database's name."};
    if (const std::string reason = WhyNameIsUnfit(place.database); !reason.empty())
        return PlaceFault{&SqlServerPlace::database, reason};
    if (const std::string reason = FaultOfOptions(place.options); !reason.empty())
        return PlaceFault{&SqlServerPlace::options, reason};
    if (const auto fault = FaultOfSignIn(place))
        return fault;
    if (const auto fault = FaultOfValues(place, driver))
        return fault;
    return FaultOfCommaAndQuote(place, driver);
}

std::string ConfigFragment(const SqlServerPlace& place, SqlServerDriver driver) {
    const bool isFreeTds = driver == SqlServerDriver::FreeTds;
    std::string text = "Server=" + place.server;
    if (!place.port.empty())
        text += (isFreeTds ? ";Port=" : ",") + place.port;
    text += ";Database=" + ValueFor(place.database, driver);
    if (place.windowsSignIn)
        text += ";Trusted_Connection=Yes";
    else
        text +=
            ";UID=" + ValueFor(place.userName, driver) + ";PWD=" + ValueFor(place.password, driver);
    // Never last of all: a password may end in a blank, and what ends the string loses it.
    if (isFreeTds)
        text += ";TDS_Version=7.4";
    if (!place.options.empty())
        text += ";" + place.options;
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
