#include "office/records/References.h"

#include "OfficeDatabase.h"

#include "platform/runtime/Text.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

using End = DeleteResult::End;

class References : public testing::Test {
protected:
    DeleteResult Delete(const Table& table, const std::string& key) {
        return DeleteRow(database.connection, table, database.Stored(table, key));
    }
    /// "Arrivals.SellerId 3", in the order in which they are found.
    std::vector<std::string> To(const Table& table, const std::string& key) {
        std::vector<std::string> texts;
        for (const Reference& found :
             ReferencesTo(database.connection, table, database.Stored(table, key)))
            texts.push_back(DeclaredName(found.from.table) + "." + found.from.column + " " +
                            std::to_string(found.rows));
        return texts;
    }

    OfficeDatabase database;
};

TEST_F(References, RowWithoutReferencesIsDeletedFromAllItsTables) {
    database.Write(PartiesTable(), {{std::nullopt, NewParty}});
    EXPECT_EQ(Delete(PartiesTable(), "6010099").end, End::Deleted);
    EXPECT_FALSE(database.Has(PartiesTable(), "6010099"));
    EXPECT_EQ(database.Text("Select Count(*) From ChartOfAccounts Where AccountNo = '6010099'"),
              "0");
}

TEST_F(References, PartyWithArrivalsIsNotDeleted) {
    const std::string seller =
        database.Text("Select SellerId From Arrivals Where ArrivalID = 1035");
    const std::string count =
        database.Text("Select Count(*) From Arrivals Where SellerId = '" + seller + "'");
    const DeleteResult result = Delete(PartiesTable(), seller);
    EXPECT_EQ(result.end, End::IsReferredTo);
    EXPECT_TRUE(database.Has(PartiesTable(), seller));
    ASSERT_FALSE(result.references.empty());
    // The catalogue of a server may use another case.
    EXPECT_TRUE(EqualIgnoringCase(result.references[0].from.table, "Arrivals"));
    EXPECT_EQ(std::to_string(result.references[0].rows), count);
}

TEST_F(References, TableOfTheSiteWithAForeignKeyIsFound) {
    database.Run("Create Table Tolls (TollId int Not Null Primary Key, Payer nvarchar(20) "
                 "References Parties (PartyId))");
    database.Write(PartiesTable(), {{std::nullopt, NewParty}});
    database.Run("Insert Into Tolls (TollId, Payer) Values (1, '6010099')");
    database.Run("Insert Into Tolls (TollId, Payer) Values (2, '6010099')");
    EXPECT_EQ(To(PartiesTable(), "6010099"), std::vector<std::string>{"Tolls.Payer 2"});
    EXPECT_EQ(Delete(PartiesTable(), "6010099").end, End::IsReferredTo);
}

TEST_F(References, ReferenceToTheAccountOfAPartyIsFound) {
    database.Run("Create Table Bills (BillId int Not Null Primary Key, Account nvarchar(20) "
                 "References ChartOfAccounts (AccountNo))");
    database.Write(PartiesTable(), {{std::nullopt, NewParty}});
    database.Run("Insert Into Bills (BillId, Account) Values (1, '6010099')");
    EXPECT_EQ(To(PartiesTable(), "6010099"), std::vector<std::string>{"Bills.Account 1"});
}

TEST_F(References, TableAndColumnNamesAreQuoted) {
    database.Run("Create Table [Gate Passes] ([Pass No] int Not Null Primary Key, [For City] int "
                 "References Cities (CityId))");
    database.Run("Insert Into Cities (CityId, CityName) Values (77, 'Jhang')");
    database.Run("Insert Into [Gate Passes] ([Pass No], [For City]) Values (1, 77)");
    EXPECT_EQ(To(CitiesTable(), "77"), std::vector<std::string>{"Gate Passes.For City 1"});
}

TEST_F(References, CityOfAPartyIsNotDeleted) {
    EXPECT_EQ(Delete(CitiesTable(), "3").end, End::IsReferredTo);
    database.Run("Insert Into Cities (CityId, CityName) Values (77, 'Jhang')");
    EXPECT_EQ(Delete(CitiesTable(), "77").end, End::Deleted);
}

// Bag lines have no foreign keys to these two tables, because they may contain 0.
TEST_F(References, BagClassAndTypeOfAStoredLineAreNotDeleted) {
    const std::string bagClass = database.Text("Select Min(BagsClassId) From ArrivalsBody");
    const std::string bagType = database.Text("Select Min(BagsTypeId) From ArrivalsBody");
    EXPECT_EQ(Delete(BagClassesTable(), bagClass).end, End::IsReferredTo);
    EXPECT_EQ(Delete(BagTypesTable(), bagType).end, End::IsReferredTo);
    database.Run("Insert Into BagsClasses (BagsClassId, BagsClass) Values (77, 'Torn')");
    EXPECT_EQ(Delete(BagClassesTable(), "77").end, End::Deleted);
}

TEST_F(References, ArrivalsAreFoundWithoutForeignKeys) {
    SKIP_ON_SQL_SERVER("a table is loosened together with those that refer to it");
    database.Loosen("Arrivals");
    const std::string commodity = database.Text("Select Min(CommodityId) From Arrivals");
    database.Loosen("ArrivalsBody");
    EXPECT_EQ(Delete(CommoditiesTable(), commodity).end, End::IsReferredTo);
}

TEST_F(References, RowChangedByAnotherSessionIsNotDeleted) {
    database.Run("Insert Into Cities (CityId, CityName) Values (77, 'Jhang')");
    const Row shown = database.Stored(CitiesTable(), "77");
    database.Run("Update Cities Set CityName = 'Jhang Sadar' Where CityId = 77");
    const DeleteResult result = DeleteRow(database.connection, CitiesTable(), shown);
    EXPECT_EQ(result.end, End::Conflicts);
    EXPECT_EQ(result.stored, (Row{"77", "Jhang Sadar"}));
    EXPECT_TRUE(database.Has(CitiesTable(), "77"));
}

TEST_F(References, DeletedRowIsReportedAsDeleted) {
    database.Run("Insert Into Cities (CityId, CityName) Values (77, 'Jhang')");
    const Row shown = database.Stored(CitiesTable(), "77");
    database.Run("Delete From Cities Where CityId = 77");
    const DeleteResult result = DeleteRow(database.connection, CitiesTable(), shown);
    EXPECT_EQ(result.end, End::Conflicts);
    EXPECT_FALSE(result.stored);
}

TEST(DescribedReferences, NameTableColumnAndCountAndTheRemedy) {
    EXPECT_EQ(
        DescribeReferences(PartiesTable(), NewParty,
                           {{{"Arrivals", "SellerId"}, 12}, {{"Sales", "BuyerId"}, 1}}),
        "The party 6010099 (Hamza Traders) cannot be deleted, because other rows refer to it:\n"
        "Arrivals, column SellerId: 12 rows\n"
        "Sales, column BuyerId: 1 row\n"
        "Take it out of use instead: the station then does not show it in its lists of suppliers, "
        "buyers and brokers.");
    EXPECT_EQ(DescribeReferences(CitiesTable(), {"3", "Okara"}, {{{"Parties", "CityId"}, 2}}),
              "The city 3 (Okara) cannot be deleted, because other rows refer to it:\n"
              "Parties, column CityId: 2 rows\n"
              "Delete these rows first, or rename it.");
}

} // namespace
} // namespace Quillane::Office
