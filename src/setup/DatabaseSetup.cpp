#include "setup/DatabaseSetup.h"

#include "data/Catalogue.h"
#include "data/modCommon.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Boxes.h"
#include "platform/host/StationFolder.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SchemaUpgrade.h"
#include "setup/SetUpChecks.h"
#include "setup/StationSetUp.h"

namespace Quillane {

Service<DatabaseSetupObject> DatabaseSetup;

namespace {

void Tell(const std::string& text, BoxIcon icon) {
    MsgBox({.text = text, .title = ProgramTitle(), .icon = icon, .buttons = BoxButtons::Ok});
}

void TellNewer(double version) {
    Tell("The database has the schema number " + NumberText(version) +
             ", which is newer than this program (" + NumberText(SchemaVersionOfProgram()) +
             ").\r\nThe database is left as it is. Please install the newer program here.",
         BoxIcon::Exclamation);
}

void TellUnreadable() {
    Tell("The schema number of the database cannot be read: the table StationSchema must hold one "
         "row with a number.\r\nThe database is left as it is. Please ask the person who looks "
         "after the database.",
         BoxIcon::Exclamation);
}

void TellOlderServer(double version) {
    std::string scripts;
    for (const SchemaStep& step : SqlServerSchemaSteps())
        if (step.version > version)
            scripts += (scripts.empty() ? "to-" : ", to-") + NumberText(step.version) + ".sql";
    Tell("The database has the schema number " + NumberText(version) + ", this program needs " +
             NumberText(SchemaVersionOfProgram()) +
             ".\r\nThis station's sign-in may not change the database, so it is left as it is. "
             "Please ask the person who looks after the database to start a station once with the "
             "sign-in of the database's owner, or to run these scripts of the folder "
             "database/sqlserver/upgrade: " +
             scripts + ".",
         BoxIcon::Exclamation);
}

void UpgradeServer(Connection& connection, double version) {
    if (MayChangeSchema(connection))
        RunSqlServerSchemaSteps(connection, version, SqlServerSchemaSteps());
    else
        TellOlderServer(version);
}

void UpgradeFrom(Connection& connection, double version) {
    const std::string file = connection.DatabaseFile();
    if (file.empty()) {
        UpgradeServer(connection, version);
        return;
    }
    CopyBeforeUpgrade(connection, file, SchemaVersionOfProgram());
    RunSchemaSteps(connection, version, SchemaSteps());
}

} // namespace

void DatabaseSetupObject::SetConnection(Connection& connection) {
    connection_ = &connection;
}

void DatabaseSetupObject::CreateDatabase() {
    succeeded_ = false;
    const std::string folder = StationFolder();
    try {
        CheckFolderTakesFiles(folder);
        if (LookAtEmbeddedDatabase(EmbeddedDatabasePath(folder)).kind ==
            EmbeddedDatabase::Kind::OfStations)
            succeeded_ = OfferExistingDatabase(folder);
        if (succeeded_)
            return;
        CreateDatabaseDialog dialog(folder);
        dialog.ShowModal();
        succeeded_ = dialog.Succeeded;
    } catch (const Failure&) {
        ShowError();
    }
}

double DatabaseSetupObject::ProgramVersion() const {
    return SchemaVersionOfProgram();
}

double DatabaseSetupObject::DatabaseVersion() const {
    if (!connection_)
        Fail(FailureNumber::InvalidCall);
    return ReadSchemaVersion(*connection_);
}

void DatabaseSetupObject::UpgradeDatabase() {
    try {
        const double version = DatabaseVersion();
        if (version == UnreadableSchemaVersion)
            TellUnreadable();
        else if (version > ProgramVersion())
            TellNewer(version);
        else if (version < ProgramVersion())
            UpgradeFrom(*connection_, version);
    } catch (const Failure&) {
        ShowError();
    }
}

} // namespace Quillane
