#include "office/move/SourceDatabase.h"

#include "MoveFixture.h"

#include "office/move/MoveToServer.h"
#include "setup/DatabaseScripts.h"

namespace Quillane::Office {
namespace {

using Names = std::vector<std::string>;

TEST(ParentsFirst, PutsEachTableAfterThoseThatItRefersTo) {
    EXPECT_EQ(ParentsFirst({"a", "b", "c", "d"}, {{"a", "C"}, {"c", "d"}, {"b", "a"}}),
              Names({"d", "c", "a", "b"}));
}

TEST(ParentsFirst, AllowsATableToReferToItselfAndToAMissingOne) {
    EXPECT_EQ(ParentsFirst({"a", "b"}, {{"a", "a"}, {"a", "gone"}}), Names({"a", "b"}));
}

TEST(ParentsFirst, NamesTablesThatReferToEachOther) {
    EXPECT_EQ(
        FailureOf([] {
            ParentsFirst({"a", "b", "c"}, {{"b", "c"}, {"c", "b"}});
        }).Description(),
        "These tables refer to each other, so that no order of their rows can be stored: b, c.");
}

class SourceOfAMove : public StationToMove {};

TEST_F(SourceOfAMove, HasAllTablesWithTheirKeysAndCounts) {
    EmbeddedFile file(Database(), SQLITE_OPEN_READONLY);
    const SourceDatabase source(file);
    EXPECT_EQ(static_cast<long>(source.Tables().size()),
              file.FirstNumber("SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name "
                               "<> 'sqlite_sequence'"));
    const auto body = std::ranges::find(source.Tables(), "ArrivalsBody", &SourceTable::name);
    ASSERT_NE(body, source.Tables().end());
    EXPECT_EQ(body->key, Names({"LineId"}));
    EXPECT_EQ(body->columns.size(), 16U);
    EXPECT_EQ(body->rows, file.FirstNumber("SELECT count(*) FROM ArrivalsBody"));
    EXPECT_EQ(body->lastNumber, file.FirstNumber("SELECT max(LineId) FROM ArrivalsBody"));
}

TEST_F(SourceOfAMove, ReturnsAllRowsInBlocks) {
    AddArrivals(1500);
    EmbeddedFile file(Database(), SQLITE_OPEN_READONLY);
    const SourceDatabase source(file);
    const auto arrivals = std::ranges::find(source.Tables(), "Arrivals", &SourceTable::name);
    long rows = 0;
    int largest = 0;
    source.Read(*arrivals, [&](const ResultSet& block) {
        rows += block.RowCount();
        largest = std::max(largest, block.RowCount());
        return true;
    });
    EXPECT_EQ(rows, 1512);
    EXPECT_LT(largest, 1000);
}

TEST(TablesFilledBy, AreThoseOfTheScriptOfSqlServer) {
    EXPECT_EQ(TablesFilledBy(DatabaseScripts::SqlServerSchema),
              std::set<std::string>({"PortSettings", "Project_Registry", "StationSchema"}));
}

} // namespace
} // namespace Quillane::Office
