#include "setup/SqlServerDialog.h"

#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/DialogLook.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"
#include "setup/SetupQuestions.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillane {

namespace {

constexpr const char* nameOfClients = "anonymous";
constexpr int longestEntry = 128;

} // namespace

SqlServerDialog::SqlServerDialog(std::string title)
    : Screen("SqlServerDialog", title), title_(std::move(title)) {
    WireEvents();
    LayOut();
    Offer({.port = "1433", .database = "Account1"}, {});
}

void SqlServerDialog::WireEvents() {
    OptPassword.Click = [this] { OptSignIn_Click(); };
    OptWindows.Click = [this] { OptSignIn_Click(); };
    BtnTryOut.Click = [this] { TryItOut(); };
    BtnUse.Click = [this] { BtnUse_Click(); };
    BtnCancel.Click = [this] { Unload(); };
    int index = 0;
    for (Control* control : Controls()) {
        auto* visual = dynamic_cast<VisualControl*>(control);
        visual->SetTabIndex(index++);
        if (auto* box = dynamic_cast<TextBox*>(visual)) {
            box->SetMaxLength(longestEntry);
            box->GotFocus = [box] { box->SelectAll(); };
            box->Change = [this] { ShowAnswer(""); };
        }
    }
}

void SqlServerDialog::LayOut() {
    TxtPort.SetMaxLength(5);
    TxtOptions.SetMaxLength(400);
    for (TextBox* box : {&TxtPassword, &TxtOwnerPassword})
        box->SetPassword(true);
    TxtOptions.SetToolTip("Usually empty. Other attributes for the driver, such as "
                          "Encryption=require");
    auto* buttons = new QHBoxLayout;
    AddButton(*buttons, BtnTryOut, false);
    buttons->addStretch();
    AddButton(*buttons, BtnUse, true);
    AddButton(*buttons, BtnCancel, false);
    auto* column = ScrollingColumn(*this, "Quillane", subtitle_, *buttons);
    fields_ = new QGridLayout;
    LayOutFields();
    column->addLayout(fields_);
    LookLikeText(answer_, 6);
    answer_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    column->addSpacing(4);
    column->addWidget(&answer_);
    column->addStretch();
    FitToDisplay(*this, 760);
}

void SqlServerDialog::LayOutFields() {
    const auto name = [](TextBox& box, std::string_view text) { box.SetAccessibleName(text); };
    name(TxtServer, "Server");
    name(TxtPort, "Port");
    name(TxtDatabase, "Database");
    name(TxtOptions, "Options for the driver");
    name(TxtUserName, "Name for the station's sign-in");
    name(TxtPassword, "Password for the station's sign-in");
    name(TxtOwnerName, "Owner's name");
    name(TxtOwnerPassword, "Owner's password");
    AddHeading(*fields_, "Where the database is");
    AddFields(*fields_, "&Server", TxtServer, "&Port", TxtPort);
    AddFields(*fields_, "&Database", TxtDatabase, "Opt&ions", TxtOptions);
    AddHeading(*fields_, "How the station signs in");
    AddOptions(*fields_, OptPassword, OptWindows);
    AddFields(*fields_, "&Name", TxtUserName, "P&assword", TxtPassword);
    AddHeading(*fields_, "The owner's sign-in, if tables or users are to be created; it is not "
                         "stored");
    AddFields(*fields_, "&Owner's name", TxtOwnerName, "Its passwo&rd", TxtOwnerPassword);
}

void SqlServerDialog::Offer(const SqlServerTarget& target, const OwnerSignIn& owner) {
    TxtServer.SetText(target.server);
    TxtPort.SetText(target.port);
    TxtDatabase.SetText(target.database);
    TxtOptions.SetText(target.options);
    (target.windowsSignIn ? OptWindows : OptPassword).SetValue(true);
    TxtUserName.SetText(target.userName);
    TxtPassword.SetText(target.password);
    TxtOwnerName.SetText(owner.userName);
    TxtOwnerPassword.SetText(owner.password);
}

