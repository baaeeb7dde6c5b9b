#pragma once

#include "data/EmbeddedFunctions.h"
#include "data/EmbeddedSchema.h"
#include "platform/ado/Connection.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace Quillane {

/// A fresh folder that goes with it.
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
    void Write(const std::string& name, const std::string& text) const {
        std::ofstream(File(name), std::ios::binary) << text;
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string path;
};

inline NewDatabase SampleParticulars() {
    return {.companyName = "Veltrane Flour Mills",
            .companyAddress = "14 Canal Road, Okara",
            .companyPhone = "044 555 0147",
            .companyEmail = "gate@veltrane.example",
            .userName = "Nadia",
            .password = "grain",
            .sampleRows = true,
            .hashCost = HashCost::Minimum};
}

/// An open embedded database with the sample rows.
class SampleDatabase {
public:
    SampleDatabase() : SampleDatabase(SampleParticulars()) {}
    explicit SampleDatabase(const NewDatabase& particulars) {
        CreateEmbeddedDatabase(folder.File("Account1.db"), particulars);
        connection.SetEmbeddedSupport(
            {.folder = folder.path, .registerFunctions = RegisterEmbeddedFunctions});
        connection.Open("Driver=SQL Server;Server=(embedded);Database=Account1");
    }

    Value Ask(std::string_view query) { return connection.Execute(query).Fields(0); }

    FreshFolder folder;
    Connection connection;
};

} // namespace Quillane
