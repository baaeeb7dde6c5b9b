#include "shell/CommandLine.h"

#include "platform/forms/core/Text.h"
#include "platform/host/Version.h"

#include <QCommandLineParser>

namespace Quillane {

namespace {

constexpr const char* Help = R"(Usage: quillane [options]

The weighbridge station of a flour mill.

Options:
  --station FOLDER  use this station folder; it holds Config.ini, Station.ini
                    and the embedded database
  -h, --help        show this help and exit
  -v, --version     show the version and exit

Without --station the program uses the first of these folders:
  1. the folder named by the environment variable QUILLANE_STATION
  2. the folder of the program, if it holds a Config.ini
  3. /var/lib/quillane (on Windows %ProgramData%\Quillane)
If the folder holds no Config.ini, the station is set up first.
)";

QStringList ToQtList(const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& text : texts)
        list.append(ToQt(text));
    return list;
}

std::string FaultOf(const QCommandLineParser& parser, bool understood) {
    if (!understood)
        return FromQt(parser.errorText());
    if (parser.isSet("station") && parser.value("station").isEmpty())
        return "The option --station needs a folder.";
    if (!parser.positionalArguments().isEmpty())
        return "Unexpected argument '" + FromQt(parser.positionalArguments().first()) + "'.";
    return {};
}

} // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({{"station", "", "folder"}, {{"h", "help"}, ""}, {{"v", "version"}, ""}});
    const bool understood = parser.parse(ToQtList(arguments));
    CommandLine command;
    command.station = FromQt(parser.value("station"));
    if (parser.isSet("help"))
        command.answer = Help;
    else if (parser.isSet("version"))
        command.answer = "Quillane " + std::string(QuillaneVersion()) + "\n";
    command.fault = FaultOf(parser, understood);
    return command;
}

} // namespace Quillane
