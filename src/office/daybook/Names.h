#pragma once

#include "office/records/Texts.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// A party or a commodity.
struct Named {
    std::string id;
    std::string name;
};

/// Sorts by name, whatever its case, and by id; each name is folded once.
template <typename Element>
void SortByName(std::vector<Element>& elements) {
    std::vector<std::pair<std::string, Element>> keyed;
    keyed.reserve(elements.size());
    for (Element& element : elements)
        keyed.emplace_back(Folded(element.name), std::move(element));
    std::ranges::sort(keyed, [](const auto& left, const auto& right) {
        return std::tie(left.first, left.second.id) < std::tie(right.first, right.second.id);
    });
    elements.clear();
    for (auto& [key, element] : keyed)
        elements.push_back(std::move(element));
}

/// The parties and commodities with their names as the station shows them: "Zahid Traders-Lahore".
class DayBookNames {
public:
    DayBookNames() = default;
    explicit DayBookNames(Connection& connection);

    /// Sorted by name.
    const std::vector<Named>& Parties() const { return parties_.all; }
    const std::vector<Named>& Commodities() const { return commodities_.all; }

    /// Returns the id itself if there is no such row, or if its name is empty.
    const std::string& Party(const std::string& id) const { return parties_.NameOf(id); }
    const std::string& Commodity(const std::string& id) const { return commodities_.NameOf(id); }

private:
    struct List {
        std::vector<Named> all;
        std::unordered_map<std::string, std::size_t> indices; ///< index by folded id
        const std::string& NameOf(const std::string& id) const;
    };
    static List Read(Connection& connection, const std::string& statement);

    List parties_;
    List commodities_;
};

} // namespace Quillane::Office
