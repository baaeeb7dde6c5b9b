#include "setup/CreateDatabaseDialog.h"

#include "data/modCommon.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/DialogLook.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"
#include "setup/SetUpQuestions.h"
#include "setup/StationSetUp.h"

namespace Quillane {

namespace {

std::string WhyUnusable(EmbeddedDatabase::Kind kind) {
    switch (kind) {
    case EmbeddedDatabase::Kind::NoAccess:
        return "It cannot be opened: it is in use, or you may not read it.";
    case EmbeddedDatabase::Kind::Unknown:
        return "It is no database.";
    default:
        return "It is a database of another kind.";
    }
}

bool IsPlausibleEmail(const std::string& text) {
    const auto at = text.find('@');
    return at != std::string::npos && at > 0 && at + 1 < text.size() &&
           text.find(' ') == std::string::npos;
}

} // namespace

bool OfferExistingDatabase(const std::string& folder) {
    const std::string file = EmbeddedDatabasePath(folder);
    const EmbeddedDatabase found = LookAtEmbeddedDatabase(file);
    if (found.kind != EmbeddedDatabase::Kind::OfStations) {
        TellAlert("There is already a file of the new database's name:\r\n" + file + "\r\n" +
                  WhyUnusable(found.kind) +
                  "\r\n\r\nIt is left as it is. Please move it away, and try again.");
        return false;
    }
    if (!AskToUse(file, found.companyName, found.arrivals, found.users))
        return false;
    AdoptDatabase(folder, found.companyName);
    return true;
}

CreateDatabaseDialog::CreateDatabaseDialog(std::string folder)
    : Screen("CreateDatabaseDialog", SetUpTitle), folder_(std::move(folder)) {
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
    ShowPlace();
}

void CreateDatabaseDialog::Form_KeyDown(int& key, int shift) {
    if (key == Key::Escape) {
        key = 0;
        Unload();
    } else if (key == Key::Return &&
               (shift == ShiftState::Ctrl || ActiveControl() == &ChkSampleRows)) {
        key = 0;
        BtnCreate_Click();
    } else if (key == Key::Return && ActiveControlName().substr(0, 3) != "Btn") {
        key = 0;
        SendTab();
    }
}

void CreateDatabaseDialog::OptThisComputer_Click() {
    ShowPlace();
}

void CreateDatabaseDialog::OptSqlServer_Click() {
    ShowPlace();
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

void CreateDatabaseDialog::ShowPlace() {
    BtnServer.SetEnabled(OptSqlServer.Value());
    const bool onServer = OptSqlServer.Value() && serverIsChosen_;
    place_.setText(
        OptThisComputer.Value()
            ? ToQt("In the file " + std::string(EmbeddedDatabaseName) + ".db beside the program")
        : onServer ? ToQt(WhereOnServer(server_))
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

bool CreateDatabaseDialog::Validate() {
    const std::string company = Trimmed(TxtCompanyName);
    const std::string email = Trimmed(TxtCompanyEmail);
    if (company.empty())
        return Refuse(TxtCompanyName, "Please give the company's name.");
    // The start-up joins the name to a statement as it stands.
    if (company.find('\'') != std::string::npos)
        return Refuse(TxtCompanyName, "The company's name cannot hold an apostrophe.");
    if (!email.empty() && !IsPlausibleEmail(email))
        return Refuse(TxtCompanyEmail, "This is no e-mail address. It may also stay empty.");
    if (Trimmed(TxtUserName).empty())
        return Refuse(TxtUserName, "Please give the first user's name.");
    if (TxtPassword.Text().empty())
        return Refuse(TxtPassword, "Please give the first user a password.");
    if (TxtPassword.Text() != TxtPasswordAgain.Text())
        return Refuse(TxtPasswordAgain, "The two passwords differ. Please type it again.");
    return true;
}

bool CreateDatabaseDialog::Refuse(TextBox& box, std::string_view reason) {
    TellAlert(std::string(reason));
    box.SetFocus();
    box.SelectAll();
    return false;
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
