#include "office/daybook/Sums.h"

#include "office/records/Texts.h"

#include <algorithm>
#include <tuple>

namespace Quillane::Office {

namespace {

template <typename Groups>
std::vector<NamedSum> ByName(const Groups& groups,
                             const std::function<const std::string&(const std::string&)>& nameOf) {
    std::vector<NamedSum> sums;
    sums.reserve(groups.size());
    for (const auto& [folded, group] : groups)
        sums.push_back({group.id, nameOf(group.id), group.sum});
    std::ranges::sort(sums, {},
                      [](const NamedSum& each) { return std::pair(Folded(each.name), each.id); });
    return sums;
}

template <typename Groups>
Sum& SumIn(Groups& groups, const std::string& id) {
    const auto [group, isNew] = groups.try_emplace(Folded(id));
    if (isNew)
        group->second.id = id;
    return group->second.sum;
}

} // namespace

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
    SumIn(parties_, arrival.party).Add(arrival);
    SumIn(commodities_, arrival.commodity).Add(arrival);
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
