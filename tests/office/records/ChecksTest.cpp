#include "OfficeDatabase.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

using Weight = Finding::Weight;

/// The rules need no database, only a small list of each kind.
class Checks : public testing::Test {
protected:
    Checks() {
        for (const Row& row : std::vector<Row>{{"6010001", "Zahid", "3", "", "1", "0", "0", "1"},
                                               {"6010009", "Akbar", "3", "", "1", "0", "0", "1"},
                                               {"6040001", "Bashir", "", "", "0", "1", "0", "1"}})
            parties.rows.Put(row);
        parties.targets.emplace("cities",
                                KnownRows(CitiesTable(), {{"3", "Okara"}, {"4", "Sahiwal"}}));
        parties.keysOfOthers.emplace("6010010", "Petty cash");
        classes.rows.Put({"1", "New"});
        classes.rows.Put({"7", "Old"});
    }

    static Row Party(const std::string& column, const std::string& cell) {
        Row row = NewParty;
        row[PlaceOf(PartiesTable(), column)] = cell;
        return row;
    }
    std::string Refusal(const Row& party) {
        return TextOf(Check(parties, std::nullopt, party), Weight::Refuses);
    }
    std::string Warning(const Row& party) {
        return TextOf(Check(parties, std::nullopt, party), Weight::Warns);
    }

    Snapshot parties{KnownRows(PartiesTable()), {}, {}};
    Snapshot classes{KnownRows(BagClassesTable()), {}, {}};
    Snapshot commodities{KnownRows(CommoditiesTable()), {}, {}};
};

TEST_F(Checks, SoundRowHasNoFindings) {
    EXPECT_TRUE(Check(parties, std::nullopt, NewParty).empty());
}

TEST_F(Checks, PartyWithoutACityIsRefused) {
    EXPECT_EQ(Refusal(Party("CityId", "")),
              "City is empty: without a city, arrivals of the party can be saved, but not opened "
              "or printed again. Fill it in.");
    EXPECT_EQ(Refusal(Party("CityId", "9")),
              "There is no city with the number 9. It may have been deleted; choose another.");
}

TEST_F(Checks, EmptyNameAndEmptyAccountAreRefused) {
    EXPECT_EQ(Refusal(Party("AccountName", "")),
              "Name is empty: without a name it cannot be selected. Fill it in.");
    EXPECT_EQ(Refusal(Party("PartyId", "")),
              "Account is empty: the account number identifies the party. Fill it in.");
}

TEST_F(Checks, UnchangedRowHasNoFindings) {
    const Row withoutCity = *parties.rows.WithKey("6040001");
    EXPECT_TRUE(Check(parties, withoutCity, withoutCity).empty());
    Row renamed = withoutCity;
    renamed[NameCell] = "Bashir & Sons";
    EXPECT_TRUE(Refuses(Check(parties, withoutCity, renamed)));
}

TEST_F(Checks, LengthIsCountedInUtf16Units) {
    EXPECT_EQ(Refusal(Party("AccountName", std::string(100, 'x'))), "");
    EXPECT_EQ(Refusal(Party("AccountName", std::string(101, 'x'))),
              "Name has 101 characters; the maximum is 100. Shorten it.");
    std::string emoji;
    for (int count = 0; count < 51; ++count)
        emoji += "🌾";
    EXPECT_EQ(Refusal(Party("AccountName", emoji)),
              "Name has 102 characters; the maximum is 100. Shorten it.");
}

TEST_F(Checks, ControlCharactersAreRefused) {
    for (const char* name : {"Ali\nTraders", "Ali\tTraders", "Ali\x01", "Ali\xC2\x85",
                             "\xE2\x80\xAEilA", "Ali\xE2\x80\xA8Traders"})
        EXPECT_EQ(Refusal(Party("AccountName", name)),
                  "Name contains a line break or another control character. Remove it.")
            << name;
    EXPECT_EQ(Refusal(Party("AccountName", "علی\xE2\x80\x8C"
                                           "زئی")),
              "");
}

TEST_F(Checks, UsedAccountIsRefusedInAnyCase) {
    EXPECT_EQ(Refusal(Party("PartyId", "6010001")),
              "Account 6010001 is already used by \"Zahid\". Choose another.");
    EXPECT_EQ(
        Refusal(Party("PartyId", "6010010")),
        "Account 6010010 is already used by \"Petty cash\", which is not a party. Choose another.");
    parties.rows.Put({"60A1", "Letters", "3", "", "1", "0", "0", "1"});
    EXPECT_EQ(Refusal(Party("PartyId", "60a1")),
              "Account 60a1 is already used by \"Letters\". Choose another.");
}

