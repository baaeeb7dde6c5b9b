#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The computing cost of a hash. `Interactive` is for real users; `Minimum` is the lowest that the
/// algorithm allows, for tests that create many users.
enum class HashCost { Interactive, Minimum };

/// Computes the Argon2id hash of a password as a text that contains its salt and cost. Errors: out
/// of memory (7).
std::string HashPassword(std::string_view password, HashCost cost = HashCost::Interactive);

/// True if the stored hash was computed from this password. False if the text is not a hash.
/// Errors: out of memory (7).
bool PasswordMatches(const std::string& storedHash, std::string_view password);

/// Computes the hash of a password with the salt and cost of a stored hash. `salt` is the stored
/// hash up to its last "$". Empty if `salt` is not of this form.
std::string HashOf(std::string_view password, const std::string& salt);

/// Takes as long as checking a wrong password, so that the time does not reveal whether a user name
/// exists.
void SpendPasswordTime(std::string_view password);

} // namespace Quillane
