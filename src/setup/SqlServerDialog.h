#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "setup/SqlServerTryOut.h"

class QGridLayout;

namespace Quillane {

/// Asks for a database on SQL Server and how the station signs in to it, and tries both out. Enter
/// moves on and tries out behind the last entry, Ctrl+Enter takes the server from anywhere, Esc
/// gives up. Only a server that works can be taken; a refused entry is told, gets the focus and
/// loses nothing. A station of the role "Client" signs in as the anonymous user, whatever is typed.
class SqlServerDialog : public Screen {
public:
    /// The title is also that of its boxes.
    explicit SqlServerDialog(std::string title = "Set up the station");

    TextBox TxtServer{*this, "TxtServer"};
    TextBox TxtPort{*this, "TxtPort"};
    TextBox TxtDatabase{*this, "TxtDatabase"};
    TextBox TxtOptions{*this, "TxtOptions"};
    OptionButton OptPassword{*this, "OptPassword", "With a na&me and a password"};
    OptionButton OptWindows{*this, "OptWindows", "As the user of &Windows"};
    TextBox TxtUserName{*this, "TxtUserName"};
    TextBox TxtPassword{*this, "TxtPassword"};
    TextBox TxtOwnerName{*this, "TxtOwnerName"};
    TextBox TxtOwnerPassword{*this, "TxtOwnerPassword"};
    CommandButton BtnTryOut{*this, "BtnTryOut", "&Try out"};
    CommandButton BtnUse{*this, "BtnUse", "&Use this server"};
    CommandButton BtnCancel{*this, "BtnCancel", "Cancel"};

    bool IsChosen = false; ///< the server was taken, and worked; the next three tell of it
    SqlServerPlace Place;
    OwnerSignIn Owner;
    SqlServerContents Contents;

    /// What the boxes hold when the dialog comes up.
    void Offer(const SqlServerPlace& place, const OwnerSignIn& owner);
    /// What the dialog says of the last try-out.
    std::string Answer() const;

protected:
    void Form_Load() override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void WireEvents();
    void LayOut();
    void LayOutFields();
    void OptSignIn_Click();
    void BtnUse_Click();
    /// True where the place works.
    bool TryItOut();
    bool Validate(const SqlServerPlace& place);
    bool Refuse(TextBox& box, std::string_view reason);
    void ShowAnswer(const std::string& answer);
    TextBox& BoxOf(std::string SqlServerPlace::*entry);
    SqlServerPlace EnteredPlace() const;
    OwnerSignIn EnteredOwner() const;

    std::string title_;
    QGridLayout* fields_ = nullptr;
    Label subtitle_{"A database on SQL Server"};
    Label answer_{""};
};

} // namespace Quillane
