#include "setup/CreateDatabaseDialog.h"

#include "platform/forms/dialogs/DialogLook.h"
#include "signin/UserLogin.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillane {

// The option for the location is the last one in the tab order, and so just before the first entry:
// most stations keep it, and begin with the company's name.
void CreateDatabaseDialog::SetTabOrder() {
    NumberInTabOrder({&TxtCompanyName, &TxtCompanyAddress, &TxtCompanyPhone, &TxtCompanyEmail,
                      &TxtUserName, &TxtPassword, &TxtPasswordAgain, &ChkSampleRows, &BtnCreate,
                      &BtnCancel, &OptThisComputer, &OptSqlServer, &BtnServer});
}

void CreateDatabaseDialog::LayOut() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddButton(*buttons, BtnCreate, true);
    AddButton(*buttons, BtnCancel, false);
    auto* column = ScrollingColumn(*this, "Quillane", subtitle_, *buttons);
    auto* fields = new QGridLayout;
    LayOutFields(*fields);
    LookLikeMessage(notice_);
    column->addWidget(&notice_);
    column->addLayout(fields);
    column->addStretch();
}

void CreateDatabaseDialog::LayOutFields(QGridLayout& fields) {
    const auto add = [&](std::string_view caption, std::string_view name, TextBox& box,
                         int longest) {
        entries_.push_back({&box, name, longest});
        box.SetAccessibleName(name);
        AddField(fields, caption, box);
    };
    AddHeading(fields, "Where the weighments are kept");
    AddOptions(fields, OptThisComputer, OptSqlServer);
    AddTextAndButton(fields, location_, BtnServer);
    AddHeading(fields, "The company, as the slip shows it");
    add("Company &name", "Company name", TxtCompanyName, 60);
    add("&Address", "Company address", TxtCompanyAddress, 120);
    add("P&hone", "Company phone", TxtCompanyPhone, 40);
    add("&E-mail", "Company e-mail", TxtCompanyEmail, 80);
    AddHeading(fields, "The first user, with full rights");
    add("&User name", "User name", TxtUserName, LongestUserName);
    add("&Password", "Password", TxtPassword, LongestPassword);
    add("Password a&gain", "Password again", TxtPasswordAgain, LongestPassword);
    TxtPassword.SetPassword(true);
    TxtPasswordAgain.SetPassword(true);
    AddCheck(fields, ChkSampleRows);
    ChkSampleRows.SetToolTip("Parties, commodities and arrivals, all invented, and a second user "
                             "\"gate\" with restricted rights; leave them out at a working scale");
}

} // namespace Quillane
