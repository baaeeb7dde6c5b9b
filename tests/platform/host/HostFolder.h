#pragma once

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace Quillane {

/// A fresh folder for one test, gone with it.
class FreshFolder {
public:
    FreshFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "host-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~FreshFolder() { std::filesystem::remove_all(path_); }
    FreshFolder(const FreshFolder&) = delete;
    FreshFolder& operator=(const FreshFolder&) = delete;

    std::string File(const std::string& name) const { return path_ + "/" + name; }
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(File(name), std::ios::binary) << text;
        return File(name);
    }
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

/// The failure that `action` ends in.
inline Failure FailureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure;
    }
    ADD_FAILURE() << "it did not fail";
    return Failure(0, "");
}

} // namespace Quillane
