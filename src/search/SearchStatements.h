#pragma once

#include "platform/runtime/Date.h"

#include <string>
#include <string_view>

namespace Quillane {

/// What the operator has filled in on the arrival search: both days count, texts as typed.
struct ArrivalFilters {
    Date fromDate;
    Date toDate;
    std::string id;   ///< empty: all; otherwise its leading number, 0 where it has none
    std::string name; ///< empty: all; part of a party's name, sent as it stands
};

/// Lists the arrivals that fit all filters, the newest first.
std::string ArrivalSearchStatement(const ArrivalFilters& filters);

/// Lists the parties whose id begins with 6 and whose name holds this text, sent as it stands; the
/// empty text lists all of them.
std::string PartySearchStatement(std::string_view name);

/// The criterion that finds a party by its whole id.
std::string PartyIdCriterion(std::string_view id);

} // namespace Quillane
