#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Quillane {

/// A server that uses the protocol of SQL Server with FreeTDS but has no database: the script
/// tds-server lists the answer for each text that a statement may contain. The destructor, or the
/// end of the process, ends it.
class TdsServer {
public:
    TdsServer();
    ~TdsServer();
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    /// Empty if the driver is installed, otherwise the missing package.
    static std::string WhyMissing();

    std::string ConnectionString() const;
    /// A temporary folder, removed by the destructor.
    const std::filesystem::path& Folder() const { return folder_; }

    /// The statements since the last call, each followed by bars and its parameters:
    /// "UPDATE ... | int:7".
    std::vector<std::string> TakeArrived();

private:
    std::filesystem::path folder_;
    std::string port_;
    std::size_t taken_ = 0;
};

} // namespace Quillane