TEST_F(Checks, SecondPartyOfTheSameNameAndCityIsRefused) {
    EXPECT_EQ(Refusal(Party("AccountName", "ZAHID")),
              "Party 6010001 has the same name and city, so the station could not tell them apart. "
              "Add something to the name.");
    Row elsewhere = Party("AccountName", "Zahid");
    elsewhere[PlaceOf(PartiesTable(), "CityId")] = "4";
    EXPECT_EQ(Refusal(elsewhere), "");
}

TEST_F(Checks, AccountThatDoesNotBeginWith6GivesAWarning) {
    EXPECT_EQ(Warning(Party("PartyId", "3010001")),
              "The account 3010001 does not begin with 6, so the party search of the station does "
              "not show it.");
    EXPECT_EQ(Refusal(Party("PartyId", "3010001")), "");
}

TEST_F(Checks, PartyWithoutARoleGivesAWarning) {
    EXPECT_EQ(
        Warning(Party("IsSeller", "0")),
        "The party is not a seller, buyer or broker, so the station shows it only under \"ALL\".");
}

TEST_F(Checks, KeyCannotBeChanged) {
    const Row before = *classes.rows.WithKey("1");
    EXPECT_EQ(TextOf(Check(classes, before, {"2", "New"}), Weight::Refuses),
              "Number cannot be changed.");
}

TEST_F(Checks, UsedNameOfABagClassIsRefusedInAnyCase) {
    EXPECT_EQ(TextOf(Check(classes, std::nullopt, {"8", "OLD"}), Weight::Refuses),
              "The name \"OLD\" is already used by bag class 7. Choose another.");
    const Row before = *classes.rows.WithKey("7");
    EXPECT_TRUE(Check(classes, before, {"7", "OLD"}).empty());
}

TEST_F(Checks, NumberOfANewRowMustBeAWholeNumber) {
    for (const char* number : {"x", "0", "-1", "1.5", "1e3", "2147483648", " 8"})
        EXPECT_EQ(TextOf(Check(classes, std::nullopt, {number, "Torn"}), Weight::Refuses),
                  "Number \"" + std::string(number) +
                      "\" is not a whole number from 1 to 2147483647.");
    EXPECT_TRUE(Check(classes, std::nullopt, {"2147483647", "Torn"}).empty());
}

TEST_F(Checks, CommodityThatTheStationDoesNotListGivesAWarning) {
    EXPECT_TRUE(Check(commodities, std::nullopt, {"1", "Wheat", "1", "0", "1"}).empty());
    for (const Row& row :
         std::vector<Row>{{"1", "Wheat", "0", "0", "1"}, {"1", "Bags", "1", "0", "0"}})
        EXPECT_EQ(TextOf(Check(commodities, std::nullopt, row), Weight::Warns),
                  "The station lists only commodities that are marked \"Purchased\" and \"Wheat\". "
                  "Arrivals of any other commodity can be opened, but not saved again.");
}

TEST_F(Checks, ProposedAccountIsTheNextFreeOneOfTheRole) {
    KeyProposals keys(parties);
    EXPECT_EQ(keys.For(NewParty), "6010011") << "6010010 is used by an account that is not a party";
    EXPECT_EQ(keys.For(NewParty), "6010012");
    Row buyer = Party("IsSeller", "0");
    buyer[PlaceOf(PartiesTable(), "IsBuyer")] = "1";
    EXPECT_EQ(keys.For(buyer), "6040002");
}

TEST_F(Checks, FirstAccountOfAnEmptyListBeginsWith6) {
    const Snapshot none{KnownRows(PartiesTable()), {}, {}};
    EXPECT_EQ(KeyProposals(none).For(NewParty), "6010001");
    Row broker = Party("IsSeller", "0");
    broker[PlaceOf(PartiesTable(), "IsBroker")] = "1";
    EXPECT_EQ(KeyProposals(none).For(broker), "6060001");
}

TEST_F(Checks, ProposedAccountAlwaysBeginsWith6) {
    parties.rows.Put({"6999999", "Last", "3", "", "1", "0", "0", "1"});
    EXPECT_EQ(KeyProposals(parties).For(NewParty), "69999991");
}

TEST_F(Checks, ProposedNumberIsTheHighestPlusOne) {
    EXPECT_EQ(KeyProposals(classes).For({"", "Torn"}), "8");
    EXPECT_EQ(KeyProposals(commodities).For({"", "Wheat", "1", "0", "1"}), "1");
}

} // namespace
} // namespace Quillane::Office
