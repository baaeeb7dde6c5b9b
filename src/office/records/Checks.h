#pragma once

#include "office/records/Rows.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace Quillane::Office {

/// What a rule says of a row that is to be written.
struct Finding {
    enum class Weight {
        Warns,  ///< the row may be written, if that is meant
        Refuses ///< the row is not written
    };
    Weight weight = Weight::Refuses;
    std::size_t column = 0; ///< the cell to mend
    std::string text;       ///< a whole sentence: what is wrong, and what to do
};

/// What the rules say of a row in place of the stored one, or of a new one. Cells are brought into
/// form before (Formed). Nothing is found in a row that is left as it was.
std::vector<Finding> Check(const Snapshot& known, const std::optional<Row>& before,
                           const Row& after);

bool Refuses(const std::vector<Finding>& findings);

/// All texts, one after the other.
std::string TextOf(const std::vector<Finding>& findings, Finding::Weight weight);

/// The keys that new rows get, one after the other: the next number, or for a party an account
/// number. That one is the first free one above the accounts of the same role, which begin with 6
/// as the station's party search wants it.
class KeyProposals {
public:
    /// The snapshot may grow meanwhile, and must outlive this.
    explicit KeyProposals(const Snapshot& known) : known_(known) {}

    std::string For(const Row& row);

private:
    const Snapshot& known_;
    std::unordered_map<std::size_t, std::string> lastOfRole_;
};

} // namespace Quillane::Office
