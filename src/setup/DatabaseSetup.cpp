#include "setup/DatabaseSetup.h"

#include "data/Catalogue.h"
#include "data/modCommon.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Boxes.h"
#include "platform/host/StationFolder.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SchemaMessages.h"
#include "setup/SchemaUpgrade.h"
#include "setup/SetupChecks.h"
#include "setup/StationSetup.h"

namespace Quillane {

Service<DatabaseSetupObject> DatabaseSetup;

namespace {

void Warn(const std::string& text) {
    MsgBox({.text = text,
            .title = ProgramTitle(),
            .icon = BoxIcon::Exclamation,
            .buttons = BoxButtons::Ok});
}

void WarnOfOlderServer(double version) {
    std::string scripts;
    for (const SchemaStep& step : SqlServerSchemaSteps())
        if (step.version > version)
            scripts += "upgrade/to-" + NumberText(step.version) + ".sql, ";
    Warn(OlderSchemaText(version) +
         " This station's sign-in may not change the database. Ask the person who maintains the "
         "database to start a station once with the sign-in of the database's owner, or to run "
         "these scripts of the folder database/sqlserver: " +
         scripts + "roles.sql, guards.sql.");
}

void UpgradeServer(Connection& connection, double version) {
    if (MayChangeSchema(connection))
        RunSqlServerSchemaSteps(connection, version, SqlServerSchemaSteps());
    else
        WarnOfOlderServer(version);
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
            Warn(UnreadableSchemaText() + " Ask the person who maintains the database.");
        else if (version > ProgramVersion())
            Warn(NewerSchemaText(version));
        else if (version < ProgramVersion())
            UpgradeFrom(*connection_, version);
    } catch (const Failure&) {
        ShowError();
    }
}

} // namespace Quillane
