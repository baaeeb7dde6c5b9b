#pragma once

#include "data/EmbeddedSchema.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/Label.h"
#include "platform/forms/Screen.h"
#include "platform/forms/TextBox.h"

#include <string>

namespace Quillane {

/// Asks whether the database that stands in the folder already is to be used as it is. Yes points
/// the station to it. What cannot be used is told. True if the station is set up then.
bool OfferExistingDatabase(const std::string& folder);

/// The set-up of a station that has no `Config.ini`: the company's particulars, the first user, and
/// sample rows if wanted. Enter moves on and presses `BtnCreate` behind the last entry, Ctrl+Enter
/// presses it from anywhere, Esc gives up. A refused entry is told, gets the focus and loses
/// nothing.
class CreateDatabaseDialog : public Screen {
public:
    explicit CreateDatabaseDialog(std::string folder);

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

protected:
    void Form_Load() override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void WireEvents();
    void LayOut();
    void BtnCreate_Click();
    void Create();
    bool Validate();
    bool Refuse(TextBox& box, std::string_view reason);
    NewDatabase Particulars() const;

    std::string folder_;
    Label subtitle_{"First start: a new database on this computer"};
};

} // namespace Quillane
