#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "setup/SqlServerTryOut.h"

class QGridLayout;

namespace Quillane {

/// Asks for a database on SQL Server and the sign-in of the station, and tests both. Only a server
/// that works can be chosen. A station with the role "Client" always signs in as "anonymous".
///
/// Keys: Enter moves to the next entry and starts the test on the last one, Ctrl+Enter chooses the
/// server anywhere, Esc cancels. A box reports an invalid entry; the entry stays and gets the
/// focus.
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

    bool IsChosen = false; ///< the server works and was chosen; the next three members describe it
    SqlServerTarget Target;
    OwnerSignIn Owner;
    SqlServerContents Contents;

    /// Fills the boxes.
    void Offer(const SqlServerTarget& target, const OwnerSignIn& owner);
    /// The result of the last test, as shown.
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
    /// True if the entered server works.
    bool TryItOut();
    bool Validate(const SqlServerTarget& target);
    bool Refuse(TextBox& box, std::string_view reason);
    void ShowAnswer(const std::string& answer);
    TextBox& BoxOf(std::string SqlServerTarget::*entry);
    SqlServerTarget EnteredTarget() const;
    OwnerSignIn EnteredOwner() const;

    std::string title_;
    QGridLayout* fields_ = nullptr;
    Label subtitle_{"A database on SQL Server"};
    Label answer_{""};
};

} // namespace Quillane
