#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillane {

/// A connection string "Driver=...;Server=...;Database=...", taken apart. Keys are found without
/// regard to case, a value may stand in braces (a closing brace inside is doubled), and of two
/// values of one key the first counts.
class ConnectionString {
public:
    explicit ConnectionString(std::string_view text);

    /// Empty for a key that is not there.
    std::string Get(std::string_view key) const;
    const std::string& Whole() const { return whole_; }

private:
    std::string whole_;
    std::vector<std::pair<std::string, std::string>> entries_;
};

} // namespace Quillane
