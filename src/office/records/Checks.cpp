#include "office/records/Checks.h"

#include "office/records/Texts.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <array>

namespace Quillane::Office {

namespace {

constexpr char searchedBranch = '6';

class RowCheck {
public:
    RowCheck(const Snapshot& known, const std::optional<Row>& before, const Row& after)
        : known_(known), table_(known.rows.Described()), before_(before), after_(after) {}

    std::vector<Finding> Findings() {
        if (before_ == after_)
            return {};
        for (std::size_t column = 0; column < table_.columns.size(); ++column)
            CheckCell(column);
        CheckKey();
        if (&table_ == &PartiesTable())
            CheckParty();
        else
            CheckNameIsFree();
        if (&table_ == &CommoditiesTable())
            CheckCommodity();
        return std::move(findings_);
    }

private:
    void Refuse(std::size_t column, std::string text) {
        findings_.push_back({Finding::Weight::Refuses, column, std::move(text)});
    }
    void Warn(std::size_t column, std::string text) {
        findings_.push_back({Finding::Weight::Warns, column, std::move(text)});
    }

    bool IsNewOrDiffers(std::size_t column) const {
        return !before_ || (*before_)[column] != after_[column];
    }

    void CheckCell(std::size_t place) {
        const Column& column = table_.columns[place];
        const std::string& cell = after_[place];
        const std::string caption(column.caption);
        if (cell.empty() && !column.whyNeeded.empty())
            Refuse(place,
                   caption + " is empty: " + std::string(column.whyNeeded) + ". Fill it in.");
        if (column.kind == CellKind::Text && IsNewOrDiffers(place))
            CheckText(place, caption, cell);
        if (column.kind == CellKind::Reference && !cell.empty() &&
            !known_.targets.at(column.target->name).WithKey(cell))
            Refuse(place, "There is no " + std::string(column.target->one) + " with the number " +
                              cell + ". It may have been deleted; choose another.");
    }

    void CheckText(std::size_t place, const std::string& caption, const std::string& cell) {
        const int length = Utf16Length(cell);
        const int longest = table_.columns[place].longest;
        if (length > longest)
            Refuse(place, caption + " has " + std::to_string(length) +
                              " characters; the maximum is " + std::to_string(longest) +
                              ". Shorten it.");
        else if (HoldsControlCharacter(cell))
            Refuse(place, caption + " contains a line break or another control character. Remove "
                                    "it.");
    }

    void CheckKey() {
        if (before_) {
            if (Folded((*before_)[KeyCell]) != Folded(after_[KeyCell]))
                Refuse(KeyCell, std::string(table_.Key().caption) + " cannot be changed.");
            return;
        }
        const std::string& key = after_[KeyCell];
        const std::string caption(table_.Key().caption);
        const auto other = known_.keysOfOthers.find(Folded(key));
        if (table_.numbersItself && !PositiveNumber(key))
            Refuse(KeyCell, caption + " \"" + Shortened(key) +
                                "\" is not a whole number from 1 to 2147483647.");
        else if (const Row* taken = known_.rows.WithKey(key))
            Refuse(KeyCell, caption + " " + key + " is already used by \"" + (*taken)[NameCell] +
                                "\". Choose another.");
        else if (other != known_.keysOfOthers.end())
            Refuse(KeyCell, caption + " " + key + " is already used by \"" + other->second +
                                "\", which is not a " + std::string(table_.one) +
                                ". Choose another.");
    }

    bool IsItself(const Row& row) const {
        return before_ && Folded(row[KeyCell]) == Folded((*before_)[KeyCell]);
    }

    // The station finds bag classes, bag types and commodities by their names only.
    void CheckNameIsFree() {
        if (after_[NameCell].empty() || !IsNewOrDiffers(NameCell))
            return;
        for (const Row* row : known_.rows.WithName(after_[NameCell]))
            if (!IsItself(*row))
                return Refuse(NameCell, "The name \"" + after_[NameCell] +
                                            "\" is already used by " + std::string(table_.one) +
                                            " " + (*row)[KeyCell] + ". Choose another.");
    }

