#pragma once

#include "platform/runtime/Date.h"

#include <string>
#include <string_view>

namespace Quillane {

/// The filters of the arrival search. Both dates are included; the texts are as typed.
struct ArrivalFilters {
    Date fromDate;
    Date toDate;
    std::string id;   ///< empty: all ids; otherwise its leading number counts, 0 if it has none
    std::string name; ///< empty: all parties; otherwise part of a party name, not escaped
};

/// The statement that lists the arrivals that match all filters, the newest first.
std::string ArrivalSearchStatement(const ArrivalFilters& filters);

/// The statement that lists the parties whose id begins with 6 and whose name contains this text.
/// The text is not escaped; an empty one lists all parties.
std::string PartySearchStatement(std::string_view name);

/// The criterion of `Recordset::Find` for a party id. The whole id is compared.
std::string PartyIdCriterion(std::string_view id);

} // namespace Quillane
