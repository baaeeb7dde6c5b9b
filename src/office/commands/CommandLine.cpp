#include "office/commands/CommandLine.h"

#include "office/commands/DriverCommand.h"
#include "office/daybook/Days.h"
#include "office/records/Tables.h"

#include <QCommandLineParser>
#include <QString>

namespace Quillane::Office {

namespace {

constexpr const char* Help = R"(Usage: quillane-office [command] [options]

The office of a flour mill's weighbridge: its lists, its users and its backups.
Without a command the window opens.

Commands:
  --import TABLE FILE    compare a CSV file with a list, and write it if confirmed
  --export TABLE FILE    write a list as a CSV file
  --day-book FROM TO     write the arrivals of these days to the file that --csv or
                         --xlsx names
  --add-user NAME        add a user of the stations; the password is asked for
  --reset-password NAME  give a user a new password, which is asked for
  --register-driver SCOPE
                         register the driver of SQL Server, of the package tdsodbc;
                         SCOPE is system (for all users) or user (for this one)
  --backup [FOLDER]      make a backup of the station's database, also while stations
                         run; without FOLDER in the folder set in Station.ini
  --restore FILE         replace the database by a backup, if confirmed
  --move-to-server SERVER
                         move the station's database to a SQL Server, if confirmed
  -h, --help             print this text and exit
  -v, --version          print the version and exit

Days: 2026-11-20, 20/11/2026, today, yesterday
Tables: cities, parties, commodities, bag-classes, bag-types

Options:
  --station FOLDER       the folder with Config.ini; without it the same folder that
                         the station uses
  --yes                  with --import, --restore and --move-to-server: write without
                         asking
  --skip-faulty          with --import: skip faulty lines, write the others
  --csv FILE             with --day-book: a CSV file
  --xlsx FILE            with --day-book: a workbook, with the sums on more sheets
  --sums BY              with --csv: the sums by day, party or commodity instead of
                         the arrivals
  --party ACCOUNT        with --day-book: only this party
  --commodity ID         with --day-book: only this commodity
  --vehicle TEXT         with --day-book: only vehicle numbers that contain the text
  --inside               with --day-book: only trucks without a tare
  --keep N               with --backup: remove the oldest backups beyond N; without it
                         the number in Station.ini, or none
  --level N              with --add-user: 1 full rights, 2 restricted (the default)
  --user NAME            with --move-to-server: the login of the station; its password
                         is asked for
  --database NAME        with --move-to-server: the existing database on the server;
                         without it the one with the same name as here
  --port N               with --move-to-server: the port; without it 1433
  --options TEXT         with --move-to-server: more attributes for the driver, such as
                         Encryption=require
  --sign-in NAME         use the login NAME on the database server instead of the one
                         in Config.ini; its password is asked for first

FILE can be - for the standard input or output. Passwords are read from the
terminal, otherwise from lines of the standard input; never from an argument.

Exit codes: 0 done; 1 an error of the database or of a file; 2 wrong arguments;
3 refused, nothing was written: faulty lines, a rule for users, or a server that
cannot be used; 4 not confirmed, nothing was written; 5 cancelled, nothing was
written.
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
                            {"day-book", "", "from"},
                            {"csv", "", "file"},
                            {"xlsx", "", "file"},
                            {"sums", "", "by"},
                            {"party", "", "account"},
                            {"commodity", "", "id"},
                            {"vehicle", "", "text"},
                            {"inside", ""},
                            {"add-user", "", "name"},
                            {"reset-password", "", "name"},
                            {"register-driver", "", "place"},
                            {"backup", ""},
                            {"restore", "", "file"},
                            {"move-to-server", "", "server"},
                            {"user", "", "name"},
                            {"database", "", "name"},
                            {"port", "", "number"},
                            {"options", "", "text"},
                            {"keep", "", "number"},
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
        request_.level = WholeNumber("level", request_.level);
        request_.keep = WholeNumber("keep", request_.keep);
        request_.move = {.server = Value("move-to-server"),
                         .port = Value("port"),
                         .database = Value("database"),
                         .user = Value("user"),
                         .options = Value("options")};
        if (request_.act == Request::Act::DayBook)
            ReadDayBook();
        else
            ReadFile();
        RefuseUnusedOptions();
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
        if (request_.act != Request::Act::Window)
            Refuse("Only one command can be given at a time.");
        request_.act = act;
        if (value)
            request_.*value = Value(option);
    }

