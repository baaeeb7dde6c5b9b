#include "signin/BackupReminder.h"

#include "platform/host/BackupRecord.h"
#include "station/FreshFolder.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using namespace std::chrono_literals;

class Reminder : public testing::Test {
protected:
    std::string After(std::chrono::hours age, int days) const {
        return BackupReminder(folder.path, days, backup + age);
    }

    FreshFolder folder;
    /// Noon of 10/11/2026 in UTC.
    const std::chrono::system_clock::time_point backup =
        std::chrono::sys_days(std::chrono::year(2026) / 11 / 10) + 12h;
};

TEST_F(Reminder, IsShownIfTheBackupIsOlderThanTheDays) {
    WriteBackupRecord(folder.path, backup, "/mnt/usb/Account1-20261110-170000.db");
    EXPECT_EQ(After(72h, 3), "");
    EXPECT_EQ(After(73h, 3),
              "The last good backup of the database was made on 10/11/2026. Inform the "
              "person who maintains the station.");
    EXPECT_EQ(After(24h, 3), "");
}

TEST_F(Reminder, ReportsThatThereIsNone) {
    const std::string none = "There is no backup of the database yet. Inform the person who "
                             "maintains the station.";
    EXPECT_EQ(After(0h, 3), none);
    folder.Write("LastBackup", "unreadable");
    EXPECT_EQ(After(0h, 3), none);
}

TEST_F(Reminder, IsNotShownWithoutDays) {
    EXPECT_EQ(After(1000h, 0), "");
    WriteBackupRecord(folder.path, backup, "file");
    EXPECT_EQ(After(1000h, 0), "");
}

} // namespace
} // namespace Quillane
