#pragma once

#include "station/StationDatabase.h"

namespace Quillane {

/// An open database with the sample rows.
class SampleDatabase : public StationDatabase {
public:
    SampleDatabase() : SampleDatabase(SampleParticulars()) {}
    explicit SampleDatabase(const NewDatabase& particulars) : StationDatabase(particulars) {
        Open(connection);
    }

    Value Ask(std::string_view query) { return connection.Execute(query).Fields(0); }

    Connection connection;
};

} // namespace Quillane
