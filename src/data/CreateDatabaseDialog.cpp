#include "data/CreateDatabaseDialog.h"

#include "data/DialogLook.h"
#include "data/StationSetUp.h"
#include "data/modCommon.h"
#include "platform/forms/Boxes.h"
#include "platform/forms/Pointer.h"
#include "platform/forms/Text.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillane {

namespace {

constexpr const char* Title = "Set up the station";

std::string Trimmed(const TextBox& box) {
    return FromQt(ToQt(box.Text()).trimmed());
}

void TellAlert(const std::string& text) {
    MsgBox({.text = text, .title = Title, .icon = BoxIcon::Exclamation, .buttons = BoxButtons::Ok});
}

bool AskToUse(const std::string& file, const EmbeddedDatabase& found) {
    const std::string company = found.companyName.empty() ? "no company" : found.companyName;
    return MsgBox({.text = "There is already a database here:\r\n" + file + "\r\n(" + company +
                           "; " + std::to_string(found.arrivals) + " arrivals, " +
                           std::to_string(found.users) +
                           " users)\r\n\r\nUse it as it is? Nothing in it is changed.",
                   .title = Title,
                   .icon = BoxIcon::Question,
                   .buttons = BoxButtons::YesNo}) == BoxAnswer::Yes;
}

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

/// The hourglass for as long as it lives.
class Hourglass {
public:
    Hourglass() { SetMousePointer(MousePointer::Hourglass); }
    ~Hourglass() { SetMousePointer(MousePointer::Default); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

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
    if (!AskToUse(file, found))
        return false;
    AdoptDatabase(folder, found.companyName);
    return true;
}

CreateDatabaseDialog::CreateDatabaseDialog(std::string folder)
    : Screen("CreateDatabaseDialog", Title), folder_(std::move(folder)) {
    WireEvents();
    LayOut();
}

void CreateDatabaseDialog::WireEvents() {
    BtnCreate.Click = [this] { BtnCreate_Click(); };
    BtnCancel.Click = [this] { Unload(); };
    int index = 0;
    for (Control* control : Controls())
        if (auto* visual = dynamic_cast<VisualControl*>(control))
            visual->SetTabIndex(index++);
}

void CreateDatabaseDialog::LayOut() {
    auto* fields = new QGridLayout;
    const auto add = [fields](std::string_view caption, std::string_view name, TextBox& box,
                              int longest) {
        box.SetMaxLength(longest);
        box.SetAccessibleName(name);
        AddField(*fields, caption, box);
    };
    AddHeading(*fields, "The company, as the slip shows it");
    add("Company &name", "Company name", TxtCompanyName, 60);
    add("&Address", "Company address", TxtCompanyAddress, 120);
    add("P&hone", "Company phone", TxtCompanyPhone, 40);
    add("&E-mail", "Company e-mail", TxtCompanyEmail, 80);
    AddHeading(*fields, "The first user, with full rights");
    add("&User name", "User name", TxtUserName, LongestUserName);
    add("&Password", "Password", TxtPassword, LongestPassword);
    add("Password a&gain", "Password again", TxtPasswordAgain, LongestPassword);
    TxtPassword.SetPassword(true);
    TxtPasswordAgain.SetPassword(true);
    AddCheck(*fields, ChkSampleRows);
    ChkSampleRows.SetToolTip("Parties, commodities and arrivals, all invented, and a second user "
                             "\"gate\" with restricted rights; leave them out at a working scale");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddButton(*buttons, BtnCreate, true);
    AddButton(*buttons, BtnCancel, false);
    auto* column = DialogColumn(*this, "Quillane", subtitle_);
    column->addLayout(fields);
    column->addSpacing(6);
    column->addLayout(buttons);
    setFixedWidth(560);
}

void CreateDatabaseDialog::Form_Load() {
    TxtCompanyName.SetText(TheStation().CompanyNames[1]);
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

void CreateDatabaseDialog::Create() {
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
