#pragma once

#include "data/Con.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Boxes.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "servers/ServerLogin.h"
#include "servers/SqlServerDatabase.h"
#include "shell/Desktop.h"
#include "shell/Startup.h"
#include "station/FreshFolder.h"
#include "support/BoxAnswers.h"
#include "support/ProcessEnd.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Quillane {

/// A station in an empty folder, and an empty database on the SQL Server that
/// tests/sqlserver.local names.
class StationOnServer : public testing::Test {
protected:
    void SetUp() override {
        database_.emplace();
        ::setenv("XDG_CONFIG_HOME", folder.File("settings").c_str(), 1);
        TheStation() = StationFile();
        SetStationFolder(folder.path);
    }
    void TearDown() override {
        TheDesktop.reset();
        ReleaseServices();
        Con.reset();
        owner_.reset();
        TheStation() = StationFile();
        SetStationFolder("");
        ::unsetenv("XDG_CONFIG_HOME");
    }

    /// An entry of the connection string to the test's database, which gives the owner's rights.
    std::string Part(const std::string& key) const {
        const std::string text = ";" + database_->ConnectionString() + ";";
        const std::size_t begin = text.find(";" + key + "=") + key.size() + 2;
        return text.substr(begin, text.find(';', begin) - begin);
    }
    Connection& Owner() {
        if (!owner_) {
            owner_ = std::make_unique<Connection>();
            owner_->Open(database_->ConnectionString());
            owner_->CursorLocation = adUseClient;
        }
        return *owner_;
    }
    std::string Ask(const std::string& query) {
        return Owner().Execute(query).Fields(0).TextOrEmpty();
    }
    /// The contents of Config.ini for a database, a user and a password.
    std::string Fragment(const std::string& name, const std::string& user,
                         const std::string& password) const {
        return "Server=" + Part("Server") + ";Port=" + Part("Port") + ";Database=" + name +
               ";UID=" + user + ";PWD=" + password + ";TDS_Version=7.4";
    }
    std::string Fragment() const { return Fragment(Part("Database"), Part("UID"), Part("PWD")); }

    FreshFolder folder;

private:
    std::optional<SqlServerDatabase> database_;
    std::unique_ptr<Connection> owner_;
};

/// Records every box and answers it: the messages of a server are not the same everywhere.
class BoxNotes {
public:
    BoxNotes() {
        SetBoxPresenter({.message =
                             [this](const Box& box) {
                                 boxes.push_back(box);
                                 return BoxAnswer::Ok;
                             },
                         .input = {}});
    }
    ~BoxNotes() { Testing::ForbidUnexpectedBoxes(); }
    BoxNotes(const BoxNotes&) = delete;
    BoxNotes& operator=(const BoxNotes&) = delete;

    std::vector<Box> boxes;
};

} // namespace Quillane
