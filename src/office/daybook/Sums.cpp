#include "office/daybook/Sums.h"

#include "office/records/Texts.h"

namespace Quillane::Office {

Sum& DayBookSums::Groups::Of(const std::string& id) {
    const auto [index, isNewSpelling] = indices_.try_emplace(id, groups_.size());
    if (isNewSpelling) {
        const auto [folded, isNew] = foldedIndices_.try_emplace(Folded(id), groups_.size());
        index->second = folded->second;
        if (isNew)
            groups_.push_back({id, {}});
    }
    return groups_[index->second].sum;
}

std::vector<NamedSum>
DayBookSums::ByName(const Groups& groups,
                    const std::function<const std::string&(const std::string&)>& nameOf) {
    std::vector<NamedSum> sums;
    sums.reserve(groups.All().size());
    for (const Group& group : groups.All())
        sums.push_back({group.id, nameOf(group.id), group.sum});
    SortByName(sums);
    return sums;
}

void Sum::Add(const Arrival& arrival) {
    if (arrival.isInside) {
        ++inside;
        return;
    }
    ++arrivals;
    figures += arrival.figures;
}

Sum& Sum::operator+=(const Sum& other) {
    arrivals += other.arrivals;
    inside += other.inside;
    figures += other.figures;
    return *this;
}

void DayBookSums::Add(const Arrival& arrival) {
    all_.Add(arrival);
    days_[arrival.day].Add(arrival);
    parties_.Of(arrival.party).Add(arrival);
    commodities_.Of(arrival.commodity).Add(arrival);
}

std::vector<NamedSum> DayBookSums::By(SumsBy by, const DayBookNames& names) const {
    if (by == SumsBy::Party)
        return ByName(parties_,
                      [&](const std::string& id) -> const std::string& { return names.Party(id); });
    if (by == SumsBy::Commodity)
        return ByName(commodities_, [&](const std::string& id) -> const std::string& {
            return names.Commodity(id);
        });
    std::vector<NamedSum> sums;
    for (const auto& [day, sum] : days_)
        sums.push_back({DateLiteral(day).substr(0, std::string_view("YYYY-MM-DD").size()),
                        ShownDate(day), sum});
    return sums;
}

} // namespace Quillane::Office
