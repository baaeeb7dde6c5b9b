#include "OfficeDatabase.h"

#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

using End = WriteResult::End;

class RowWrites : public testing::Test {
protected:
    OfficeDatabase database;
};

TEST_F(RowWrites, NewPartyIsStoredInBothOfItsTables) {
    EXPECT_EQ(database.Write(PartiesTable(), {{std::nullopt, NewParty}}).end, End::Written);
    EXPECT_EQ(database.Stored(PartiesTable(), "6010099"), NewParty);
    EXPECT_EQ(database.Text("Select AccountName From ChartOfAccounts Where AccountNo = '6010099'"),
              "Hamza Traders");
}

TEST_F(RowWrites, EmptyTextIsStoredAsNull) {
    Row party = NewParty;
    party[PlaceOf(PartiesTable(), "Address")] = "";
    database.Write(PartiesTable(), {{std::nullopt, party}});
    EXPECT_TRUE(
        database.Rows("Select Address From Parties Where PartyId = '6010099'")[0][0].IsNull());
    EXPECT_EQ(database.Stored(PartiesTable(), "6010099"), party);
}

TEST_F(RowWrites, NamesMayHoldApostrophesUrduAndEmoji) {
    for (const char* name :
         {"O'Brien & Sons", "محمد اسلم اینڈ سنز", "Mill 🌾 No. 1", "''", "a;b--"}) {
        database.Write(CitiesTable(), {{std::nullopt, {"77", name}}});
        EXPECT_EQ(database.Stored(CitiesTable(), "77"), (Row{"77", name}));
        database.Run("Delete From Cities Where CityId = 77");
    }
}

TEST_F(RowWrites, ChangeSendsOnlyTheColumnsThatDiffer) {
    std::vector<std::string> writes;
    database.connection.StatementObserver = [&](std::string_view text) {
        if (text.starts_with("UPDATE"))
            writes.emplace_back(text);
    };
    const RowChange change = database.Changed(PartiesTable(), "6010001", "Address", "Shop 15");
    EXPECT_EQ(database.Write(PartiesTable(), {change}).end, End::Written);
    EXPECT_EQ(writes, std::vector<std::string>{"UPDATE Parties SET Address = ? WHERE PartyId = ?"});
    EXPECT_EQ(database.Stored(PartiesTable(), "6010001"), change.after);
}

// The row is locked first, so that no session changes it between the check and the write.
TEST_F(RowWrites, RowIsLockedBeforeItIsComparedAndWritten) {
    const RowChange change = database.Changed(CitiesTable(), "3", "CityName", "Okara Cantonment");
    std::vector<std::string> statements;
    database.connection.StatementObserver = [&](std::string_view text) {
        statements.emplace_back(text);
    };
    database.Write(CitiesTable(), {change});
    EXPECT_EQ(statements,
              (std::vector<std::string>{
                  "BeginTrans", "Update Cities Set CityName = CityName Where Cities.CityId = 3",
                  "Select Cities.CityId, Cities.CityName From Cities Where Cities.CityId = 3 Order "
                  "By Cities.CityName",
                  "Select * From Cities Where Cities.CityId = 3",
                  "UPDATE Cities SET CityName = ? WHERE CityId = ?", "CommitTrans"}));
}

TEST_F(RowWrites, EachKindOfRowCanBeAddedAndRenamed) {
    const std::pair<const Table*, Row> rows[] = {
        {&CitiesTable(), {"41", "Jhang"}},
        {&CommoditiesTable(), {"41", "Barley", "1", "0", "1"}},
        {&BagClassesTable(), {"41", "Torn"}},
        {&BagTypesTable(), {"41", "Paper"}}};
    for (const auto& [table, row] : rows) {
        EXPECT_EQ(database.Write(*table, {{std::nullopt, row}}).end, End::Written);
        EXPECT_EQ(database.Stored(*table, "41"), row);
        Row renamed = row;
        renamed[NameCell] = "Other";
        EXPECT_EQ(database.Write(*table, {{row, renamed}}).end, End::Written);
        EXPECT_EQ(database.Stored(*table, "41"), renamed);
    }
}

TEST_F(RowWrites, RowChangedByAnotherSessionIsAConflictWithBothValues) {
    const RowChange ours = database.Changed(PartiesTable(), "6010001", "Address", "Shop 20");
    const RowChange theirs = database.Changed(PartiesTable(), "6010001", "Address", "Shop 15");
    ASSERT_EQ(WriteRows(database.other, PartiesTable(), {{theirs}}).end, End::Written);
    const WriteResult result = database.Write(PartiesTable(), {ours});
    EXPECT_EQ(result.end, End::Conflicts);
    EXPECT_EQ(result.conflict.stored, theirs.after);
    EXPECT_EQ(database.Stored(PartiesTable(), "6010001"), theirs.after);
    EXPECT_EQ(DescribeConflict(PartiesTable(), ours, result.conflict,
                               [](std::size_t column, const Row& row) { return row[column]; }),
              "Another user has changed party 6010001 (Chaudhry Grain Traders) in the meantime:\n"
              "Address: it was \"Shop 14, Grain Market\", it is now \"Shop 15\", your entry is "
              "\"Shop 20\"");
}

