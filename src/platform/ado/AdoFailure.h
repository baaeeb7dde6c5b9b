#pragma once

#include <string_view>

namespace Quillane {

namespace FailureNumber {
/// A write through a recordset that was opened read-only, or whose rows have no one table.
inline constexpr int NotUpdatable = 3251;
/// A new row that is not sent yet cannot be deleted.
inline constexpr int NotInThisContext = 3219;
} // namespace FailureNumber

/// A failure of the data access objects themselves, with the description that belongs to its
/// number and the source "Database".
[[noreturn]] void FailAccess(int number);

/// The same number with a description of its own, where it can say more.
[[noreturn]] void FailAccess(int number, std::string_view description);

/// What an engine refuses, in the engine's own words.
[[noreturn]] void FailDatabase(std::string_view description);

} // namespace Quillane
