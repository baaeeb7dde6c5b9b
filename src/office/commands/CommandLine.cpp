#include "office/commands/CommandLine.h"

#include "office/records/Tables.h"

#include <QCommandLineParser>
#include <QString>

namespace Quillane::Office {

namespace {

constexpr const char* Help = R"(Usage: quillane-office [command] [options]

The office of a flour mill's weighbridge: its lists and its users.

Commands:
  --import TABLE FILE    compare a CSV file with a list, and write it after a yes
  --export TABLE FILE    write a list as a CSV file
  --add-user NAME        add a user of the stations; the password is asked for
  --reset-password NAME  give a user a new password, which is asked for
  -h, --help             write this text and end
  -v, --version          write the version and end

Tables: cities, parties, commodities, bag-classes, bag-types

Options:
  --station FOLDER       the folder of the station, where Config.ini lies; found as
                         by the station itself where it is not given
  --yes                  with --import: write without asking
  --skip-faulty          with --import: write the sound lines, leave the faulty ones
  --level N              with --add-user: 1 full rights, 2 restricted (the default)
  --sign-in NAME         sign in to the database server as NAME, whose password is
                         asked for first, in place of the sign-in in Config.ini

FILE may be - for the standard input or output. Passwords are read from the
terminal, or a line each from the standard input; never from an argument.

Exit codes: 0 done; 1 a failure of the database or of a file; 2 wrong arguments;
3 refused, nothing is written: faulty lines, or a rule of users; 4 not confirmed,
nothing is written.
)";

QString ToQString(const std::string& text) {
    return QString::fromStdString(text);
}

class ArgumentReader {
public:
    explicit ArgumentReader(const std::vector<std::string>& arguments) {
        QStringList texts;
        for (const std::string& argument : arguments)
            texts.append(ToQString(argument));
        parser_.addOptions({{{"h", "help"}, ""},
                            {{"v", "version"}, ""},
                            {"import", "", "table"},
                            {"export", "", "table"},
                            {"add-user", "", "name"},
                            {"reset-password", "", "name"},
                            {"station", "", "folder"},
                            {"yes", ""},
                            {"skip-faulty", ""},
                            {"level", "", "number"},
                            {"sign-in", "", "name"}});
        if (!parser_.parse(texts))
            request_.fault = parser_.errorText().toStdString();
    }

    Request Read() {
        if (!request_.fault.empty())
            return request_;
        ReadCommand();
        request_.isConfirmed = parser_.isSet("yes");
        request_.skipsFaulty = parser_.isSet("skip-faulty");
        request_.signIn = Value("sign-in");
        request_.station = Value("station");
        ReadLevel();
        ReadFile();
        RefuseLonelyOptions();
        if (request_.act == Request::Act::None)
            Refuse("No command is given.");
        return request_;
    }

private:
    std::string Value(const char* option) const { return parser_.value(option).toStdString(); }

    void Refuse(const std::string& fault) {
        if (request_.fault.empty())
            request_.fault = fault;
    }

    void Take(const char* option, Request::Act act, std::string Request::*value) {
        if (!parser_.isSet(option))
            return;
        if (request_.act != Request::Act::None)
            Refuse("Only one command can be given at a time.");
        request_.act = act;
        if (value)
            request_.*value = Value(option);
    }

    void ReadCommand() {
        Take("import", Request::Act::Import, &Request::table);
        Take("export", Request::Act::Export, &Request::table);
        Take("add-user", Request::Act::AddUser, &Request::user);
        Take("reset-password", Request::Act::ResetPassword, &Request::user);
        if (parser_.isSet("help"))
            request_.act = Request::Act::Help;
        else if (parser_.isSet("version"))
            request_.act = Request::Act::Version;
    }

    void ReadLevel() {
        if (!parser_.isSet("level"))
            return;
        bool isNumber = false;
        request_.level = parser_.value("level").toInt(&isNumber);
        if (!isNumber)
            Refuse("The option --level needs a number.");
    }

    bool IsOfTable() const {
        return request_.act == Request::Act::Import || request_.act == Request::Act::Export;
    }

    void ReadFile() {
        const QStringList rest = parser_.positionalArguments();
        if (IsOfTable() && !TableNamed(request_.table))
            Refuse("There is no table \"" + request_.table + "\".");
        if (IsOfTable() && rest.size() != 1)
            Refuse("A table and one file are needed.");
        else if (!IsOfTable() && !rest.isEmpty())
            Refuse("Unexpected argument \"" + rest.first().toStdString() + "\".");
        if (IsOfTable() && !rest.isEmpty())
            request_.file = rest.first().toStdString();
    }

    void RefuseLonelyOptions() {
        const bool isImport = request_.act == Request::Act::Import;
        if (!isImport && (request_.isConfirmed || request_.skipsFaulty))
            Refuse("--yes and --skip-faulty belong to --import.");
        if (request_.act != Request::Act::AddUser && parser_.isSet("level"))
            Refuse("--level belongs to --add-user.");
    }

    QCommandLineParser parser_;
    Request request_;
};

} // namespace

Request ReadArguments(const std::vector<std::string>& arguments) {
    return ArgumentReader(arguments).Read();
}

std::string HelpText() {
    return Help;
}

} // namespace Quillane::Office
