#pragma once

#include "station/StationDatabase.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillane::Testing {

/// A station's database whose table `PortSettings` has the rows of a test.
class PortSettingsDatabase : public StationDatabase {
public:
    using Settings = std::vector<std::pair<std::string, std::string>>;

    PortSettingsDatabase();

    /// Port 1, 9600,n,8,1, the six digits on the right, not reversed.
    static Settings UsualRows();
    /// The usual rows with another value for one of them, or without it.
    static Settings With(std::string_view key, std::string_view value);
    static Settings Without(std::string_view key);

    /// Replaces all rows of the table.
    void Store(const Settings& rows);
    /// Opens the rows as the weighment screen does, again if they are open.
    void Load(Recordset& rows);
    std::string ValueOf(std::string_view key);

    Connection& Session() { return connection_; }

private:
    Connection connection_;
};

} // namespace Quillane::Testing
