// The set-up of a station whose database is on SQL Server.

#include "data/modCommon.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "platform/runtime/Failure.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SetupQuestions.h"
#include "setup/SqlServerDialog.h"
#include "setup/SqlServerSetup.h"
#include "setup/StationSetup.h"

#include <utility>

namespace Quillane {

void CreateDatabaseDialog::ChooseServer() {
    SqlServerDialog dialog;
    if (serverIsChosen_)
        dialog.Offer(server_, owner_);
    dialog.ShowModal(this);
    if (dialog.IsChosen) {
        serverIsChosen_ = true;
        server_ = dialog.Target;
        owner_ = dialog.Owner;
        const SqlServerContents before = std::exchange(contents_, dialog.Contents);
        FillFromDatabase(before);
        UseServer();
    } else if (!serverIsChosen_) {
        OptThisComputer.SetValue(true);
    }
    ShowLocation();
    if (Succeeded)
        Unload();
}

// A complete database needs no other entries.
void CreateDatabaseDialog::UseServer() {
    ShowLocation();
    if (!contents_.isComplete) {
        TxtCompanyName.SetFocus();
        return;
    }
    try {
        if (AskToUse(LocationOnServer(server_), contents_.company.companyName, contents_.arrivals,
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

// Texts that the user has entered stay. Texts filled in from an earlier server are replaced.
void CreateDatabaseDialog::FillFromDatabase(const SqlServerContents& before) {
    for (const CompanyParticular& each : CompanyParticulars) {
        TextBox& box = BoxOf(each);
        if (Trimmed(box).empty() || Trimmed(box) == before.company.*each.text)
            box.SetText(contents_.company.*each.text);
    }
}

/// True if the particulars may be written. If some differ from those in the database, a box asks;
/// the answer No restores the boxes.
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
    SetupOutcome outcome;
    const bool isReady = RunLongWork(SetupTitle, [&](LongWork& work) {
        outcome = PrepareSqlServerDatabase(server_, owner_, missing, work);
    });
    if (!isReady)
        return;
    if (!outcome.rowsNotAdded.empty())
        ReportRowsNotAdded(outcome.rowsNotAdded);
    const std::string& storedName = contents_.company.companyName;
    const bool keepsName = !storedName.empty() && !particulars.replaceParticulars;
    PointToSqlServer(folder_, server_, keepsName ? "" : particulars.companyName, storedName);
    Succeeded = true;
}

} // namespace Quillane
