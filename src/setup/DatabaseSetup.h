#pragma once

#include "data/Service.h"

namespace Quillane {

class Connection;

/// Creates and upgrades the database.
class DatabaseSetupObject {
public:
    void SetConnection(Connection& connection);
    /// Makes the database when `Config.ini` is missing, by a dialog, and writes `Config.ini` last,
    /// so that a broken-off set-up is simply done again. A station folder that takes no files is
    /// told instead of the dialog. Runs without a connection.
    void CreateDatabase();
    /// Runs the missing schema steps in order, each in a transaction, after a copy of an embedded
    /// file. A database newer than the program is told and left alone; so is an older one on SQL
    /// Server where this station's sign-in may not change the schema.
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
