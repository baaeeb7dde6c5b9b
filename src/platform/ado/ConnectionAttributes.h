#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillane {

/// The attributes of a connection string "Driver=...;Server=...;Database=...". Keys are
/// case-insensitive. A value may be in braces (a closing brace inside is doubled). If a key occurs
/// twice, its first value is used.
class ConnectionAttributes {
public:
    explicit ConnectionAttributes(std::string_view text);

    /// Empty if there is no such key.
    std::string Get(std::string_view key) const;
    const std::string& Whole() const { return whole_; }

private:
    std::string whole_;
    std::vector<std::pair<std::string, std::string>> entries_;
};

} // namespace Quillane
