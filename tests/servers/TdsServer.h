#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Quillane {

/// What SQL Server's own wire looks like to FreeTDS, with no database behind it: statements are
/// answered by the words that stand in them, as the script tds-server lists. Gone with this object
/// or with the process.
class TdsServer {
public:
    TdsServer();
    ~TdsServer();
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    /// Empty where the driver is there, else which package is missing.
    static std::string WhyMissing();

    std::string ConnectionString() const;
    /// Its own, gone with it.
    const std::filesystem::path& Folder() const { return folder_; }

    /// Every statement that arrived since the last call, with the values of its parameters behind
    /// bars: "UPDATE ... | int:7".
    std::vector<std::string> TakeArrived();

private:
    std::filesystem::path folder_;
    std::string port_;
    std::size_t taken_ = 0;
};

} // namespace Quillane