void SqlServerDialog::Form_Load() {
    if (TheStation().StationRole == "Client") {
        TxtUserName.SetText(nameOfClients);
        TxtUserName.SetLocked(true);
        OptWindows.SetEnabled(false);
    }
}

void SqlServerDialog::Form_KeyDown(int& key, int shift) {
    if (key == Key::Escape) {
        key = 0;
        Unload();
    } else if (key == Key::Return && shift == ShiftState::Ctrl) {
        key = 0;
        BtnUse_Click();
    } else if (key == Key::Return && ActiveControl() == &TxtOwnerPassword) {
        key = 0;
        TryItOut();
    } else if (key == Key::Return) {
        EnterAsTab(key);
    }
}

void SqlServerDialog::OptSignIn_Click() {
    TxtUserName.SetEnabled(OptPassword.Value());
    TxtPassword.SetEnabled(OptPassword.Value());
    ShowAnswer("");
}

void SqlServerDialog::BtnUse_Click() {
    if (!TryItOut())
        return;
    IsChosen = true;
    Unload();
}

bool SqlServerDialog::TryItOut() {
    const SqlServerTarget target = EnteredTarget();
    const OwnerSignIn owner = EnteredOwner();
    if (!Validate(target))
        return false;
    TryOut tried;
    try {
        const bool toTheEnd = RunLongWork(title_, [&](LongWork& work) {
            work.Begin("Testing " + target.server);
            tried = TrySqlServer(target, owner);
        });
        if (!toTheEnd)
            return false;
    } catch (const Failure&) {
        ShowError();
        return false;
    }
    ShowAnswer(tried.answer);
    Target = target;
    Owner = owner;
    Contents = tried.contents;
    if (tried.works)
        BtnUse.SetFocus();
    return tried.works;
}

bool SqlServerDialog::Validate(const SqlServerTarget& target) {
    if (const auto fault = FaultOf(target, DriverOfThisSystem()))
        return Refuse(BoxOf(fault->entry), fault->reason);
    const OwnerSignIn owner = EnteredOwner();
    if (!owner.IsGiven() && !owner.password.empty())
        return Refuse(TxtOwnerName, "Enter the owner's name, or leave the password empty.");
    if (!owner.IsGiven())
        return true;
    if (const auto fault = FaultOf(TargetForSetup(target, owner), DriverOfThisSystem()))
        return Refuse(fault->entry == &SqlServerTarget::userName ? TxtOwnerName : TxtOwnerPassword,
                      fault->reason);
    return true;
}

bool SqlServerDialog::Refuse(TextBox& box, std::string_view reason) {
    MsgBox({.text = std::string(reason),
            .title = title_,
            .icon = BoxIcon::Exclamation,
            .buttons = BoxButtons::Ok});
    box.SetFocus();
    box.SelectAll();
    return false;
}

TextBox& SqlServerDialog::BoxOf(std::string SqlServerTarget::*entry) {
    if (entry == &SqlServerTarget::port)
        return TxtPort;
    if (entry == &SqlServerTarget::database)
        return TxtDatabase;
    if (entry == &SqlServerTarget::options)
        return TxtOptions;
    if (entry == &SqlServerTarget::userName)
        return TxtUserName;
    return entry == &SqlServerTarget::password ? TxtPassword : TxtServer;
}

SqlServerTarget SqlServerDialog::EnteredTarget() const {
    return {.server = Trimmed(TxtServer),
            .port = Trimmed(TxtPort),
            .database = Trimmed(TxtDatabase),
            .windowsSignIn = OptWindows.Value(),
            .userName = Trimmed(TxtUserName),
            .password = TxtPassword.Text(),
            .options = Trimmed(TxtOptions)};
}

OwnerSignIn SqlServerDialog::EnteredOwner() const {
    return {.userName = Trimmed(TxtOwnerName), .password = TxtOwnerPassword.Text()};
}

void SqlServerDialog::ShowAnswer(const std::string& answer) {
    answer_.setText(ToQt(answer));
    if (!answer.empty())
        BringIntoSight(answer_);
}

std::string SqlServerDialog::Answer() const {
    return FromQt(answer_.text());
}

} // namespace Quillane
