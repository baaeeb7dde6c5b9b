#include "setup/CreateDatabaseDialog.h"

#include "data/modCommon.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/DialogLook.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"
#include "setup/SetupChecks.h"
#include "setup/SetupQuestions.h"
#include "setup/StationSetup.h"

namespace Quillane {

namespace {

std::string WhyUnusable(EmbeddedDatabase::Kind kind) {
    switch (kind) {
    case EmbeddedDatabase::Kind::NoAccess:
        return "It cannot be opened: it is in use, or you may not read it.";
    case EmbeddedDatabase::Kind::Unknown:
        return "It is not a database.";
    default:
        return "It is a database of another program.";
    }
}

// A label breaks lines only at blanks.
QString BreakableAtFolders(const std::string& path) {
    return ToQt(path).replace('/', QStringLiteral("/\u200B"));
}

} // namespace

bool OfferExistingDatabase(const std::string& folder) {
    const std::string file = EmbeddedDatabasePath(folder);
    const EmbeddedDatabase found = LookAtEmbeddedDatabase(file);
    if (found.kind != EmbeddedDatabase::Kind::OfStations) {
        ShowAlert("There is already a file with the name of the new database:\r\n" + file + "\r\n" +
                  WhyUnusable(found.kind) +
                  "\r\n\r\nIt was not changed. Move it to another folder and try again.");
        return false;
    }
    if (!AskToUse(file, found.companyName, found.arrivals, found.users))
        return false;
    AdoptDatabase(folder, found.companyName);
    return true;
}

CreateDatabaseDialog::CreateDatabaseDialog(std::string folder)
    : Screen("CreateDatabaseDialog", SetupTitle), folder_(std::move(folder)) {
    WireEvents();
    LayOut();
}

void CreateDatabaseDialog::WireEvents() {
    OptThisComputer.Click = [this] { OptThisComputer_Click(); };
    OptSqlServer.Click = [this] { OptSqlServer_Click(); };
    BtnServer.Click = [this] { BtnServer_Click(); };
    BtnCreate.Click = [this] { BtnCreate_Click(); };
    BtnCancel.Click = [this] { Unload(); };
    SetTabOrder();
}

void CreateDatabaseDialog::Form_Load() {
    TxtCompanyName.SetText(TheStation().CompanyNames[1]);
    OptThisComputer.SetValue(true);
    ShowLocation();
    notice_.setText(ToQt(PortFaults(TheStation())));
    notice_.setVisible(!notice_.text().isEmpty());
    FitToDisplay(*this, Width);
}

void CreateDatabaseDialog::Form_KeyDown(int& key, int shift) {
    if (key == Key::Escape) {
        key = 0;
        Unload();
    } else if (key == Key::Return &&
               (shift == ShiftState::Ctrl || ActiveControl() == &ChkSampleRows)) {
        key = 0;
        BtnCreate_Click();
    } else if (key == Key::Return) {
        EnterAsTab(key);
    }
}

void CreateDatabaseDialog::OptThisComputer_Click() {
    ShowLocation();
}

void CreateDatabaseDialog::OptSqlServer_Click() {
    ShowLocation();
    if (!serverIsChosen_)
        ChooseServer();
}

void CreateDatabaseDialog::BtnServer_Click() {
    ChooseServer();
}

void CreateDatabaseDialog::BtnCreate_Click() {
    try {
        if (Validate())
            Create();
    } catch (const Failure&) {
        ShowError();
    }
    if (Succeeded)
        Unload();
}

void CreateDatabaseDialog::ShowLocation() {
    BtnServer.SetEnabled(OptSqlServer.Value());
    const bool onServer = OptSqlServer.Value() && serverIsChosen_;
    location_.setText(OptThisComputer.Value()
                          ? "In the file " + BreakableAtFolders(EmbeddedDatabasePath(folder_))
                      : onServer ? ToQt(LocationOnServer(server_))
                                 : QString());
}

void CreateDatabaseDialog::Create() {
    if (OptSqlServer.Value()) {
        CreateOnServer();
        return;
    }
    if (LookAtEmbeddedDatabase(EmbeddedDatabasePath(folder_)).kind !=
        EmbeddedDatabase::Kind::None) {
        Succeeded = OfferExistingDatabase(folder_);
        return;
    }
    const Hourglass hourglass;
    SetUpStation(folder_, Particulars());
    Succeeded = true;
}

std::string CreateDatabaseDialog::Notice() const {
    return FromQt(notice_.text());
}

NewDatabase CreateDatabaseDialog::Particulars() const {
    return {.companyName = Trimmed(TxtCompanyName),
            .companyAddress = Trimmed(TxtCompanyAddress),
            .companyPhone = Trimmed(TxtCompanyPhone),
            .companyEmail = Trimmed(TxtCompanyEmail),
            .userName = Trimmed(TxtUserName),
            .password = TxtPassword.Text(),
            .sampleRows = ChkSampleRows.Value() == 1};
}

} // namespace Quillane
