#pragma once

#include "platform/ado/Connection.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillane::Testing {

/// An embedded database in a folder of its own, with a table `PortSettings` and nothing else.
class PortSettingsDatabase {
public:
    using Rows = std::vector<std::pair<std::string, std::string>>;

    PortSettingsDatabase();
    ~PortSettingsDatabase();
    PortSettingsDatabase(const PortSettingsDatabase&) = delete;
    PortSettingsDatabase& operator=(const PortSettingsDatabase&) = delete;

    /// Port 1, 9600,n,8,1, the six digits on the right, not reversed.
    static Rows UsualRows();
    /// The usual rows with another value for one of them, or without it.
    static Rows With(std::string_view key, std::string_view value);
    static Rows Without(std::string_view key);

    /// Replaces all rows of the table.
    void Store(const Rows& rows);
    /// Opens the rows as the weighment screen does, anew if they are open.
    void Load(Recordset& rows);
    std::string ValueOf(std::string_view key);

    Connection& Session() { return connection_; }

private:
    void Run(const std::string& statements);

    std::filesystem::path folder_;
    Connection connection_;
};

} // namespace Quillane::Testing
