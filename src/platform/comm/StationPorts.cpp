#include "platform/comm/StationPorts.h"

#include "platform/comm/MSComm.h"
#include "platform/host/StationFile.h"

namespace Quillane {

void UseStationPorts() {
    MSComm::SetDevices([](int port) { return TheStation().PortDevice(port); });
    MSComm::SetWholeBursts([](int port) { return TheStation().WholeBursts.contains(port); });
}

} // namespace Quillane
