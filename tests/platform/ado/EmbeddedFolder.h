#pragma once

#include "platform/ado/Connection.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Quillane {

/// A folder of its own with an embedded database `Account1` in it, gone at the end.
class EmbeddedFolder {
public:
    EmbeddedFolder();
    ~EmbeddedFolder();
    EmbeddedFolder(const EmbeddedFolder&) = delete;
    EmbeddedFolder& operator=(const EmbeddedFolder&) = delete;

    /// Runs statements of SQLite's own on the file, beside every connection.
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
