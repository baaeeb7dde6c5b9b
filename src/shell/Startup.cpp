#include "shell/Startup.h"

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Text.h"
#include "platform/host/Files.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "platform/host/SystemInfo.h"
#include "platform/host/Version.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/FileAccess.h"
#include "platform/runtime/Numbers.h"
#include "setup/DatabaseSetup.h"
#include "shell/About.h"
#include "shell/Desktop.h"
#include "shell/IdleWriteBack.h"
#include "shell/LockWaits.h"
#include "signin/StationSupport.h"
#include "signin/UserLogin.h"

#include <QApplication>
#include <QIcon>

namespace Quillane {

namespace {

constexpr int connectionTimeoutSeconds = 120;

bool MakeDatabase() {
    DatabaseSetup->CreateDatabase();
    if (DatabaseSetup->Succeeded())
        return true;
    MsgBox({.text = "Error occured in databse creation. \r\n"
                    "Please contact to your software vendor for further assistance",
            .title = "Alert",
            .icon = BoxIcon::Critical,
            .buttons = BoxButtons::Ok});
    return false;
}

void OpenCon(const std::string& configText) {
    if (Con->State() == adStateOpen)
        Con->Close();
    Con->ConnectionTimeout = connectionTimeoutSeconds;
    Con->Open(StationConnectionString(SystemInfo::OsName(), TheStation().StationRole, configText),
              "", "", -1);
    Con->CursorLocation = adUseClient;
}

void UpgradeIfVersionsDiffer() {
    DatabaseSetup->SetConnection(*Con);
    const double databaseVersion = DatabaseSetup->DatabaseVersion();
    const double programVersion = DatabaseSetup->ProgramVersion();
    if (databaseVersion != programVersion)
        DatabaseSetup->UpgradeDatabase();
}

// A station without a configured company name must not erase the name in the database.
void UseStoredNameIfNoneIsConfigured() {
    std::string& first = TheStation().CompanyNames[1];
    if (!first.empty())
        return;
    const Recordset stored =
        Con->Execute("Select value From Project_Registry Where registrykey ='CompanyName'");
    if (!stored.Eof())
        first = stored.Fields("value").TextOrEmpty();
}

void WriteCompanyName() {
    UseStoredNameIfNoneIsConfigured();
    const std::int16_t companyNo = CompanyNumber(Con->DefaultDatabase());
    Con->Execute("Update Project_Registry set value ='" + GetCompanyName(companyNo) +
                     "' Where registrykey ='CompanyName'",
                 -1);
}

EmbeddedSupport EmbeddedSupportOfProgram() {
    EmbeddedSupport support = StationSupport(StationFolder());
    support.waitForLock = WaitForLock;
    support.afterChange = WriteBackWhenIdle;
    return support;
}

// SQLite writes the journal back when the last session closes the database. The connection to a
// server is not closed here: a server that does not respond must not delay the end of the process.
void CloseEmbeddedDatabase() {
    if (Con && Con->State() == adStateOpen && !Con->DatabaseFile().empty())
        Con->Close();
}

/// Everything before the sign-in. False if there is no database and the set-up has made none.
bool PrepareSession() {
    const StartOfStation start;
    const std::string configFile = StationFolder() + "/Config.ini";
    if (!FileExists(configFile) && !MakeDatabase())
        return false;
    RemoveAccessOfOthers(configFile); // it may contain a password
    OpenCon(ReadFirstField(configFile));
    UpgradeIfVersionsDiffer();
    UserLogin->SetConnection(*Con);
    UserLogin->About = ShowAbout;
    CompanyProfile->SetConnection(*Con);
    WriteCompanyName();
    CompanyProfile->Load();
    return true;
}

} // namespace

void NameProgram() {
    QApplication::setApplicationName("Quillane");
    QApplication::setApplicationVersion(ToQt(QuillaneVersion()));
    // A small icon: decoding it delays the first window.
    QApplication::setWindowIcon(QIcon(":/shell/window-icon.png"));
}

void Main() {
    Con = std::make_unique<Connection>();
    Con->SetEmbeddedSupport(EmbeddedSupportOfProgram());
    SetLastAct(CloseEmbeddedDatabase);
    if (!PrepareSession()) {
        EndProcess(1);
        return;
    }
    UserLogin->Login();
    if (UserLogin->UserLevel() == 0) {
        ReleaseServices();
        EndProcess(0);
        return;
    }
    TheDesktop = std::make_unique<Desktop>();
    TheDesktop->Show();
}

std::int16_t CompanyNumber(std::string_view databaseName) {
    const std::string eighth = FromQt(ToQt(databaseName).mid(7, 1));
    try {
        return ToInteger(eighth);
    } catch (const Failure& failure) {
        throw Failure(failure.Number(),
                      failure.Description() + ": the eighth character of the database name \"" +
                          std::string(databaseName) + "\" is not a company number.");
    }
}

void ReleaseServices() {
    CompanyProfile.Release();
    DatabaseSetup.Release();
    UserLogin.Release();
}

} // namespace Quillane
