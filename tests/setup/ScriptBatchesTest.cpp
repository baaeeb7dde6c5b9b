#include "setup/ScriptBatches.h"

#include "station/SampleDatabase.h"

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(ScriptBatches, EndAtLinesWithOnlyGo) {
    struct Case {
        const char* script;
        std::vector<std::string> batches;
    };
    const Case cases[] = {
        {"", {}},
        {"Select 1", {"Select 1"}},
        {"Select 1\nGO\nSelect 2\nGO\n", {"Select 1\n", "\nSelect 2\n"}},
        {"Select 1\r\ngo\r\nSelect 2", {"Select 1\r\n", "\nSelect 2"}},
        {"Select 1\n \t Go \t\nSelect 2", {"Select 1\n \t ", "\nSelect 2"}},
        {"GO\nGO\nSelect 1\nGO\nGO", {"\nSelect 1\n"}},
        {"-- a remark\nGO\n/* another */ ;\nGO\nSelect 1", {"\nSelect 1"}},
        // None of these ends a batch.
        {"Select 1 As Go\nFrom T", {"Select 1 As Go\nFrom T"}},
        {"Select 1\nGO Select 2", {"Select 1\nGO Select 2"}},
        {"Select '\nGO\n', 2", {"Select '\nGO\n', 2"}},
        {"Select 'it''s\nGO\n'", {"Select 'it''s\nGO\n'"}},
        {"Select [a\nGO\nb] From T", {"Select [a\nGO\nb] From T"}},
        {"Select 1 /*\nGO\n*/ + 2", {"Select 1 /*\nGO\n*/ + 2"}},
        {"Select 1 -- it's\nGO\nSelect 2", {"Select 1 -- it's\n", "\nSelect 2"}},
        {"Select 1\nGONE", {"Select 1\nGONE"}},
        {"Select 1\n@GO", {"Select 1\n@GO"}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(ScriptBatches(each.script), each.batches) << each.script;
}

class RunScriptOnADatabase : public testing::Test {
protected:
    bool Has(int id) {
        return database.Ask("Select Count(*) From PRCenters Where CenterId = " + std::to_string(id))
                   .Number() == 1;
    }
    static std::string Adding(int id) {
        return "Insert Into PRCenters (CenterId, CenterName) Values (" + std::to_string(id) +
               ", 'x')\nGO\n";
    }

    SampleDatabase database;
};

TEST_F(RunScriptOnADatabase, ReportsItsProgress) {
    std::vector<std::pair<int, int>> reported;
    EXPECT_TRUE(RunScript(database.connection, Adding(7) + Adding(8), [&](int done, int all) {
        reported.emplace_back(done, all);
        return true;
    }));
    EXPECT_EQ(reported, (std::vector<std::pair<int, int>>{{0, 2}, {1, 2}}));
    EXPECT_TRUE(Has(7) && Has(8));
}

TEST_F(RunScriptOnADatabase, KeepsTheBatchesBeforeACancellation) {
    EXPECT_FALSE(RunScript(database.connection, Adding(7) + Adding(8),
                           [](int done, int) { return done < 1; }));
    EXPECT_TRUE(Has(7));
    EXPECT_FALSE(Has(8));
}

TEST_F(RunScriptOnADatabase, EndsAtTheFirstFailure) {
    EXPECT_THROW(RunScript(database.connection, Adding(7) + Adding(7) + Adding(8)), Failure);
    EXPECT_TRUE(Has(7));
    EXPECT_FALSE(Has(8));
}

} // namespace
} // namespace Quillane