    void ReadCommand() {
        Take("import", Request::Act::Import, &Request::table);
        Take("export", Request::Act::Export, &Request::table);
        Take("day-book", Request::Act::DayBook, nullptr);
        Take("add-user", Request::Act::AddUser, &Request::user);
        Take("reset-password", Request::Act::ResetPassword, &Request::user);
        Take("register-driver", Request::Act::RegisterDriver, &Request::driverFor);
        if (request_.act == Request::Act::RegisterDriver && !IsDriverScope(request_.driverFor))
            Refuse("The option --register-driver needs \"system\" or \"user\".");
        Take("backup", Request::Act::Backup, nullptr);
        Take("restore", Request::Act::Restore, &Request::file);
        Take("move-to-server", Request::Act::Move, nullptr);
        if (parser_.isSet("help"))
            request_.act = Request::Act::Help;
        else if (parser_.isSet("version"))
            request_.act = Request::Act::Version;
    }

    int WholeNumber(const char* option, int otherwise) {
        if (!parser_.isSet(option))
            return otherwise;
        bool isNumber = false;
        const int number = parser_.value(option).toInt(&isNumber);
        if (!isNumber)
            Refuse("The option --" + std::string(option) + " needs a number.");
        return number;
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
        else if (request_.act == Request::Act::Backup)
            ReadFolder(rest);
        else if (!IsOfTable() && !rest.isEmpty())
            Refuse("Unexpected argument \"" + rest.first().toStdString() + "\".");
        if (IsOfTable() && !rest.isEmpty())
            request_.file = rest.first().toStdString();
    }

    Date DayOf(const QString& text) {
        const std::optional<Date> day = ReadDay(text.toStdString());
        if (!day)
            Refuse("\"" + text.toStdString() + "\" is not a date. Write it as 2026-11-20.");
        return day.value_or(Today());
    }

    void ReadPeriod() {
        const QStringList rest = parser_.positionalArguments();
        if (rest.size() != 1)
            return Refuse("A day book needs a first and a last day.");
        ArrivalFilter& filter = request_.dayBook.filter;
        filter.from = DayOf(parser_.value("day-book"));
        filter.to = DayOf(rest.first());
        if (filter.to < filter.from)
            Refuse("The last day of the day book is before its first one.");
    }

    void ReadSums() {
        if (!parser_.isSet("sums"))
            return;
        request_.dayBook.sums = SumsNamed(Value("sums"));
        if (!request_.dayBook.sums)
            Refuse("The option --sums needs day, party or commodity.");
        if (request_.dayBook.isWorkbook)
            Refuse("--sums can only be used with --csv. A workbook contains all sums.");
    }

    void ReadDayBook() {
        ReadPeriod();
        ArrivalFilter& filter = request_.dayBook.filter;
        filter.party = Value("party");
        filter.commodity = Value("commodity");
        filter.vehicle = Value("vehicle");
        filter.onlyInside = parser_.isSet("inside");
        request_.dayBook.isWorkbook = parser_.isSet("xlsx");
        request_.file = Value(request_.dayBook.isWorkbook ? "xlsx" : "csv");
        if (parser_.isSet("xlsx") == parser_.isSet("csv") || request_.file.empty())
            Refuse("A day book needs one file, with --csv or --xlsx.");
        if (request_.dayBook.isWorkbook && request_.file == "-")
            Refuse("A workbook needs a file with a name.");
        ReadSums();
    }

    void ReadFolder(const QStringList& rest) {
        if (rest.size() > 1)
            Refuse("The option --backup takes at most one folder.");
        else if (!rest.isEmpty())
            request_.folder = rest.first().toStdString();
    }

    void RefuseUnusedOptions() {
        const bool isImport = request_.act == Request::Act::Import;
        if (!isImport && request_.skipsFaulty)
            Refuse("--skip-faulty can only be used with --import.");
        const bool asks =
            isImport || request_.act == Request::Act::Restore || request_.act == Request::Act::Move;
        if (!asks && request_.isConfirmed)
            Refuse("--yes can only be used with --import, --restore and --move-to-server.");
        if (parser_.isSet("keep") && request_.act != Request::Act::Backup)
            Refuse("--keep can only be used with --backup.");
        if (parser_.isSet("keep") && request_.keep < 1)
            Refuse("The option --keep needs a number of at least 1.");
        if (request_.act != Request::Act::AddUser && parser_.isSet("level"))
            Refuse("--level can only be used with --add-user.");
        RefuseUnless(Request::Act::DayBook, "--day-book",
                     {"csv", "xlsx", "sums", "party", "commodity", "vehicle", "inside"});
        RefuseUnless(Request::Act::Move, "--move-to-server",
                     {"user", "database", "port", "options"});
    }

    void RefuseUnless(Request::Act act, const std::string& command,
                      std::initializer_list<const char*> options) {
        for (const char* option : options)
            if (request_.act != act && parser_.isSet(option))
                Refuse("--" + std::string(option) + " can only be used with " + command + ".");
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