TEST_F(RowWrites, ChangeOfOnlyTheAccountTableIsAConflict) {
    const RowChange ours = database.Changed(PartiesTable(), "6010001", "Address", "Shop 20");
    database.Run("Update ChartOfAccounts Set AccountName = 'Renamed' Where AccountNo = '6010001'");
    const WriteResult result = database.Write(PartiesTable(), {ours});
    ASSERT_EQ(result.end, End::Conflicts);
    EXPECT_EQ((*result.conflict.stored)[NameCell], "Renamed");
}

TEST_F(RowWrites, RowDeletedByAnotherSessionIsAConflict) {
    database.Run("Insert Into Cities (CityId, CityName) Values (77, 'Jhang')");
    const RowChange ours = database.Changed(CitiesTable(), "77", "CityName", "Jhang Sadar");
    database.Run("Delete From Cities Where CityId = 77");
    const WriteResult result = database.Write(CitiesTable(), {ours});
    EXPECT_EQ(result.end, End::Conflicts);
    EXPECT_FALSE(result.conflict.stored);
    EXPECT_FALSE(database.Has(CitiesTable(), "77"));
    EXPECT_EQ(DescribeConflict(CitiesTable(), ours, result.conflict, {}),
              "Another user has deleted city 77 (Jhang) in the meantime. Nothing was written.");
}

TEST_F(RowWrites, NewRowWithAUsedNumberIsAConflict) {
    database.Run("Insert Into Cities (CityId, CityName) Values (77, 'Jhang')");
    const RowChange ours{std::nullopt, {"77", "Kasur"}};
    const WriteResult result = database.Write(CitiesTable(), {ours});
    EXPECT_EQ(result.end, End::Conflicts);
    EXPECT_EQ(database.Stored(CitiesTable(), "77"), (Row{"77", "Jhang"}));
    EXPECT_EQ(DescribeConflict(CitiesTable(), ours, result.conflict, {}),
              "Another user has added city 77 (Jhang) in the meantime. Nothing was written.");
}

TEST_F(RowWrites, OneConflictPreventsAllChanges) {
    const std::vector<RowChange> changes{
        {std::nullopt, {"77", "Jhang"}},
        database.Changed(CitiesTable(), "1", "CityName", "Lahore Cantonment"),
        database.Changed(CitiesTable(), "2", "CityName", "Lyallpur")};
    database.Run("Update Cities Set CityName = 'Faisalabad Sadar' Where CityId = 2");
    const WriteResult result = database.Write(CitiesTable(), changes);
    EXPECT_EQ(result.end, End::Conflicts);
    EXPECT_EQ(result.conflict.change, 2U);
    EXPECT_FALSE(database.Has(CitiesTable(), "77"));
    EXPECT_EQ(database.Stored(CitiesTable(), "1")[NameCell], "Lahore");
}

TEST_F(RowWrites, ManyChangesAreWrittenTogether) {
    const std::vector<RowChange> changes{
        {std::nullopt, {"77", "Jhang"}},
        database.Changed(CitiesTable(), "1", "CityName", "Lahore Cantonment"),
        {std::nullopt, {"78", "Kasur"}}};
    EXPECT_EQ(database.Write(CitiesTable(), changes).end, End::Written);
    for (const RowChange& change : changes)
        EXPECT_EQ(database.Stored(CitiesTable(), change.after[KeyCell]), change.after);
}

TEST_F(RowWrites, CancelledWriteIsRolledBack) {
    const std::vector<RowChange> changes{{std::nullopt, {"77", "Jhang"}},
                                         {std::nullopt, {"78", "Kasur"}}};
    std::vector<int> reported;
    const WriteResult result =
        WriteRows(database.connection, CitiesTable(), changes, [&](int done) {
            reported.push_back(done);
            return done < 1;
        });
    EXPECT_EQ(result.end, End::Cancelled);
    EXPECT_EQ(reported, std::vector<int>{1});
    EXPECT_FALSE(database.Has(CitiesTable(), "77"));
}

TEST_F(RowWrites, DatabaseErrorRollsBackAndKeepsTheConnectionUsable) {
    database.Refuse({.write = "INSERT", .table = "Parties", .words = "closed"});
    EXPECT_THROW(database.Write(PartiesTable(), {{std::nullopt, NewParty}}), Failure);
    EXPECT_EQ(database.Text("Select Count(*) From ChartOfAccounts Where AccountNo = '6010099'"),
              "0");
    database.AcceptAgain();
    EXPECT_EQ(database.Write(PartiesTable(), {{std::nullopt, NewParty}}).end, End::Written);
}

} // namespace
} // namespace Quillane::Office
