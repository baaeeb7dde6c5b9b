#include "office/records/Tables.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <array>

namespace Quillane::Office {

namespace {

constexpr int longestAccountNo = 20;
constexpr int longestAccountName = 100;
constexpr int longestAddress = 200;
constexpr int longestName = 60;
constexpr int longestBagName = 40;

constexpr std::string_view needsName = "without a name it cannot be selected";
constexpr std::string_view needsCity =
    "without a city, arrivals of the party can be saved, but not opened or printed again";

Column NumberColumn(std::string_view name) {
    return {.name = name, .header = name, .caption = "Number", .kind = CellKind::Number};
}

Column NameColumn(std::string_view name, std::string_view caption, int longest) {
    return {.name = name,
            .header = name,
            .caption = caption,
            .longest = longest,
            .whyNeeded = needsName};
}

Column FlagColumn(std::string_view name, std::string_view caption, std::size_t part = 0,
                  std::string_view initial = "0") {
    return {.name = name,
            .header = name,
            .caption = caption,
            .kind = CellKind::Flag,
            .part = part,
            .initial = initial};
}

std::vector<Column> PartyColumns() {
    return {{.name = "PartyId",
             .header = "PartyId",
             .caption = "Account",
             .part = 1,
             .longest = longestAccountNo,
             .whyNeeded = "the account number identifies the party"},
            NameColumn("AccountName", "Name", longestAccountName),
            {.name = "CityId",
             .header = "City",
             .caption = "City",
             .kind = CellKind::Reference,
             .part = 1,
             .whyNeeded = needsCity,
             .target = &CitiesTable()},
            {.name = "Address",
             .header = "Address",
             .caption = "Address",
             .part = 1,
             .longest = longestAddress},
            FlagColumn("IsSeller", "Seller", 1),
            FlagColumn("IsBuyer", "Buyer", 1),
            FlagColumn("IsBroker", "Broker", 1),
            FlagColumn("IsEditable", "In use", 0, "1")};
}

} // namespace

const Table& CitiesTable() {
    static const Table table{
        .name = "cities",
        .title = "Cities",
        .one = "city",
        .parts = {{"Cities", "CityId"}},
        .columns = {NumberColumn("CityId"), NameColumn("CityName", "City", longestName)},
        .joinedBy = {{"Parties", "CityId"}}};
    return table;
}

const Table& PartiesTable() {
    static const Table table{.name = "parties",
                             .title = "Parties",
                             .one = "party",
                             .parts = {{"ChartOfAccounts", "AccountNo"}, {"Parties", "PartyId"}},
                             .columns = PartyColumns(),
                             .joinedBy = {{"Arrivals", "SellerId"}},
                             .inUse = 7,
                             .numbersItself = false};
    return table;
}

const Table& CommoditiesTable() {
    static const Table table{.name = "commodities",
                             .title = "Commodities",
                             .one = "commodity",
                             .parts = {{"Commodities", "CommodityId"}},
                             .columns = {NumberColumn("CommodityId"),
                                         NameColumn("CommodityName", "Commodity", longestName),
                                         FlagColumn("IsPurchaseable", "Purchased"),
                                         FlagColumn("IsSaleable", "Sold"),
                                         FlagColumn("IsWheatCommodity", "Wheat")},
                             .joinedBy = {{"Arrivals", "CommodityId"}}};
    return table;
}

const Table& BagClassesTable() {
    static const Table table{.name = "bag-classes",
                             .title = "Bag classes",
                             .one = "bag class",
                             .parts = {{"BagsClasses", "BagsClassId"}},
                             .columns = {NumberColumn("BagsClassId"),
                                         NameColumn("BagsClass", "Bag class", longestBagName)},
                             .joinedBy = {{"ArrivalsBody", "BagsClassId"}}};
    return table;
}

const Table& BagTypesTable() {
    static const Table table{
        .name = "bag-types",
        .title = "Bag types",
        .one = "bag type",
        .parts = {{"BagsTypes", "BagsTypeId"}},
        .columns = {NumberColumn("BagsTypeId"), NameColumn("BagsType", "Bag type", longestBagName)},
        .joinedBy = {{"ArrivalsBody", "BagsTypeId"}}};
    return table;
}

std::span<const Table* const> AllTables() {
    static const std::array<const Table*, 5> tables{
        &CitiesTable(), &PartiesTable(), &CommoditiesTable(), &BagClassesTable(), &BagTypesTable()};
    return tables;
}

const Table* TableNamed(std::string_view name) {
    const auto tables = AllTables();
    const auto found = std::ranges::find_if(
        tables, [&](const Table* table) { return EqualIgnoringCase(table->name, name); });
    return found == tables.end() ? nullptr : *found;
}

std::size_t PlaceOf(const Table& table, std::string_view column) {
    for (std::size_t place = 0; place < table.columns.size(); ++place)
        if (EqualIgnoringCase(table.columns[place].name, column))
            return place;
    Fail(FailureNumber::SubscriptOutOfRange);
}

Row InitialRow(const Table& table) {
    Row row;
    for (const Column& column : table.columns)
        row.emplace_back(column.initial);
    return row;
}

std::string Called(const Table& table, const Row& row) {
    return std::string(table.one) + " " + row[KeyCell] + " (" + row[NameCell] + ")";
}

} // namespace Quillane::Office
