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

/// Asks whether to use, without changes, the database that the folder already contains. Yes makes
/// it the station's database. If it cannot be used, a box shows the reason. True if the station is
/// then set up.
bool OfferExistingDatabase(const std::string& folder);

/// The set-up of a station without `Config.ini`: the location of its database, the company's
/// particulars, the first user, and sample rows if wanted. The database is on this computer unless
/// the second option is chosen, which asks for a server at once. A complete database on the server
/// is used after a question, and nothing else is asked. Particulars in a database on the server
/// fill the empty boxes; entries that differ from them are written after a question.
///
/// Keys: Enter moves to the next entry and clicks `BtnCreate` on the last one, Ctrl+Enter clicks it
/// anywhere, Esc cancels. A box reports an invalid entry; the entry stays and gets the focus.
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

    /// The faults found by the checks before the dialog; empty if there are none.
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
    void ShowLocation();
    bool Validate();
    bool RefuseTooLong();
    bool IsAsInDatabase(const TextBox& box);
    bool Refuse(TextBox& box, std::string_view reason);
    NewDatabase Particulars() const;

    /// A box, its name in messages, and its maximum length.
    struct Entry {
        TextBox* box;
        std::string_view name;
        int longest;
    };

    std::string folder_;
    std::vector<Entry> entries_;
    bool serverIsChosen_ = false; ///< the next three members describe the server
    SqlServerTarget server_;
    OwnerSignIn owner_;
    SqlServerContents contents_;
    Label subtitle_{"First start"};
    Label location_{""};
    static constexpr int Width = 560; ///< pixels

    Label notice_{""}; ///< ports that cannot be used yet
};

} // namespace Quillane
