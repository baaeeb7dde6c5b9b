#include "platform/comm/MSComm.h"
#include "platform/forms/core/Application.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/host/ProgramFolder.h"
#include "platform/host/StationFile.h"
#include "shell/Startup.h"

int main(int argc, char** argv) {
    using namespace Quillane;
    Application application(argc, argv);
    Application::setApplicationName("Quillane");
    MSComm::SetDevices([](int port) { return TheStation().PortDevice(port); });
    RunEvent([] {
        TheStation() = StationFile::Read(ProgramFolder() + "/Station.ini");
        Main();
    });
    // The screens outlive this procedure: the process ends without taking them down.
    EndProcess(Application::exec());
    return 0;
}
