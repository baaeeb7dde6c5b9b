#pragma once

#include "platform/ado/Connection.h"
#include "platform/ado/Value.h"
#include "setup/EmbeddedSchema.h"
#include "station/FreshFolder.h"
#include "support/TestedEngine.h"

#include <memory>
#include <string>
#include <vector>

namespace Quillane {

NewDatabase SampleParticulars();
/// A company and a first user, without sample rows.
NewDatabase ParticularsOf(const std::string& company, const std::string& user,
                          const std::string& password);

/// `Tested` is the engine that the tests run on (TestedEngine.h).
enum class StationEngine { Tested, Embedded };

/// A new database of a station: a file Account1.db in a new folder, or a database on the SQL Server
/// that tests/sqlserver.local names. Only one may exist at a time.
///
/// On SQL Server one database serves all tests of a program: for each test it is emptied and set up
/// again, or replaced by a new one if the previous test has changed the schema.
class StationDatabase {
public:
    explicit StationDatabase(const NewDatabase& particulars = SampleParticulars(),
                             StationEngine engine = StationEngine::Tested);
    ~StationDatabase();
    StationDatabase(const StationDatabase&) = delete;
    StationDatabase& operator=(const StationDatabase&) = delete;

    /// The contents of Config.ini.
    std::string ConfigText() const;
    /// Opens a station's connection to it.
    void Open(Connection& connection) const;

    // In another session than the station's:

    /// Runs statements, separated by semicolons.
    void Run(const std::string& statements) const;
    /// The rows of a query. A cell is Null, a number (whole if its value is whole) or a text; a
    /// date is the text 2026-11-20T00:00:00.
    using Row = std::vector<Value>;
    std::vector<Row> Rows(const std::string& query) const;
    /// Gives a table another name, so that statements do not find it.
    void Rename(const std::string& table, const std::string& name) const;
    /// Keeps a table, but lets its columns be Null and removes its links to other tables.
    void Loosen(const std::string& table) const;
    /// From now on this kind of write ("UPDATE") of a table is refused with a text. If the refusal
    /// also ends the transaction, the engine ends it. A condition on the row contains only the name
    /// of a column: "NoOfBags = 71".
    struct Refusal {
        std::string write;
        std::string table;
        std::string words;
        std::string condition{};
        bool endsTransaction = false;
    };
    void Refuse(const Refusal& refusal) const;
    void AcceptAgain() const;

    FreshFolder folder; ///< a program's folder; contains only the file of an embedded database

    /// The other session, for each engine.
    class Store;

private:
    std::unique_ptr<Store> store_;
};

} // namespace Quillane
