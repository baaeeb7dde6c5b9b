#pragma once

#include "platform/ado/Connection.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

/// The behaviour of `Connection` and `Recordset` on every engine.
namespace Quillane {

/// A database for one test. The destructor removes it.
class ContractDatabase {
public:
    virtual ~ContractDatabase() = default;
    virtual std::string ConnectionString() const = 0;
    virtual EmbeddedSupport Support() const { return {}; }
};

/// The contract is tested on each engine in `ContractEngines`.
struct ContractEngine {
    std::string name;
    std::string textType;   ///< of a text column that compares as in the station's database
    std::string momentType; ///< of a column with date and time
    /// The reason why the engine is not installed; empty if it is.
    std::function<std::string()> whyMissing = [] { return std::string(); };
    std::function<std::unique_ptr<ContractDatabase>()> make;
};

/// Prints the parameter in the name of a test.
inline void PrintTo(const ContractEngine& engine, std::ostream* out) {
    *out << engine.name;
}

std::vector<ContractEngine> ContractEngines();
/// The engines that accept T-SQL and compare text like SQL Server.
std::vector<ContractEngine> TSqlContractEngines();

/// An open connection to a database with these tables: Arrivals (key ArrivalID), ArrivalsBody (no
/// key, refers to Arrivals), BagsClasses (key of two columns, no references to it).
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
    std::vector<std::string> observed; ///< statements since the end of SetUp
};

class TSqlContract : public ConnectionContract {};

} // namespace Quillane
