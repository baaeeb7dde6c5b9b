#pragma once

#include "platform/ado/Connection.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Quillane {

/// A temporary folder with an embedded database `Account1`. The destructor removes it.
class EmbeddedFolder {
public:
    EmbeddedFolder();
    ~EmbeddedFolder();
    EmbeddedFolder(const EmbeddedFolder&) = delete;
    EmbeddedFolder& operator=(const EmbeddedFolder&) = delete;

    /// Runs SQLite statements on the file in another session.
    void RunScript(std::string_view script) const;

    EmbeddedSupport Support() const;
    void Open(Connection& connection) const;
    std::filesystem::path File() const { return folder_ / "Account1.db"; }
    const std::filesystem::path& Folder() const { return folder_; }

    static constexpr std::string_view connectionString =
        "Driver=SQL Server;Server=(embedded);Database=Account1";

private:
    std::filesystem::path folder_;
};

} // namespace Quillane
