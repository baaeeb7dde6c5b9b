#pragma once

#include "data/Service.h"

namespace Quillane {

class Connection;

/// Creates and upgrades the database.
class DatabaseSetupObject {
public:
    void SetConnection(Connection& connection);
    /// Shows the set-up dialog, creates the database and writes `Config.ini` last, so that a
    /// cancelled set-up can be repeated. If the station folder cannot be written, it shows a
    /// message instead of the dialog. Needs no connection.
    void CreateDatabase();
    /// Copies an embedded database and runs the missing schema steps in order, each in a
    /// transaction. A database that is newer than the program is reported and not changed, and so
    /// is an older one on SQL Server if this user may not change the schema. Requires:
    /// `SetConnection` has been called.
    void UpgradeDatabase();
    bool Succeeded() const { return succeeded_; }
    double ProgramVersion() const;
    double DatabaseVersion() const;

private:
    Connection* connection_ = nullptr;
    bool succeeded_ = false;
};

extern Service<DatabaseSetupObject> DatabaseSetup;

} // namespace Quillane
