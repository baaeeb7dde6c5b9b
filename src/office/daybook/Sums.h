#pragma once

#include "office/daybook/Arrivals.h"
#include "office/daybook/Names.h"

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace Quillane::Office {

/// The sum of some arrivals. A truck that is still inside is counted, but its figures are not in.
struct Sum {
    std::int64_t arrivals = 0; ///< those that are in the figures
    std::int64_t inside = 0;
    Figures figures{};

    void Add(const Arrival& arrival);
    Sum& operator+=(const Sum& other);
    bool operator==(const Sum&) const = default;
};

/// The sum of one day, party or commodity.
struct NamedSum {
    std::string id;   ///< YYYY-MM-DD, the account, the commodity's id
    std::string name; ///< of a day: dd/MM/yyyy
    Sum sum;
};

/// What a day book's arrivals are summed by.
enum class SumsBy { Day, Party, Commodity };

/// The sums of a day book, in memory by their number of days, parties and commodities.
class DayBookSums {
public:
    void Add(const Arrival& arrival);

    const Sum& All() const { return all_; }
    /// Days in their order; parties and commodities by name.
    std::vector<NamedSum> By(SumsBy by, const DayBookNames& names) const;

private:
    struct Group {
        std::string id;
        Sum sum;
    };
    using Groups = std::unordered_map<std::string, Group>; ///< by folded id

    Sum all_;
    std::map<Date, Sum> days_;
    Groups parties_;
    Groups commodities_;
};

} // namespace Quillane::Office
