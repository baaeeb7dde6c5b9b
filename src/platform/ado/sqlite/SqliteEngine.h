#pragma once

#include "platform/ado/Engine.h"
#include "platform/ado/sqlite/SqliteStatements.h"

#include <memory>
#include <optional>
#include <string>

struct sqlite3;

namespace Quillane {

/// The embedded database: one file, opened for reading and writing. Statements are T-SQL as far as
/// `FromTSql` goes. Foreign keys are on, every commit reaches the disk, and whoever holds the lock
/// is waited for.
///
/// The session knows the collation `QTEXT`, in which texts compare without regard to case (beyond
/// ASCII too) and to trailing blanks, and a `Like` of the same kind with sets in brackets.
class SqliteEngine : public Engine {
public:
    /// The file `<folder>/<database>.db` must be there: opening never makes one.
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

private:
    struct CloseDatabase {
        void operator()(sqlite3* database) const;
    };

    void OpenFile(const std::string& path, const EmbeddedSupport& support);
    void Configure(const std::string& path);
    void RunPlain(const char* text);
    void TakeWriteLock();
    [[noreturn]] void FailInWordsOfEngine();

    std::string database_;
    std::unique_ptr<sqlite3, CloseDatabase> handle_;
    std::optional<SqliteStatements> statements_; ///< gone before the handle
    bool beginsWithNextStatement_ = false;
};

} // namespace Quillane
