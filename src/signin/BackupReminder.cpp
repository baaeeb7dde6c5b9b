#include "signin/BackupReminder.h"

#include "platform/host/BackupRecord.h"

#include <QDateTime>

namespace Quillane {

std::string BackupReminder(const std::string& stationFolder, int days,
                           std::chrono::system_clock::time_point now) {
    constexpr std::chrono::hours day{24};
    if (days == 0)
        return {};
    const auto last = ReadBackupRecord(stationFolder);
    if (!last)
        return "There is no backup of the database yet. Inform the person who maintains the "
               "station.";
    if (now - *last <= days * day)
        return {};
    const auto seconds = std::chrono::system_clock::to_time_t(*last);
    const std::string date =
        QDateTime::fromSecsSinceEpoch(seconds).toString("dd/MM/yyyy").toStdString();
    return "The last good backup of the database was made on " + date +
           ". Inform the person who maintains the station.";
}

} // namespace Quillane
