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
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "setup/DatabaseSetup.h"
#include "shell/About.h"
#include "shell/Desktop.h"
#include "shell/IdleWriteBack.h"
#include "shell/LockWaits.h"
#include "signin/StationSupport.h"
#include "signin/UserLogin.h"

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
    Con->Open(ConnectionString(SystemInfo::OsName(), TheStation().StationRole, configText), "", "",
              -1);
    Con->CursorLocation = adUseClient;
}

void UpgradeWhereVersionsDiffer() {
    DatabaseSetup->SetConnection(*Con);
    const double databaseVersion = DatabaseSetup->DatabaseVersion();
    const double programVersion = DatabaseSetup->ProgramVersion();
    if (databaseVersion != programVersion)
        DatabaseSetup->UpgradeDatabase();
}

// A station that was never told a company's name must not blank the one that the database has.
void TakeStoredNameWhereNoneIsGiven() {
    std::string& first = TheStation().CompanyNames[1];
    if (!first.empty())
        return;
    const Recordset stored =
        Con->Execute("Select value From Project_Registry Where registrykey ='CompanyName'");
    if (!stored.Eof())
        first = stored.Fields("value").TextOrEmpty();
}

void WriteCompanyName() {
    TakeStoredNameWhereNoneIsGiven();
    const std::int16_t companyNo = CompanyNumber(Con->DefaultDatabase());
    Con->Execute("Update Project_Registry set value ='" + GetCompanyName(companyNo) +
                     "' Where registrykey ='CompanyName'",
                 -1);
}

EmbeddedSupport SupportOfProgram() {
    EmbeddedSupport support = StationSupport(StationFolder());
    support.waitForLock = WaitForLock;
    support.afterChange = WriteBackWhenIdle;
    return support;
}

// The last station to close it brings its journal into the file. A server's connection is left to
// the end of the process: a server that does not answer must not hold it up.
void CloseEmbeddedDatabase() {
    if (Con && Con->State() == adStateOpen && !Con->DatabaseFile().empty())
        Con->Close();
}

/// All up to the sign-in. False where there is no database and none was made.
bool PrepareSession() {
    const StartOfStation start;
    const std::string configFile = StationFolder() + "/Config.ini";
    if (!FileExists(configFile) && !MakeDatabase())
        return false;
    OpenCon(ReadFirstField(configFile));
    UpgradeWhereVersionsDiffer();
    UserLogin->SetConnection(*Con);
    UserLogin->About = ShowAbout;
    CompanyProfile->SetConnection(*Con);
    WriteCompanyName();
    CompanyProfile->Load();
    return true;
}

} // namespace

void Main() {
    Con = std::make_unique<Connection>();
    Con->SetEmbeddedSupport(SupportOfProgram());
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
        throw Failure(failure.Number(), failure.Description() +
                                            ": the eighth character of the database name \"" +
                                            std::string(databaseName) + "\" is no company number.");
    }
}

void ReleaseServices() {
    CompanyProfile.Release();
    DatabaseSetup.Release();
    UserLogin.Release();
}

} // namespace Quillane
