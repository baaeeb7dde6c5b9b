#include "office/commands/BackupCommands.h"
#include "office/commands/Commands.h"
#include "office/commands/DriverCommand.h"
#include "office/commands/MoveCommand.h"
#include "office/commands/StationConnection.h"
#include "office/window/OfficeBoxes.h"
#include "office/window/RunOffice.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Application.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/LockScreen.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "platform/host/Version.h"
#include "platform/runtime/Failure.h"

#include <QCoreApplication>
#include <QIcon>

#include <iostream>

namespace {

using namespace Quillane;
using namespace Quillane::Office;

void FindStation(const Request& request) {
    SetStationFolder(ChooseStationFolder(SourcesOfThisProcess(request.station)));
    CheckStationFolder(StationFolder());
    TheStation() = StationFile::Read(StationFolder() + "/Station.ini");
}

ExitCode Run(const Request& request) {
    FindStation(request);
    Terminal terminal = ProcessTerminal();
    if (request.act == Request::Act::Backup)
        return RunBackup(StationFolder(), request, terminal);
    if (request.act == Request::Act::Restore)
        return RunRestore(StationFolder(), request, terminal);
    if (request.act == Request::Act::Move)
        return RunMove(StationFolder(), request, terminal);
    ServerSignIn signIn{.name = request.signIn};
    if (!signIn.name.empty())
        signIn.password =
            terminal.password("Password of " + signIn.name + " at the database server: ");
    Connection connection;
    OpenStationDatabase(connection, StationFolder(), signIn);
    return RunCommand(connection, request, terminal);
}

ExitCode Answer(const Request& request) {
    if (!request.fault.empty()) {
        std::cerr << request.fault << " See --help.\n";
        return ExitCode::WrongArguments;
    }
    if (request.act == Request::Act::Help) {
        std::cout << HelpText();
        return ExitCode::Done;
    }
    if (request.act == Request::Act::Version) {
        std::cout << "Quillane Office " << QuillaneVersion() << "\n";
        return ExitCode::Done;
    }
    if (request.act == Request::Act::RegisterDriver) {
        Terminal terminal = ProcessTerminal();
        return RegisterDriver(request.driverFor, terminal);
    }
    return Run(request);
}

int RunCommandLine(int argc, char** argv, const Request& request) {
    const QCoreApplication application(argc, argv);
    try {
        return static_cast<int>(Answer(request));
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return static_cast<int>(ExitCode::Failed);
    }
}

int RunWindow(int argc, char** argv, const Request& request) {
    Application application(argc, argv);
    Application::setApplicationName("Quillane Office");
    Application::setApplicationVersion(ToQt(QuillaneVersion()));
    Application::setWindowIcon(QIcon(":/office/window-icon.png"));
    int code = static_cast<int>(ExitCode::Failed);
    Guarded(nullptr, [&] {
        FindStation(request);
        ServerSignIn signIn{.name = request.signIn};
        if (!signIn.name.empty() && !AskServerPassword(signIn.name, signIn.password))
            return;
        const auto open = [&signIn](Connection& connection) {
            OpenStationDatabase(connection, StationFolder(), signIn,
                                [] { return WaitWithLockScreen("Your work continues"); });
        };
        code = RunOffice(open, StationFolder());
    });
    return code;
}

} // namespace

int main(int argc, char** argv) {
    const Request request = ReadArguments({argv, argv + argc});
    if (request.fault.empty() && request.act == Request::Act::Window)
        return RunWindow(argc, argv, request);
    return RunCommandLine(argc, argv, request);
}
