#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "setup/CompanyParticulars.h"
#include "setup/EmbeddedSchema.h"
#include "setup/SqlServerTryOut.h"

#include <string>
#include <string_view>
#include <vector>

class QGridLayout;

namespace Quillane {

/// Asks whether the database that stands in the folder already is to be used as it is. Yes points
/// the station to it. What cannot be used is told. True if the station is set up then.
bool OfferExistingDatabase(const std::string& folder);

/// The set-up of a station that has no `Config.ini`: where its database is, the company's
/// particulars, the first user, and sample rows if wanted. The database is on this computer unless
/// the second option is taken, which asks for a server at once; a database there that is complete
/// is used as it is, if the user agrees, and the rest is not asked. The company's particulars that
/// a database there holds fill the boxes that are empty; what differs at the end is written after a
/// question. Enter moves on and presses
/// `BtnCreate` behind the last entry, Ctrl+Enter presses it from anywhere, Esc gives up. A refused
/// entry is told, gets the focus and loses nothing.
class CreateDatabaseDialog : public Screen {
public:
    explicit CreateDatabaseDialog(std::string folder);

    OptionButton OptThisComputer{*this, "OptThisComputer", "On &this computer"};
    OptionButton OptSqlServer{*this, "OptSqlServer", "On a &SQL Server"};
    CommandButton BtnServer{*this, "BtnServer", "Ser&ver..."};
    TextBox TxtCompanyName{*this, "TxtCompanyName"};
    TextBox TxtCompanyAddress{*this, "TxtCompanyAddress"};
    TextBox TxtCompanyPhone{*this, "TxtCompanyPhone"};
    TextBox TxtCompanyEmail{*this, "TxtCompanyEmail"};
    TextBox TxtUserName{*this, "TxtUserName"};
    TextBox TxtPassword{*this, "TxtPassword"};
    TextBox TxtPasswordAgain{*this, "TxtPasswordAgain"};
    CheckBox ChkSampleRows{*this, "ChkSampleRows", "Sample &rows, to try the station"};
    CommandButton BtnCreate{*this, "BtnCreate", "&Create"};
    CommandButton BtnCancel{*this, "BtnCancel", "Cancel"};

    bool Succeeded = false; ///< the station is set up

    /// What the checks before the form have found; empty: nothing.
    std::string Notice() const;

protected:
    void Form_Load() override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void WireEvents();
    void SetTabOrder();
    void LayOut();
    void LayOutFields(QGridLayout& fields);
    void OptThisComputer_Click();
    void OptSqlServer_Click();
    void BtnServer_Click();
    void BtnCreate_Click();
    void ChooseServer();
    void UseServer();
    void Create();
    void CreateOnServer();
    void FillFromDatabase(const SqlServerContents& before);
    bool AgreeToReplace(NewDatabase& particulars);
    TextBox& BoxOf(const CompanyParticular& particular);
    void ShowPlace();
    bool Validate();
    bool RefuseTooLong();
    bool IsAsInDatabase(const TextBox& box);
    bool Refuse(TextBox& box, std::string_view reason);
    NewDatabase Particulars() const;

    /// A box, what a person calls it, and how many letters it may have.
    struct Entry {
        TextBox* box;
        std::string_view name;
        int longest;
    };

    std::string folder_;
    std::vector<Entry> entries_;
    bool serverIsChosen_ = false; ///< the next three tell of it
    SqlServerPlace server_;
    OwnerSignIn owner_;
    SqlServerContents contents_;
    Label subtitle_{"First start"};
    Label place_{""};
    static constexpr int Width = 560; ///< pixels

    Label notice_{""}; ///< ports that cannot be used yet
};

} // namespace Quillane
