#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// What one hash costs. `Interactive` is for people who sign in; `Minimum` is as cheap as the
/// algorithm allows, for trials that make users by the dozen.
enum class HashCost { Interactive, Minimum };

/// The Argon2id hash of a password, with its salt and cost, as text to be stored. Fails where the
/// memory that the cost asks for is not to be had.
std::string HashPassword(std::string_view password, HashCost cost = HashCost::Interactive);

/// Whether the password is the one that the stored hash was made of. A text that is no hash matches
/// nothing. Fails where the memory that the hash asks for is not to be had.
bool PasswordMatches(const std::string& storedHash, std::string_view password);

/// The hash of a password with the salt and cost of a stored one, which is that hash up to its last
/// "$". Empty for a text that is no such beginning.
std::string HashOf(std::string_view password, const std::string& salt);

/// Takes as long as a wrong password takes, so that an unknown name cannot be told from one.
void SpendPasswordTime(std::string_view password);

} // namespace Quillane
