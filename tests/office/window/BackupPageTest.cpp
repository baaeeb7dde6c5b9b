#include "office/window/BackupPage.h"

#include "PageTest.h"

#include "platform/forms/core/Text.h"

#include <filesystem>

namespace Quillane::Office {
namespace {

namespace fs = std::filesystem;

class OfficeBackupPage : public PageTest {
protected:
    void Open() {
        page = new BackupPage(session);
        ShowPage(page);
    }
    /// Puts a copy of the database into the backup folder.
    std::string AddCopy(const std::string& name) {
        fs::create_directories(database.folder.File("backups"));
        std::string copy = database.folder.File("backups/" + name);
        database.connection.WriteBack();
        fs::copy_file(database.folder.File("Account1.db"), copy);
        return copy;
    }
    std::string Cell(int row, int column) {
        return FromQt(page->Copies()->model()->index(row, column).data().toString());
    }
    int Rows() { return page->Copies()->model()->rowCount(); }

    BackupPage* page = nullptr;
};

class OfficeBackupOnServer : public OfficeBackupPage {};

TEST_F(OfficeBackupOnServer, PageDescribesWhoMakesBackups) {
    Open();
    EXPECT_TRUE(page->Place().startsWith("The database is on a database server."));
}

class EmbeddedOfficeBackup : public OfficeBackupPage {};

TEST_F(EmbeddedOfficeBackup, BackupIsMadeByItsKeysWhileTheOfficeHasTheDatabaseOpen) {
    Open();
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(page->Remark(), "There is no copy in this folder yet.");
    const Answers answers({"OK"});
    Press(window, Qt::CTRL | Qt::Key_B);
    ASSERT_EQ(answers.Texts().size(), 1U);
    EXPECT_TRUE(answers.Texts()[0].starts_with("The backup is complete and has been checked:\n"))
        << answers.Texts()[0];
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(page->Place().toStdString(), "Folder: " + database.folder.File("backups"));
}

TEST_F(EmbeddedOfficeBackup, MissingFolderIsNamedInABox) {
    database.folder.Write("Station.ini", "[Backup]\nFolder=/mnt/no such disk\n");
    Open();
    const Answers answers({"OK"});
    Press(window, Qt::CTRL | Qt::Key_B);
    ASSERT_EQ(answers.Texts().size(), 1U);
    EXPECT_TRUE(
        answers.Texts()[0].starts_with("The backup folder /mnt/no such disk does not exist."))
        << answers.Texts()[0];
}

TEST_F(EmbeddedOfficeBackup, CopiesAreListedWithTimeAndSizeTheNewestFirst) {
    AddCopy("Account1-20261120-070000.db");
    const std::string newest = AddCopy("Account1-20261121-231500.db");
    fs::copy_file(newest, database.folder.File("Account1-before-restore-20261121-120000.db"));
    Open();
    ASSERT_EQ(Rows(), 3);
    EXPECT_EQ(Cell(0, 0), "21/11/2026 23:15:00");
    EXPECT_EQ(Cell(0, 1), "a backup");
    EXPECT_EQ(Cell(0, 2), "Account1-20261121-231500.db");
    EXPECT_TRUE(Cell(0, 3).ends_with("iB")) << Cell(0, 3);
    EXPECT_EQ(Cell(0, 4), "not checked yet");
    EXPECT_EQ(Cell(1, 1), "a restore");
    EXPECT_EQ(Cell(2, 0), "20/11/2026 07:00:00");
}

TEST_F(EmbeddedOfficeBackup, CheckShowsTheContentsOrTheFaultOfEachCopy) {
    const std::string damaged = AddCopy("Account1-20261120-070000.db");
    fs::resize_file(damaged, 10'000);
    AddCopy("Account1-20261121-231500.db");
    const std::string arrivals = database.Text("Select Count(*) From Arrivals");
    Open();
    Press(window, Qt::CTRL | Qt::Key_K);
    EXPECT_TRUE(Cell(0, 4).starts_with("complete: " + arrivals + " arrivals, the last one "))
        << Cell(0, 4);
    EXPECT_NE(Cell(1, 4).find("is not complete: it has 10000 of "), std::string::npos)
        << Cell(1, 4);
    Press(window, Qt::Key_Down);
    EXPECT_EQ(FromQt(page->Remark()), Cell(1, 4));
    LookAt(window, "backup");
}

TEST_F(EmbeddedOfficeBackup, RestoreClosesTheWindowAfterItsQuestion) {
    const std::string copy = AddCopy("Account1-20261121-231500.db");
    const std::string arrivals = database.Text("Select Count(*) From Arrivals");
    Open();
    {
        const Answers answers({"Cancel"});
        Press(window, Qt::CTRL | Qt::Key_R);
        EXPECT_NE(answers.Texts().at(0).find(copy + "\ncomplete: " + arrivals + " arrivals"),
                  std::string::npos)
            << answers.Texts().at(0);
        EXPECT_NE(answers.Texts().at(0).find("The present database, with " + arrivals),
                  std::string::npos)
            << answers.Texts().at(0);
    }
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(session.copyToRestore, "");
    const Answers answers({"Restore"});
    Press(window, Qt::CTRL | Qt::Key_R);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(session.copyToRestore, copy);
}

TEST_F(EmbeddedOfficeBackup, DamagedCopyIsRefusedBeforeTheQuestion) {
    const std::string copy = AddCopy("Account1-20261121-231500.db");
    fs::resize_file(copy, 10'000);
    Open();
    page->AskFile = [&](QWidget*, const QString& folder) {
        EXPECT_EQ(FromQt(folder), database.folder.File("backups"));
        return ToQt(copy);
    };
    for (const auto key : {Qt::Key_R, Qt::Key_O}) {
        const Answers answers({"OK"});
        Press(window, Qt::CTRL | key);
        EXPECT_NE(answers.Texts().at(0).find("is not complete"), std::string::npos)
            << answers.Texts().at(0);
    }
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(session.copyToRestore, "");
}

TEST_F(EmbeddedOfficeBackup, NothingIsRestoredWithoutACopy) {
    Open();
    page->AskFile = [](QWidget*, const QString&) { return QString(); };
    Press(window, Qt::CTRL | Qt::Key_R);
    Press(window, Qt::CTRL | Qt::Key_O);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(session.copyToRestore, "");
}

} // namespace
} // namespace Quillane::Office
