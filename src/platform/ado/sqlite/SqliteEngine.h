#pragma once

#include "platform/ado/Engine.h"
#include "platform/ado/sqlite/SqliteFileWatch.h"
#include "platform/ado/sqlite/SqliteSecret.h"
#include "platform/ado/sqlite/SqliteStatements.h"
#include "platform/ado/sqlite/SqliteWaits.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

struct sqlite3;

namespace Quillane {

/// The embedded database: one file, opened for reading and writing. Statements are the T-SQL that
/// `FromTSql` translates. Foreign keys are on, every commit is flushed to the disk, and the engine
/// waits for locks. If the file was replaced, nothing is written and no commit succeeds.
///
/// The session knows the collation `QTEXT`, in which texts compare without regard to case (beyond
/// ASCII too) and to trailing blanks, and a `Like` of the same kind with sets in brackets.
class SqliteEngine : public Engine {
public:
    /// Requires: the file `<folder>/<database>.db` exists; opening does not create it.
    SqliteEngine(std::string database, const EmbeddedSupport& support);

    long Run(std::string_view statement, std::span<const Value> parameters,
             ResultSet& result) override;
    void Begin() override;
    void Commit() override;
    void Rollback() override;
    bool InTransaction() override;
    std::vector<std::string> KeyColumns(std::string_view table) override;
    std::string ColumnInStatement(std::string_view column) override;
    RowMatch KeylessMatch(std::string_view table, std::span<const std::string> columns,
                          std::span<const Value> values) override;
    std::string DefaultDatabase() override { return database_; }
    std::string DatabaseFile() override;
    bool WriteBack() override;

private:
    struct CloseDatabase {
        void operator()(sqlite3* database) const;
    };

    void RunPlain(const char* text);
    void TakeWriteLock();
    void Step(sqlite3_stmt* statement, ResultSet& result);
    void ReportChange();
    [[noreturn]] void FailWithMessage();

    std::string database_;
    std::function<void()> afterChange_;
    SqliteWaits waits_;
    SqliteSecret secret_;
    std::unique_ptr<sqlite3, CloseDatabase> handle_; ///< destroyed before what it calls
    std::optional<SqliteStatements> statements_;     ///< destroyed before the handle
    SqliteFileWatch files_;
    bool beginsWithNextStatement_ = false;
};

} // namespace Quillane
