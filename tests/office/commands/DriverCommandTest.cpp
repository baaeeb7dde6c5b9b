#include "office/commands/DriverCommand.h"

#include "station/FreshFolder.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <sstream>

namespace Quillane::Office {
namespace {

const std::string section = "[SQL Server]\n"
                            "Description=FreeTDS under the name that the station uses\n"
                            "Driver=libtdsodbc.so\n";

/// Sets an environment variable during its lifetime.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* before = std::getenv(name))
            before_ = before;
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() {
        if (before_)
            ::setenv(name_, before_->c_str(), 1);
        else
            ::unsetenv(name_);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

class OfficeDriver : public testing::Test {
protected:
    ExitCode Register(const char* place) {
        out.str("");
        err.str("");
        Terminal terminal{.in = in, .out = out, .err = err, .password = {}, .confirm = {}};
        return RegisterDriver(place, terminal);
    }
    /// If the library is not installed, a message follows on the other stream.
    void ExpectNothingWrong() const {
        EXPECT_TRUE(err.str().empty() ||
                    err.str() == "This library is not installed. Install the package tdsodbc.\n")
            << err.str();
    }

    FreshFolder folder;
    Variable system{"ODBCSYSINI", folder.path};
    Variable home{"HOME", folder.path};
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(OfficeDriver, IsRegisteredForAllUsersInTheSystemsFile) {
    EXPECT_EQ(Register("system"), ExitCode::Done);
    EXPECT_EQ(folder.Read("odbcinst.ini"), section);
    EXPECT_FALSE(folder.Has(".odbcinst.ini"));
    EXPECT_EQ(out.str(), "The driver \"SQL Server\" is registered for all users in " +
                             folder.File("odbcinst.ini") + " with the library libtdsodbc.so.\n");
    ExpectNothingWrong();
}

TEST_F(OfficeDriver, IsRegisteredForThisUserInTheHomeFolder) {
    EXPECT_EQ(Register("user"), ExitCode::Done);
    EXPECT_EQ(folder.Read(".odbcinst.ini"), section);
    EXPECT_FALSE(folder.Has("odbcinst.ini"));
    EXPECT_EQ(out.str(), "The driver \"SQL Server\" is registered for this user in " +
                             folder.File(".odbcinst.ini") + " with the library libtdsodbc.so.\n");
    ExpectNothingWrong();
}

TEST_F(OfficeDriver, KeepsTheOtherDriversOfTheFile) {
    const std::string others = "# by hand\n[FreeTDS]\nDriver=libtdsodbc.so\n\n[PostgreSQL]\n"
                               "Driver=psqlodbcw.so\n";
    folder.Write("odbcinst.ini", others);
    EXPECT_EQ(Register("system"), ExitCode::Done);
    EXPECT_EQ(folder.Read("odbcinst.ini"), others + "\n" + section);
}

TEST_F(OfficeDriver, AlreadyRegisteredIsKeptAndNamed) {
    const std::string before = "[SQL Server]\nDriver=/opt/driver/libmsodbcsql.so\n";
    folder.Write("odbcinst.ini", before);
    EXPECT_EQ(Register("system"), ExitCode::Done);
    EXPECT_EQ(folder.Read("odbcinst.ini"), before);
    EXPECT_EQ(out.str(),
              "The driver \"SQL Server\" is already registered in " + folder.File("odbcinst.ini") +
                  " with the library /opt/driver/libmsodbcsql.so. Nothing has been changed.\n");
}

TEST_F(OfficeDriver, UnwritableFileFailsAndNamesTheOtherScope) {
    const Variable missing("ODBCSYSINI", folder.File("missing"));
    const Failure failure = FailureOf([&] { Register("system"); });
    EXPECT_EQ(failure.Number(), 75);
    EXPECT_TRUE(
        failure.Description().starts_with("The file " + folder.File("missing/odbcinst.ini") + ": "))
        << failure.Description();
    EXPECT_TRUE(failure.Description().ends_with(
        ". Run the command with the right to change this file, or register the driver for "
        "one user: --register-driver user"))
        << failure.Description();
}

TEST_F(OfficeDriver, UserWithoutAHomeFolderFails) {
    const Variable none("HOME", "");
    EXPECT_EQ(FailureOf([&] { Register("user"); }).Number(), 75);
}

} // namespace
} // namespace Quillane::Office
