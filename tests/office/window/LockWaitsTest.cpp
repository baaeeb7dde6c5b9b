#include "office/window/ListsPage.h"

#include "PageTest.h"

#include "data/EmbeddedFunctions.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/LockScreen.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QLineEdit>

#include <utility>

namespace Quillane::Office {
namespace {

/// A station holds the lock of the database while the office saves a new city.
class EmbeddedOfficeWaits : public PageTest {
protected:
    EmbeddedOfficeWaits() {
        waiting.SetEmbeddedSupport(
            {.folder = database.folder.path,
             .registerFunctions = RegisterEmbeddedFunctions,
             .waitForLock = [] { return WaitWithLockScreen("Your work continues"); }});
        waiting.Open("Driver=SQL Server;" + database.ConfigText());
        waiting.CursorLocation = adUseClient;
        ShowPage(new ListsPage(own));
        database.other.BeginTrans();
        database.other.Execute("Update Cities Set CityName = CityName");
    }
    /// Types a city into its form and saves it. `act` runs once in the window of the wait.
    void SaveCity(const std::function<void(LockScreen&)>& act,
                  const std::function<void(QDialog&)>& afterwards) {
        const Visit form([&](QDialog& dialog) {
            Type(dialog, "Rahwali");
            bool hasActed = false;
            QTimer look;
            QObject::connect(&look, &QTimer::timeout, &look, [&] {
                auto* screen = dynamic_cast<LockScreen*>(QApplication::activeModalWidget());
                if (screen && !std::exchange(hasActed, true))
                    act(*screen);
            });
            look.start(1);
            Press(dialog, Qt::CTRL | Qt::Key_S);
            EXPECT_TRUE(hasActed);
            afterwards(dialog);
        });
        Press(window, Qt::CTRL | Qt::Key_N);
    }
    std::string Stored() {
        return database.Text("Select Count(*) From Cities Where CityName = 'Rahwali'");
    }

    Connection waiting;
    OfficeSession own{
        .connection = waiting, .folder = database.folder.path, .user = "Nadia", .level = 1};
};

TEST_F(EmbeddedOfficeWaits, SavingShowsTheWaitAndContinuesWhenTheLockIsReleased) {
    SaveCity(
        [&](LockScreen& screen) {
            EXPECT_TRUE(IsLockScreenShown());
            EXPECT_FALSE(window.updatesEnabled());
            LookAt(screen, "lock-wait");
            database.other.CommitTrans();
        },
        [](QDialog& dialog) { EXPECT_FALSE(dialog.isVisible()); });
    EXPECT_EQ(Stored(), "1");
    EXPECT_TRUE(window.updatesEnabled());
}

TEST_F(EmbeddedOfficeWaits, CancelledWaitKeepsTheFormWithItsEntries) {
    const Answers answers({"OK"});
    SaveCity([](LockScreen& screen) { Testing::ScreenDriver(screen).Press(Qt::Key_Escape); },
             [&](QDialog& dialog) {
                 EXPECT_NE(answers.Texts().at(0).find("locked"), std::string::npos)
                     << answers.Texts().at(0);
                 EXPECT_TRUE(dialog.isVisible());
                 EXPECT_EQ(dialog.findChildren<QLineEdit*>().at(1)->text(), "Rahwali");
                 database.other.RollbackTrans();
                 Press(dialog, Qt::CTRL | Qt::Key_S);
                 EXPECT_FALSE(dialog.isVisible());
             });
    EXPECT_EQ(Stored(), "1");
}

} // namespace
} // namespace Quillane::Office
