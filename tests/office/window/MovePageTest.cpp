#include "office/window/MovePage.h"

#include "WindowDriver.h"

#include "../records/OfficeDatabase.h"
#include "support/TestedEngine.h"

#include <gtest/gtest.h>

#include <QMainWindow>

namespace Quillane::Office {
namespace {

class OfficeMovePage : public testing::Test {
protected:
    OfficeMovePage() {
        database.folder.Write("Config.ini", database.ConfigText());
        page = new MovePage(session);
        window.setCentralWidget(page);
        window.resize(1090, 640);
        ShowWindow(window);
        page->setFocus();
    }

    /// A server that does not answer.
    static SqlServerTarget Away() {
        return {.server = "127.0.0.1",
                .port = "1",
                .database = "Account1",
                .userName = "gate",
                .password = "x"};
    }

    OfficeDatabase database;
    OfficeSession session{.connection = database.connection,
                          .folder = database.folder.path,
                          .user = "Nadia",
                          .level = 1};
    QMainWindow window;
    MovePage* page = nullptr;
};

TEST_F(OfficeMovePage, DescribesTheMoveAndAsksForTheServerFirst) {
    if (OnSqlServer()) {
        EXPECT_EQ(page->Place(), "The database is on a database server already.");
        return;
    }
    const Answers answers({"OK"});
    Press(window, Qt::CTRL | Qt::Key_M);
    ASSERT_EQ(answers.Texts().size(), 1U);
    EXPECT_EQ(answers.Texts()[0], "Please choose the server first.");
    LookAt(window, "move");
}

using OfficeMovePageEmbedded = OfficeMovePage;

TEST_F(OfficeMovePageEmbedded, FailedMoveLeavesTheOfficeOnItsDatabase) {
    page->Choose(Away(), {});
    EXPECT_EQ(page->Place(), "To: Account1 on 127.0.0.1, port 1");
    const Answers answers({"Move", "OK"});
    Press(window, Qt::CTRL | Qt::Key_M);
    ASSERT_EQ(answers.Texts().size(), 2U);
    EXPECT_TRUE(answers.Texts()[1].starts_with("The move has not been finished. "))
        << answers.Texts()[1];
    EXPECT_TRUE(window.isVisible());
    EXPECT_GT(session.connection.Execute("Select Count(*) From Cities").Fields(0).Number(), 0);
}

TEST_F(OfficeMovePageEmbedded, MoveBeginsOnlyAfterYes) {
    page->Choose(Away(), {});
    const Answers answers({"Cancel"});
    Press(window, Qt::CTRL | Qt::Key_M);
    ASSERT_EQ(answers.Texts().size(), 1U);
    EXPECT_EQ(session.connection.State(), 1);
}

} // namespace
} // namespace Quillane::Office
