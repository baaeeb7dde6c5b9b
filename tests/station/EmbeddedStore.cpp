#include "station/StationStore.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace Quillane {

namespace {

Value Cell(sqlite3_stmt* row, int column) {
    switch (sqlite3_column_type(row, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_column_int64(row, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(row, column);
    default:
        return reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    }
}

/// A session for each call, so that the file is not kept open.
class FileSession {
public:
    explicit FileSession(const std::string& file) {
        EXPECT_EQ(sqlite3_open(file.c_str(), &session_), SQLITE_OK);
        sqlite3_busy_timeout(session_, 10'000);
    }
    ~FileSession() { sqlite3_close(session_); }
    FileSession(const FileSession&) = delete;
    FileSession& operator=(const FileSession&) = delete;

    void Run(const std::string& statements) {
        EXPECT_EQ(sqlite3_exec(session_, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(session_);
    }
    std::vector<StationDatabase::Row> Rows(const std::string& query) {
        std::vector<StationDatabase::Row> rows;
        sqlite3_stmt* row = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(session_, query.c_str(), -1, &row, nullptr), SQLITE_OK)
            << sqlite3_errmsg(session_);
        while (row && sqlite3_step(row) == SQLITE_ROW) {
            StationDatabase::Row& cells = rows.emplace_back();
            for (int column = 0; column < sqlite3_column_count(row); ++column)
                cells.push_back(Cell(row, column));
        }
        EXPECT_EQ(sqlite3_finalize(row), SQLITE_OK) << sqlite3_errmsg(session_);
        return rows;
    }

private:
    sqlite3* session_ = nullptr;
};

class EmbeddedStore : public StationDatabase::Store {
public:
    EmbeddedStore(const std::string& file, const NewDatabase& particulars) : file_(file) {
        CreateEmbeddedDatabase(file, particulars);
    }

    std::string ConfigText() const override { return "Server=(embedded);Database=Account1"; }
    void Run(const std::string& statements) override { FileSession(file_).Run(statements); }
    std::vector<StationDatabase::Row> Rows(const std::string& query) override {
        return FileSession(file_).Rows(query);
    }
    // The legacy renaming does not change the references of other tables.
    void Rename(const std::string& table, const std::string& name) override {
        Run("PRAGMA legacy_alter_table = ON; ALTER TABLE " + table + " RENAME TO " + name);
    }
    void Loosen(const std::string& table) override {
        Rename(table, "Strict");
        Run("CREATE TABLE " + table + " AS SELECT * FROM Strict; DROP TABLE Strict");
    }
    void Refuse(const StationDatabase::Refusal& refusal) override {
        const std::string row = refusal.write == "INSERT" ? "NEW." : "OLD.";
        Run("CREATE TRIGGER Closed BEFORE " + refusal.write + " ON " + refusal.table +
            (refusal.condition.empty() ? "" : " WHEN " + row + refusal.condition) +
            " BEGIN SELECT RAISE(" + (refusal.endsTransaction ? "ROLLBACK" : "ABORT") + ", '" +
            refusal.words + "'); END");
    }

private:
    std::string file_;
};

} // namespace

std::unique_ptr<StationDatabase::Store> MakeEmbeddedStore(const std::string& file,
                                                          const NewDatabase& particulars) {
    return std::make_unique<EmbeddedStore>(file, particulars);
}

} // namespace Quillane
