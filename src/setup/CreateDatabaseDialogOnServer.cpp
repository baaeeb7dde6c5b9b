// The set-up of a station whose database is on SQL Server.

#include "data/modCommon.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "platform/runtime/Failure.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SetUpQuestions.h"
#include "setup/SqlServerDialog.h"
#include "setup/SqlServerSetUp.h"
#include "setup/StationSetUp.h"

#include <utility>

namespace Quillane {

void CreateDatabaseDialog::ChooseServer() {
    SqlServerDialog dialog;
    if (serverIsChosen_)
        dialog.Offer(server_, owner_);
    dialog.ShowModal(this);
    if (dialog.IsChosen) {
        serverIsChosen_ = true;
        server_ = dialog.Place;
        owner_ = dialog.Owner;
        const SqlServerContents before = std::exchange(contents_, dialog.Contents);
        FillFromDatabase(before);
        UseServer();
    } else if (!serverIsChosen_) {
        OptThisComputer.SetValue(true);
    }
    ShowPlace();
    if (Succeeded)
        Unload();
}

// What the database has already is not asked.
void CreateDatabaseDialog::UseServer() {
    ShowPlace();
    if (!contents_.isComplete) {
        TxtCompanyName.SetFocus();
        return;
    }
    try {
        if (AskToUse(WhereOnServer(server_), contents_.company.companyName, contents_.arrivals,
                     contents_.users))
            CreateOnServer();
    } catch (const Failure&) {
        ShowError();
    }
    if (Succeeded)
        return;
    serverIsChosen_ = false;
    OptThisComputer.SetValue(true);
}

// What the operator has entered stays; what an earlier choice of a server has filled in does not.
void CreateDatabaseDialog::FillFromDatabase(const SqlServerContents& before) {
    for (const CompanyParticular& each : CompanyParticulars) {
        TextBox& box = BoxOf(each);
        if (Trimmed(box).empty() || Trimmed(box) == before.company.*each.text)
            box.SetText(contents_.company.*each.text);
    }
}

/// Whether the particulars may be written: where some differ from what the database holds, after a
/// question. With No the boxes show again what the database holds.
bool CreateDatabaseDialog::AgreeToReplace(NewDatabase& particulars) {
    const auto replaced = ReplacedParticulars(particulars, contents_.company);
    if (replaced.empty())
        return true;
    particulars.replaceParticulars = AskToReplace(replaced, particulars, contents_.company);
    if (particulars.replaceParticulars)
        return true;
    for (const CompanyParticular* each : replaced)
        BoxOf(*each).SetText(contents_.company.*each->text);
    BoxOf(*replaced.front()).SetFocus();
    return false;
}

TextBox& CreateDatabaseDialog::BoxOf(const CompanyParticular& particular) {
    if (particular.text == &NewDatabase::companyAddress)
        return TxtCompanyAddress;
    if (particular.text == &NewDatabase::companyPhone)
        return TxtCompanyPhone;
    return particular.text == &NewDatabase::companyEmail ? TxtCompanyEmail : TxtCompanyName;
}

void CreateDatabaseDialog::CreateOnServer() {
    NewDatabase particulars = Particulars();
    const NewDatabase* missing = contents_.isComplete ? nullptr : &particulars;
    if (missing && !AgreeToReplace(particulars))
        return;
    SetUpOutcome outcome;
    const bool isReady = RunLongWork(SetUpTitle, [&](LongWork& work) {
        outcome = MakeSqlServerDatabaseReady(server_, owner_, missing, work);
    });
    if (!isReady)
        return;
    if (!outcome.rowsNotAdded.empty())
        TellRowsNotAdded(outcome.rowsNotAdded);
    const std::string& storedName = contents_.company.companyName;
    const bool keepsName = !storedName.empty() && !particulars.replaceParticulars;
    PointToSqlServer(folder_, server_, keepsName ? "" : particulars.companyName, storedName);
    Succeeded = true;
}

} // namespace Quillane