    void CheckParty() {
        static const std::size_t city = PlaceOf(PartiesTable(), "CityId");
        if (IsNewOrDiffers(NameCell) || IsNewOrDiffers(city))
            CheckPartyIsDistinct(city);
        if (!before_ && !after_[KeyCell].empty() && after_[KeyCell].front() != searchedBranch)
            Warn(KeyCell, "The account " + after_[KeyCell] +
                              " does not begin with 6, so the party search of the station does "
                              "not show it.");
        constexpr std::array roles{"IsSeller", "IsBuyer", "IsBroker"};
        if (std::ranges::all_of(
                roles, [&](const char* role) { return after_[PlaceOf(table_, role)] == "0"; }))
            Warn(PlaceOf(table_, roles[0]),
                 "The party is not a seller, buyer or broker, so the station shows it only under "
                 "\"ALL\".");
    }

    // An opened arrival shows the name and city of its party; saving finds the party by them.
    void CheckPartyIsDistinct(std::size_t city) {
        for (const Row* row : known_.rows.WithName(after_[NameCell]))
            if (!IsItself(*row) && (*row)[city] == after_[city])
                return Refuse(NameCell,
                              "Party " + (*row)[KeyCell] +
                                  " has the same name and city, so the station could not tell "
                                  "them apart. Add something to the name.");
    }

    void CheckCommodity() {
        const bool isOffered = after_[PlaceOf(table_, "IsPurchaseable")] == "1" &&
                               after_[PlaceOf(table_, "IsWheatCommodity")] == "1";
        if (!isOffered)
            Warn(PlaceOf(table_, "IsPurchaseable"),
                 "The station lists only commodities that are marked \"Purchased\" and \"Wheat\". "
                 "Arrivals of any other commodity can be opened, but not saved again.");
    }

    const Snapshot& known_;
    const Table& table_;
    const std::optional<Row>& before_;
    const Row& after_;
    std::vector<Finding> findings_;
};

/// The next number of the same length: 6010042 gives 6010043. If that number would not begin with
/// 6, a digit is appended instead: 6999 gives 69991.
std::string NextAccount(const std::string& account) {
    std::string next = account;
    for (auto digit = next.rbegin(); digit != next.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            break;
        }
        *digit = '0';
    }
    return next.front() == searchedBranch ? next : account + "1";
}

/// The column of the first role of the row; the seller column if it has no role.
std::size_t RoleOf(const Table& table, const Row& row) {
    for (const char* role : {"IsSeller", "IsBuyer", "IsBroker"})
        if (row[PlaceOf(table, role)] == "1")
            return PlaceOf(table, role);
    return PlaceOf(table, "IsSeller");
}

bool IsInBranch(const std::string& account) {
    return account.starts_with(searchedBranch) && std::ranges::all_of(account, IsDigit);
}

std::string HighestAccount(const std::vector<Row>& rows, std::size_t role) {
    std::string highest;
    for (const Row& row : rows) {
        const std::string& account = row[KeyCell];
        if (row[role] == "1" && IsInBranch(account) &&
            (account.size() > highest.size() ||
             (account.size() == highest.size() && account > highest)))
            highest = account;
    }
    return highest;
}

std::string FirstAccount(std::size_t role) {
    const Table& table = PartiesTable();
    if (role == PlaceOf(table, "IsBuyer"))
        return "6040001";
    return role == PlaceOf(table, "IsBroker") ? "6060001" : "6010001";
}

bool IsTaken(const Snapshot& known, const std::string& key) {
    return known.rows.WithKey(key) || known.keysOfOthers.contains(Folded(key));
}

} // namespace

std::vector<Finding> Check(const Snapshot& known, const std::optional<Row>& before,
                           const Row& after) {
    return RowCheck(known, before, after).Findings();
}

bool Refuses(const std::vector<Finding>& findings) {
    return std::ranges::any_of(findings, [](const Finding& finding) {
        return finding.weight == Finding::Weight::Refuses;
    });
}

std::string TextOf(const std::vector<Finding>& findings, Finding::Weight weight) {
    std::string text;
    for (const Finding& finding : findings)
        if (finding.weight == weight)
            text += (text.empty() ? "" : "\n") + finding.text;
    return text;
}

std::string KeyProposals::For(const Row& row) {
    const Table& table = known_.rows.Described();
    if (table.numbersItself)
        return known_.rows.NextNumber();
    const std::size_t role = RoleOf(table, row);
    std::string& last = lastOfRole_[role];
    if (last.empty())
        last = HighestAccount(known_.rows.Rows(), role);
    last = last.empty() ? FirstAccount(role) : NextAccount(last);
    while (IsTaken(known_, last))
        last = NextAccount(last);
    return last;
}

} // namespace Quillane::Office
