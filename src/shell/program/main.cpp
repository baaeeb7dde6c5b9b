#include "platform/comm/StationPorts.h"
#include "platform/forms/core/Application.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "shell/CommandLine.h"
#include "shell/Startup.h"

#include <cstdio>

namespace {

using namespace Quillane;

constexpr int WrongArguments = 2;

std::vector<std::string> ArgumentsOf(const Application& application) {
    std::vector<std::string> texts;
    for (const QString& argument : application.arguments())
        texts.push_back(FromQt(argument));
    return texts;
}

void Start(const std::string& stationOption) {
    SetStationFolder(ChooseStationFolder(SourcesOfThisProcess(stationOption)));
    CheckStationFolder(StationFolder());
    TheStation() = StationFile::Read(StationFolder() + "/Station.ini");
    Main();
}

} // namespace

int main(int argc, char** argv) {
    // Before creating an Application, which needs a display.
    if (const std::string answer = ReadCommandLine({argv, argv + argc}).answer; !answer.empty()) {
        std::fputs(answer.c_str(), stdout);
        return 0;
    }
    Application application(argc, argv);
    NameProgram();
    const CommandLine command = ReadCommandLine(ArgumentsOf(application));
    if (!command.fault.empty()) {
        std::fprintf(stderr, "%s See --help.\n", command.fault.c_str());
        return WrongArguments;
    }
    UseStationPorts();
    RunEvent([&command] { Start(command.station); });
    // Ends the process without destroying the screens.
    EndProcess(Application::exec());
    return 0;
}
