#include "office/window/RunOffice.h"

#include "data/CompanyProfile.h"
#include "office/backup/Restore.h"
#include "office/window/OfficeBoxes.h"
#include "office/window/OfficeWindow.h"
#include "platform/ado/Connection.h"
#include "platform/comm/StationPorts.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "signin/UserLogin.h"

#include <QApplication>
#include <QInputDialog>

namespace Quillane::Office {

namespace {

bool SignIn(Connection& connection, bool isSignedIn) {
    CompanyProfile->SetConnection(connection);
    CompanyProfile->Load();
    UserLogin->SetConnection(connection);
    return isSignedIn || UserLogin->Login();
}

/// Shows the main window until it is closed, and returns the copy that is to be restored.
std::string ShowWindow(Connection& connection, const std::string& folder, bool beginsWithBackup) {
    OfficeSession session{.connection = connection,
                          .folder = folder,
                          .company = CompanyProfile->CompanyTitle(),
                          .user = UserLogin->UserName(),
                          .level = UserLogin->UserLevel()};
    OfficeWindow window(session);
    if (beginsWithBackup)
        window.ShowPage(BackupTitle);
    QApplication::setQuitOnLastWindowClosed(true);
    window.show();
    QApplication::exec();
    QApplication::setQuitOnLastWindowClosed(false);
    return session.copyToRestore;
}

std::unique_ptr<Restoration> CheckedRestoration(const std::string& database,
                                                const std::string& copy) {
    std::unique_ptr<Restoration> restoration;
    RunLongWork("Restore", [&](LongWork& work) {
        try {
            restoration = std::make_unique<Restoration>(database, copy, work);
        } catch (const Cancelled&) {
            // The result is empty.
        }
    });
    return restoration;
}

/// False if the database is the same as before.
bool Restore(const std::string& database, const std::string& copy) {
    bool isRestored = false;
    Guarded(nullptr, [&] {
        const auto restoration = CheckedRestoration(database, copy);
        if (!restoration)
            return Inform(nullptr, "The restore was cancelled. The database is as it was.");
        const std::string kept = restoration->PutInPlace();
        isRestored = true;
        Inform(nullptr, "The copy is now the database of the station:\n" + copy +
                            "\n\nThe database used before is kept:\n" + kept +
                            "\n\nTo undo the restore, restore this file. Please sign in again.");
    });
    return isRestored;
}

} // namespace

int RunOffice(const std::function<void(Connection&)>& open, const std::string& folder) {
    UseStationPorts();
    bool isSignedIn = false;
    for (bool again = false;; again = true) {
        Connection connection;
        open(connection);
        if (!SignIn(connection, isSignedIn))
            return 0;
        const std::string copy = ShowWindow(connection, folder, again);
        if (copy.empty())
            return 0;
        const std::string database = connection.DatabaseFile();
        connection.Close();
        isSignedIn = !Restore(database, copy);
    }
}

bool AskServerPassword(const std::string& signIn, std::string& password) {
    bool isGiven = false;
    password = FromQt(QInputDialog::getText(
        nullptr, ToQt(ProgramTitle()), "Password of " + ToQt(signIn) + " at the database server:",
        QLineEdit::Password, {}, &isGiven));
    return isGiven;
}

} // namespace Quillane::Office
