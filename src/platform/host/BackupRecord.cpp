#include "platform/host/BackupRecord.h"

#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"

#include <QDateTime>

namespace Quillane {

namespace {

using Clock = std::chrono::system_clock;

std::string RecordFile(const std::string& stationFolder) {
    return stationFolder + "/LastBackup";
}

} // namespace

void WriteBackupRecord(const std::string& stationFolder, Clock::time_point time,
                       const std::string& file) {
    const QDateTime at = QDateTime::fromSecsSinceEpoch(Clock::to_time_t(time), Qt::UTC);
    WriteWholeFile(RecordFile(stationFolder),
                   at.toString(Qt::ISODate).toStdString() + " " + file + "\n");
}

std::optional<Clock::time_point> ReadBackupRecord(const std::string& stationFolder) {
    try {
        const std::string text = ReadWholeFile(RecordFile(stationFolder));
        const QDateTime at = QDateTime::fromString(
            QString::fromStdString(text.substr(0, text.find(' '))), Qt::ISODate);
        if (!at.isValid())
            return std::nullopt;
        return Clock::from_time_t(at.toSecsSinceEpoch());
    } catch (const Failure&) {
        return std::nullopt;
    }
}

} // namespace Quillane
