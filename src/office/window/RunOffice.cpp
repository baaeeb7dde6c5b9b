#include "office/window/RunOffice.h"

#include "data/CompanyProfile.h"
#include "office/window/OfficeWindow.h"
#include "platform/ado/Connection.h"
#include "platform/comm/MSComm.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "signin/UserLogin.h"

#include <QApplication>
#include <QInputDialog>

namespace Quillane::Office {

int RunOffice(Connection& connection, const std::string& folder) {
    CompanyProfile->SetConnection(connection);
    CompanyProfile->Load();
    UserLogin->SetConnection(connection);
    if (!UserLogin->Login())
        return 0;
    OfficeSession session{.connection = connection,
                          .folder = folder,
                          .company = CompanyProfile->CompanyTitle(),
                          .user = UserLogin->UserName(),
                          .level = UserLogin->UserLevel()};
    MSComm::SetDevices([](int port) { return TheStation().PortDevice(port); });
    MSComm::SetWholeBursts([](int port) { return TheStation().WholeBursts.contains(port); });
    OfficeWindow window(session);
    QApplication::setQuitOnLastWindowClosed(true);
    window.show();
    return QApplication::exec();
}

bool AskServerPassword(const std::string& signIn, std::string& password) {
    bool isGiven = false;
    password = FromQt(QInputDialog::getText(
        nullptr, ToQt(ProgramTitle()), "Password of " + ToQt(signIn) + " at the database server:",
        QLineEdit::Password, {}, &isGiven));
    return isGiven;
}

} // namespace Quillane::Office
