#include "setup/SetupQuestions.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Text.h"

namespace Quillane {

namespace {

/// The case of the company's name does not count: each start writes it in capitals.
bool Replaces(const CompanyParticular& each, const NewDatabase& entered,
              const NewDatabase& stored) {
    const std::string& before = stored.*each.text;
    const std::string& after = entered.*each.text;
    const bool isName = each.text == &NewDatabase::companyName;
    return !before.empty() && !(isName ? EqualIgnoringCase(before, after) : before == after);
}

} // namespace

void ShowAlert(const std::string& text) {
    MsgBox({.text = text,
            .title = SetupTitle,
            .icon = BoxIcon::Exclamation,
            .buttons = BoxButtons::Ok});
}

bool AskToUse(const std::string& where, const std::string& companyName, long arrivals, long users) {
    const std::string company = companyName.empty() ? "no company" : companyName;
    return MsgBox({.text = "There is already a database here:\r\n" + where + "\r\n(" + company +
                           "; " + std::to_string(arrivals) + " arrivals, " + std::to_string(users) +
                           " users)\r\n\r\nUse it without changes?",
                   .title = SetupTitle,
                   .icon = BoxIcon::Question,
                   .buttons = BoxButtons::YesNo}) == BoxAnswer::Yes;
}

std::vector<const CompanyParticular*> ReplacedParticulars(const NewDatabase& entered,
                                                          const NewDatabase& stored) {
    std::vector<const CompanyParticular*> replaced;
    for (const CompanyParticular& each : CompanyParticulars)
        if (Replaces(each, entered, stored))
            replaced.push_back(&each);
    return replaced;
}

bool AskToReplace(const std::vector<const CompanyParticular*>& replaced, const NewDatabase& entered,
                  const NewDatabase& stored) {
    std::string changes;
    for (const CompanyParticular* each : replaced)
        changes += "\r\n" + std::string(each->caption) + ": \"" + stored.*each->text +
                   "\" becomes \"" + entered.*each->text + "\"";
    return MsgBox({.text = "The database already contains particulars of the company. These differ "
                           "from your entries:\r\n" +
                           changes + "\r\n\r\nReplace them in the database?",
                   .title = SetupTitle,
                   .icon = BoxIcon::Question,
                   .buttons = BoxButtons::YesNo}) == BoxAnswer::Yes;
}

void ReportRowsNotAdded(const std::vector<std::string>& rows) {
    std::string text = "The database is ready, but these rows could not be added:\r\n";
    for (const std::string& row : rows)
        text += "\r\n" + row;
    ShowAlert(text +
              "\r\n\r\nTheir tables have other required columns, or shorter ones. Ask the person "
              "who maintains the database to add the rows.");
}

std::string LocationOnServer(const SqlServerTarget& target) {
    return target.database + " on " + target.server +
           (target.port.empty() ? "" : ", port " + target.port);
}

std::string Trimmed(const TextBox& box) {
    return FromQt(ToQt(box.Text()).trimmed());
}

} // namespace Quillane
