// The checks of the entries in the set-up.

#include "platform/forms/core/Text.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SetupQuestions.h"

#include <algorithm>

namespace Quillane {

namespace {

bool IsPlausibleEmail(const std::string& text) {
    const auto at = text.find('@');
    return at != std::string::npos && at > 0 && at + 1 < text.size() &&
           text.find(' ') == std::string::npos;
}

} // namespace

bool CreateDatabaseDialog::Validate() {
    const std::string company = Trimmed(TxtCompanyName);
    const std::string email = Trimmed(TxtCompanyEmail);
    if (company.empty())
        return Refuse(TxtCompanyName, "Please give the company's name.");
    // The start-up inserts the name into a statement unchanged.
    if (company.find('\'') != std::string::npos)
        return Refuse(TxtCompanyName,
                      "The company's name cannot contain an apostrophe. Enter it without one.");
    if (!email.empty() && !IsPlausibleEmail(email))
        return Refuse(TxtCompanyEmail,
                      "This is not a valid e-mail address. You can leave it empty.");
    if (Trimmed(TxtUserName).empty())
        return Refuse(TxtUserName, "Please give the first user's name.");
    if (TxtPassword.Text().empty())
        return Refuse(TxtPassword, "Please give the first user a password.");
    if (TxtPassword.Text() != TxtPasswordAgain.Text())
        return Refuse(TxtPasswordAgain,
                      "The two passwords differ. Please type the password again.");
    return RefuseTooLong();
}

bool CreateDatabaseDialog::Refuse(TextBox& box, std::string_view reason) {
    ShowAlert(std::string(reason));
    box.SetFocus();
    box.SelectAll();
    return false;
}

// An entry is never shortened: the user might notice it only on the slip, or never. Values that the
// database already contains are not checked.
bool CreateDatabaseDialog::RefuseTooLong() {
    for (const Entry& entry : entries_) {
        const qsizetype letters = ToQt(entry.box->Text()).trimmed().size();
        if (letters > entry.longest && !IsAsInDatabase(*entry.box))
            return Refuse(*entry.box, "\"" + std::string(entry.name) + "\" can have at most " +
                                          std::to_string(entry.longest) +
                                          " characters; this one has " + std::to_string(letters) +
                                          ". Please shorten it.");
    }
    return true;
}

bool CreateDatabaseDialog::IsAsInDatabase(const TextBox& box) {
    return std::ranges::any_of(CompanyParticulars, [&](const CompanyParticular& each) {
        return &BoxOf(each) == &box && Trimmed(box) == contents_.company.*each.text;
    });
}

} // namespace Quillane
