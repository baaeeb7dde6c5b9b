#pragma once

#include "office/records/Checks.h"
#include "office/records/RowWrites.h"
#include "office/records/Rows.h"
#include "station/StationDatabase.h"

#include <string>
#include <vector>

namespace Quillane::Office {

/// A database with the sample rows, opened by two offices.
class OfficeDatabase : public StationDatabase {
public:
    explicit OfficeDatabase(const NewDatabase& particulars = SampleParticulars())
        : StationDatabase(particulars) {
        Open(connection);
        Open(other);
    }

    Office::Row Stored(const Table& table, const std::string& key) {
        return ReadRow(other, table, key).value();
    }
    bool Has(const Table& table, const std::string& key) {
        return ReadRow(other, table, key).has_value();
    }
    /// The stored row with one cell changed.
    RowChange Changed(const Table& table, const std::string& key, const std::string& column,
                      const std::string& cell) {
        RowChange change{Stored(table, key), Stored(table, key)};
        change.after[PlaceOf(table, column)] = cell;
        return change;
    }
    WriteResult Write(const Table& table, const std::vector<RowChange>& changes) {
        return WriteRows(connection, table, changes);
    }
    std::string Text(const std::string& query) { return Rows(query).at(0).at(0).TextOrEmpty(); }

    Connection connection;
    Connection other; ///< of the second office
};

inline const Row NewParty{"6010099", "Hamza Traders", "3", "Shop 8", "1", "0", "0", "1"};

} // namespace Quillane::Office
