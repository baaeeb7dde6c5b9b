#include "office/window/RunOffice.h"

#include "office/backup/Restore.h"
#include "office/window/BackupPage.h"
#include "office/window/OfficeWindow.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "signin/UserLogin.h"
#include "station/StationDatabase.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>

#include <filesystem>

namespace Quillane::Office {
namespace {

using Testing::ScreenDriver;
using Testing::VisitModal;

class OfficeStart : public testing::Test {
protected:
    ~OfficeStart() override {
        QApplication::setQuitOnLastWindowClosed(false);
        UserLogin.Release();
    }

    /// Signs in and returns the titles of the window's pages.
    QStringList PagesOf(const char* user, const char* password) {
        const VisitModal visit([=](Screen& dialog) {
            ScreenDriver(dialog)
                .Type(user)
                .Press(Qt::Key_Return)
                .Type(password)
                .Press(Qt::Key_Return);
        });
        QStringList titles;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            if (auto* window = dynamic_cast<OfficeWindow*>(QApplication::activeWindow())) {
                titles = window->Titles();
                window->close();
            }
        });
        look.start(1);
        EXPECT_EQ(Run(), 0);
        return titles;
    }

    int Run() {
        return RunOffice([this](Connection& connection) { database.Open(connection); },
                         database.folder.path);
    }

    StationDatabase database;
};

TEST_F(OfficeStart, UserOfLevelOneSignsInAsAtTheStationAndSeesThePages) {
    EXPECT_TRUE(PagesOf("nadia", "grain").contains("Lists"));
}

TEST_F(OfficeStart, UserOfLevelTwoSeesNoListsAndNoUsers) {
    database.Run("Update StationUsers Set UserLevel = 2");
    const QStringList titles = PagesOf("nadia", "grain");
    for (const char* title : {"Lists", "Users", "Company", "Station"})
        EXPECT_FALSE(titles.contains(title));
}

TEST_F(OfficeStart, SignInShowsTheNameOfTheProgram) {
    QCoreApplication::setApplicationName("Quillane Office");
    bool isShown = false;
    const VisitModal visit([&](Screen& dialog) {
        for (const auto* label : dialog.findChildren<QLabel*>())
            isShown = isShown || label->text() == "Quillane Office";
        ScreenDriver(dialog).Press(Qt::Key_Escape);
    });
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(isShown);
    QCoreApplication::setApplicationName("Quillane");
}

TEST_F(OfficeStart, CancelledSignInOpensNoWindow) {
    const VisitModal visit([](Screen& dialog) { ScreenDriver(dialog).Press(Qt::Key_Escape); });
    EXPECT_EQ(Run(), 0);
}

/// Operates the windows and boxes of a restore in order, each when it has the focus.
class EmbeddedOfficeRestore : public OfficeStart {
protected:
    EmbeddedOfficeRestore() {
        std::filesystem::create_directories(database.folder.File("backups"));
        std::filesystem::copy_file(database.folder.File("Account1.db"), copy);
        database.Run("Delete From ArrivalsBody; Delete From Arrivals");
    }

    using Step = std::function<bool(QWidget& window)>; ///< true: this window needs no more steps
    static bool SignIn(QWidget& window) {
        auto* dialog = dynamic_cast<Screen*>(&window);
        if (!dialog)
            return false;
        ScreenDriver(*dialog)
            .Type("nadia")
            .Press(Qt::Key_Return)
            .Type("grain")
            .Press(Qt::Key_Return);
        return true;
    }
    static bool AskForRestore(QWidget& window) {
        auto* office = dynamic_cast<OfficeWindow*>(&window);
        if (!office)
            return false;
        office->ShowPage(BackupTitle);
        Testing::PressIn(*office, Qt::CTRL | Qt::Key_R);
        return true;
    }
    static bool CloseOnBackupPage(QWidget& window) {
        auto* office = dynamic_cast<OfficeWindow*>(&window);
        if (!office)
            return false;
        EXPECT_TRUE(dynamic_cast<BackupPage*>(office->CurrentPage()));
        office->close();
        return true;
    }
    /// Records the text of a box and presses a letter or Enter.
    Step AnswerBox(QKeyCombination key) {
        return [this, key](QWidget& window) {
            auto* box = dynamic_cast<QMessageBox*>(&window);
            if (!box)
                return false;
            texts.push_back(FromQt(box->text()));
            Testing::PressIn(*box, key);
            return true;
        };
    }
    void Work(std::vector<Step> steps) {
        steps_ = std::move(steps);
        next_ = 0;
        const QObject owner;
        owner_ = &owner;
        Look();
        EXPECT_EQ(Run(), 0);
        EXPECT_EQ(next_, steps_.size());
    }
    std::string Arrivals() {
        return database.Rows("Select Count(*) From Arrivals").at(0).at(0).TextOrEmpty();
    }

    std::string copy = database.folder.File("backups/Account1-20261121-231500.db");
    std::vector<std::string> texts;

private:
    // A step that opens a box runs until the next step has answered the box, so each look has a new
    // timer.
    void Look() {
        QTimer::singleShot(1, owner_, [this] { Look(); });
        QWidget* window = QApplication::activeWindow();
        if (!window || window == last_ || next_ == steps_.size())
            return;
        const std::size_t step = next_++;
        last_ = window;
        if (steps_[step](*window))
            return;
        --next_;
        last_ = nullptr;
    }

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    QPointer<QWidget> last_;
    const QObject* owner_ = nullptr;
};

TEST_F(EmbeddedOfficeRestore, CopyReplacesTheDatabaseAndTheUserSignsInAgain) {
    Work({SignIn, AskForRestore, AnswerBox(Qt::ALT | Qt::Key_R), AnswerBox(Qt::Key_Return), SignIn,
          CloseOnBackupPage});
    EXPECT_NE(Arrivals(), "0");
    const std::vector<std::string> kept = KeptByRestores(database.folder.File("Account1.db"));
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_NE(texts.at(1).find(kept[0]), std::string::npos) << texts.at(1);
}

TEST_F(EmbeddedOfficeRestore, RestoreIsUndoneByTheKeptDatabase) {
    Work({SignIn, AskForRestore, AnswerBox(Qt::ALT | Qt::Key_R), AnswerBox(Qt::Key_Return), SignIn,
          [](QWidget& window) {
              auto* office = dynamic_cast<OfficeWindow*>(&window);
              if (!office)
                  return false;
              auto* page = dynamic_cast<BackupPage*>(office->CurrentPage());
              EXPECT_EQ(page->Copies()->model()->index(0, 1).data().toString(), "a restore");
              page->Copies()->selectRow(0);
              Testing::PressIn(*office, Qt::CTRL | Qt::Key_R);
              return true;
          },
          AnswerBox(Qt::ALT | Qt::Key_R), AnswerBox(Qt::Key_Return), SignIn, CloseOnBackupPage});
    EXPECT_EQ(Arrivals(), "0");
}

TEST_F(EmbeddedOfficeRestore, IsRefusedWhileAStationHasTheDatabaseOpen) {
    Connection station;
    database.Open(station);
    Work({SignIn, AskForRestore, AnswerBox(Qt::ALT | Qt::Key_R), AnswerBox(Qt::Key_Return),
          CloseOnBackupPage});
    EXPECT_NE(texts.at(1).find("Close every station and office that uses it"), std::string::npos)
        << texts.at(1);
    EXPECT_EQ(Arrivals(), "0");
    EXPECT_TRUE(KeptByRestores(database.folder.File("Account1.db")).empty());
}

} // namespace
} // namespace Quillane::Office
