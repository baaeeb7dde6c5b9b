#pragma once

#include "office/records/Rows.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace Quillane::Office {

/// The violation of one rule by a row that is to be written.
struct Finding {
    enum class Weight {
        Warns,  ///< the row may be written after confirmation
        Refuses ///< the row must not be written
    };
    Weight weight = Weight::Refuses;
    std::size_t column = 0; ///< the cell to correct
    std::string text;       ///< whole sentences: what is wrong and what to do
};

/// Checks a changed or new row against the rules. `before` is the stored row, none for a new one.
/// An unchanged row has no findings.
std::vector<Finding> Check(const Snapshot& known, const std::optional<Row>& before,
                           const Row& after);

bool Refuses(const std::vector<Finding>& findings);

/// The texts of all findings of this weight, one in each line.
std::string TextOf(const std::vector<Finding>& findings, Finding::Weight weight);

/// Proposes the keys of new rows: the next number, or for a party the first free account number
/// above the accounts of its role. Accounts of parties begin with 6, because the party search of
/// the station shows no others.
class KeyProposals {
public:
    /// Rows may be added to the snapshot. Requires: it outlives this object.
    explicit KeyProposals(const Snapshot& known) : known_(known) {}

    std::string For(const Row& row);

private:
    const Snapshot& known_;
    std::unordered_map<std::size_t, std::string> lastOfRole_;
};

} // namespace Quillane::Office
