#pragma once

#include "office/daybook/Arrivals.h"
#include "office/daybook/Names.h"

#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace Quillane::Office {

/// The sum of a group of arrivals. A truck that is still inside is counted, but its figures are not
/// included.
struct Sum {
    std::int64_t arrivals = 0; ///< number of arrivals in the figures
    std::int64_t inside = 0;
    Figures figures{};

    void Add(const Arrival& arrival);
    Sum& operator+=(const Sum& other);
    bool operator==(const Sum&) const = default;
};

/// The sum of one day, party or commodity.
struct NamedSum {
    std::string id;   ///< YYYY-MM-DD, the account, or the id of the commodity
    std::string name; ///< for a day: dd/MM/yyyy
    Sum sum;
};

/// The grouping of sums.
enum class SumsBy { Day, Party, Commodity };

/// The sums of a day book. The memory depends on the number of days, parties and commodities.
class DayBookSums {
public:
    void Add(const Arrival& arrival);

    const Sum& All() const { return all_; }
    /// Sorted by day; parties and commodities by name.
    std::vector<NamedSum> By(SumsBy by, const DayBookNames& names) const;

private:
    struct Group {
        std::string id;
        Sum sum;
    };
    /// Ids that differ in case only are one group. An id is folded only when it is new.
    class Groups {
    public:
        Sum& Of(const std::string& id);
        const std::vector<Group>& All() const { return groups_; }

    private:
        std::vector<Group> groups_;
        std::unordered_map<std::string, std::size_t> indices_; ///< by id as spelled
        std::unordered_map<std::string, std::size_t> foldedIndices_;
    };
    static std::vector<NamedSum>
    ByName(const Groups& groups,
           const std::function<const std::string&(const std::string&)>& nameOf);

    Sum all_;
    std::map<Date, Sum> days_;
    Groups parties_;
    Groups commodities_;
};

} // namespace Quillane::Office
