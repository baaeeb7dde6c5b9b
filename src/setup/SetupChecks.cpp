#include "setup/SetupChecks.h"

#include "platform/comm/LineDevice.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"

#include <QByteArray>
#include <QTemporaryFile>

#include <map>

namespace Quillane {

namespace {

/// A new database with the sample rows is smaller than this, its journal included.
constexpr qsizetype bytesOfNewStation = qsizetype{2} * 1024 * 1024;

// A write to an almost full disk may succeed in part; only the next one then gives the reason.
bool WriteAll(QFile& file, const QByteArray& bytes) {
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 taken = file.write(bytes.constData() + written, bytes.size() - written);
        if (taken <= 0)
            return false;
        written += taken;
    }
    return file.flush();
}

} // namespace

void CheckFolderTakesFiles(const std::string& folder) {
    QTemporaryFile trial(ToQt(folder + "/set-up-XXXXXX"));
    if (trial.open() && WriteAll(trial, QByteArray(bytesOfNewStation, '\0')))
        return;
    throw Failure(
        FailureNumber::PathAccess,
        "Nothing can be stored in the station folder " + folder + ": " +
            FromQt(trial.errorString()) +
            ".\r\nThe station cannot be set up there. Please give this user the right to "
            "write in the folder, free some space on the disk, or name another folder with the "
            "option --station.");
}

std::string PortFaults(const StationFile& station) {
    std::map<int, std::string> ports = station.Ports;
    if (ports.empty())
        ports[1] = station.PortDevice(1);
    std::string faults;
    for (const auto& [number, device] : ports)
        if (const std::string fault = FaultOfDevice(device); !fault.empty())
            faults += (faults.empty() ? "" : "\n") + std::string("Port ") + std::to_string(number) +
                      " (" + device + ") cannot be used yet: " + fault;
    return faults;
}

} // namespace Quillane
