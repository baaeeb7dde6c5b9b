#include "office/commands/Commands.h"

#include "office/commands/DayBookCommand.h"
#include "office/records/ImportPlan.h"
#include "office/records/Users.h"
#include "platform/ado/Connection.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"

#include <QFile>

#include <iostream>
#include <iterator>

namespace Quillane::Office {

namespace {

using Kind = ImportLine::Kind;

std::string ReadInput(const std::string& file, Terminal& terminal) {
    if (file == "-")
        return {std::istreambuf_iterator<char>(terminal.in), {}};
    if (!QFile::exists(QString::fromStdString(file)))
        throw Failure(FailureNumber::FileNotFound,
                      "The file " + file + " does not exist. Check the path.");
    return ReadWholeFile(file);
}

void ReportPlan(const ImportPlan& plan, Terminal& terminal) {
    for (const std::string& column : plan.unreadColumns)
        terminal.err << "The column \"" << column << "\" is unknown and ignored.\n";
    for (const ImportLine& line : plan.lines)
        if (!line.text.empty())
            terminal.err << "Line " << line.line
                         << (line.shown.empty() ? "" : " (" + line.shown + ")")
                         << (line.kind == Kind::Faulty ? ", faulty: " : ", note: ") << line.text
                         << "\n";
    terminal.out << plan.table->title << ": " << plan.Summary() << ".\n";
}

ExitCode WritePlan(Connection& connection, const ImportPlan& plan, Terminal& terminal) {
    const std::vector<RowChange> changes = plan.Changes();
    const WriteResult result = WriteRows(connection, *plan.table, changes);
    if (result.end == WriteResult::End::Conflicts) {
        terminal.err << DescribeConflict(
                            *plan.table, changes[result.conflict.change], result.conflict,
                            [](std::size_t column, const Row& row) { return row[column]; })
                     << "\n";
        return ExitCode::Refused;
    }
    terminal.out << changes.size() << (changes.size() == 1 ? " row" : " rows") << " written.\n";
    return ExitCode::Done;
}

ExitCode Import(Connection& connection, const Request& request, Terminal& terminal) {
    const Table& table = *TableNamed(request.table);
    const ImportPlan plan =
        PlanImport(ReadSnapshot(connection, table), ReadInput(request.file, terminal));
    if (!plan.fault.empty()) {
        terminal.err << plan.fault << "\n";
        return ExitCode::Refused;
    }
    ReportPlan(plan, terminal);
    if (plan.Count(Kind::Faulty) > 0 && !request.skipsFaulty) {
        terminal.err << "Nothing has been written. Correct the faulty lines, or skip them with "
                        "--skip-faulty.\n";
        return ExitCode::Refused;
    }
    if (plan.Count(Kind::New) + plan.Count(Kind::Changed) == 0)
        return ExitCode::Done;
    if (!request.isConfirmed && !terminal.confirm("Write this?")) {
        terminal.err << "Nothing has been written. Answer yes, or use --yes.\n";
        return ExitCode::NotConfirmed;
    }
    return WritePlan(connection, plan, terminal);
}

ExitCode Export(Connection& connection, const Request& request, Terminal& terminal) {
    const Table& table = *TableNamed(request.table);
    const Snapshot known = ReadSnapshot(connection, table);
    if (request.file == "-") {
        terminal.out << ExportText(known) << std::flush;
        return ExitCode::Done;
    }
    WriteWholeFile(request.file, ExportText(known));
    terminal.out << table.title << ": " << known.rows.Rows().size() << " rows written to "
                 << request.file << ".\n";
    return ExitCode::Done;
}

ExitCode SetPasswordBy(const std::string& user, Terminal& terminal,
                       const std::function<std::string(const std::string&)>& write) {
    terminal.err << PasswordRule() << "\n";
    const std::string password = terminal.password("Password of " + user + ": ");
    if (terminal.password("The same again: ") != password) {
        terminal.err << "The two passwords differ. Nothing has been written. Try again.\n";
        return ExitCode::Refused;
    }
    if (const std::string why = write(password); !why.empty()) {
        terminal.err << why << "\n";
        return ExitCode::Refused;
    }
    return ExitCode::Done;
}

ExitCode AddUserOf(Connection& connection, const Request& request, Terminal& terminal) {
    const ExitCode code = SetPasswordBy(request.user, terminal, [&](const std::string& password) {
        return AddUser(connection, {request.user, request.level}, password, terminal.hashCost);
    });
    if (code == ExitCode::Done)
        terminal.out << "User " << request.user << " has been added with level " << request.level
                     << ".\n";
    return code;
}

ExitCode ResetPasswordOf(Connection& connection, const Request& request, Terminal& terminal) {
    const ExitCode code = SetPasswordBy(request.user, terminal, [&](const std::string& password) {
        return SetPassword(connection, request.user, password, terminal.hashCost);
    });
    if (code == ExitCode::Done)
        terminal.out << "User " << request.user << " has a new password.\n";
    return code;
}

} // namespace

ExitCode RunCommand(Connection& connection, const Request& request, Terminal& terminal) {
    switch (request.act) {
    case Request::Act::Import:
        return Import(connection, request, terminal);
    case Request::Act::Export:
        return Export(connection, request, terminal);
    case Request::Act::DayBook:
        return WriteDayBook(connection, request, terminal);
    case Request::Act::AddUser:
        return AddUserOf(connection, request, terminal);
    case Request::Act::ResetPassword:
        return ResetPasswordOf(connection, request, terminal);
    default:
        return ExitCode::WrongArguments;
    }
}

} // namespace Quillane::Office
