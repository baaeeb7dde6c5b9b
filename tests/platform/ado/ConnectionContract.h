#pragma once

#include "platform/ado/Connection.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

/// What holds for `Connection` and `Recordset` on every engine.
namespace Quillane {

/// A database of its own for one test, gone with this object.
class ContractDatabase {
public:
    virtual ~ContractDatabase() = default;
    virtual std::string ConnectionString() const = 0;
    virtual EmbeddedSupport Support() const { return {}; }
};

/// An engine takes part by an entry of its own in `ContractEngines`.
struct ContractEngine {
    std::string name;
    std::string textType;   ///< of a column of text, compared as the system's databases do
    std::string momentType; ///< of a column of days and times
    /// Whether statements may hold what T-SQL alone knows, and texts compare as there.
    bool readsTSql = true;
    /// Whether text behind the first statement is refused, rather than run.
    bool refusesSecondStatement = false;
    std::function<std::string()> whyMissing; ///< gives the empty text where the engine is there
    std::function<std::unique_ptr<ContractDatabase>()> make;
};

/// What the test's name is shown with.
inline void PrintTo(const ContractEngine& engine, std::ostream* out) {
    *out << engine.name;
}

std::vector<ContractEngine> ContractEngines();

/// An open connection on a database with these tables: Arrivals (key ArrivalID), ArrivalsBody (no
/// key, refers to Arrivals), BagsClasses (key of two columns, nothing refers to it).
class ConnectionContract : public testing::TestWithParam<ContractEngine> {
protected:
    void SetUp() override;

    void Run(std::string_view statement) { connection.Execute(statement); }
    /// The first field of the first row.
    std::string OneValue(std::string_view statement) {
        return connection.Execute(statement).Fields(0).Text();
    }
    /// All rows, fields joined by a comma and rows by a semicolon; Null as a hyphen.
    std::string AllRows(std::string_view statement);
    static std::string AllRows(Recordset& rows);

    Recordset Reading(std::string_view source);
    Recordset Writing(std::string_view source);

    /// Arrivals 1 (Ali, seller 6001), 2 (Bano, 6002) and 3 (no seller), each with two bag lines.
    void AddThreeArrivals();

    std::unique_ptr<ContractDatabase> database;
    Connection connection;
    std::vector<std::string> observed; ///< from the end of SetUp on
};

} // namespace Quillane
