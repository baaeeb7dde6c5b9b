#include "office/window/BackupPage.h"

#include "PageTest.h"

#include "support/TestedEngine.h"

#include <filesystem>

namespace Quillane::Office {
namespace {

class OfficeBackupPage : public PageTest {
protected:
    void Open() {
        page = new BackupPage(session);
        ShowPage(page);
    }

    BackupPage* page = nullptr;
};

TEST_F(OfficeBackupPage, BackupIsMadeByItsKeysWhileTheOfficeHasTheDatabaseOpen) {
    Open();
    if (OnSqlServer()) {
        EXPECT_TRUE(page->Place().startsWith("The database is on a database server."));
        return;
    }
    EXPECT_EQ(page->Backups()->count(), 0);
    const Answers answers({"OK"});
    Press(window, Qt::CTRL | Qt::Key_B);
    ASSERT_EQ(answers.Texts().size(), 1U);
    EXPECT_TRUE(answers.Texts()[0].starts_with("The backup is complete and has been checked:\n"))
        << answers.Texts()[0];
    EXPECT_EQ(page->Backups()->count(), 1);
    EXPECT_EQ(page->Place().toStdString(), "Folder: " + database.folder.File("backups"));
    LookAt(window, "backup");
}

TEST_F(OfficeBackupPage, FolderThatIsMissingIsNamedInABox) {
    database.folder.Write("Station.ini", "[Backup]\nFolder=/mnt/no such disk\n");
    Open();
    const Answers answers({"OK"});
    Press(window, Qt::CTRL | Qt::Key_B);
    ASSERT_EQ(answers.Texts().size(), 1U);
    EXPECT_TRUE(
        answers.Texts()[0].starts_with("The backup folder /mnt/no such disk does not exist."))
        << answers.Texts()[0];
}

} // namespace
} // namespace Quillane::Office
