#include "office/commands/Commands.h"
#include "office/commands/StationConnection.h"
#include "platform/ado/Connection.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "platform/host/Version.h"
#include "platform/runtime/Failure.h"

#include <QCoreApplication>

#include <iostream>

namespace {

using namespace Quillane;
using namespace Quillane::Office;

ExitCode Run(const Request& request) {
    SetStationFolder(ChooseStationFolder(SourcesOfThisProcess(request.station)));
    CheckStationFolder(StationFolder());
    TheStation() = StationFile::Read(StationFolder() + "/Station.ini");
    Terminal terminal = ProcessTerminal();
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
        std::cout << "Quillane office " << QuillaneVersion() << "\n";
        return ExitCode::Done;
    }
    return Run(request);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    try {
        return static_cast<int>(Answer(ReadArguments({argv, argv + argc})));
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return static_cast<int>(ExitCode::Failed);
    }
}
