#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace Quillane {

/// A new temporary folder. The destructor removes it with its contents.
class FreshFolder {
public:
    FreshFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "data-XXXXXX").string();
        path = ::mkdtemp(pattern.data());
    }
    ~FreshFolder() { std::filesystem::remove_all(path); }
    FreshFolder(const FreshFolder&) = delete;
    FreshFolder& operator=(const FreshFolder&) = delete;

    std::string File(const std::string& name) const { return path + "/" + name; }
    bool Has(const std::string& name) const { return std::filesystem::exists(File(name)); }
    /// Returns the path of the file.
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(File(name), std::ios::binary) << text;
        return File(name);
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string path;
};

} // namespace Quillane
