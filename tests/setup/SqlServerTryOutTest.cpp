#include "setup/SqlServerTryOut.h"

#include "platform/ado/AdoFailure.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

SqlServerTarget SomeTarget(bool windowsSignIn = false) {
    return {.server = "mill-sql",
            .port = "1433",
            .database = "Account1",
            .windowsSignIn = windowsSignIn,
            .userName = "gate",
            .password = "x"};
}

DatabaseFailure FailureWith(const EngineCodes& codes, const std::string& text) {
    return {text, codes};
}

struct CodesCase {
    EngineCodes codes;
    bool serverAnswers;
    const char* answer;
};

// The codes are those of FreeTDS and of the driver of Windows. The text can be in any language.
TEST(WhyItDoesNotOpen, FindsTheReasonByTheCodes) {
    const char* missing = "No SQL Server answers at mill-sql, port 1433. Check that it runs, that "
                          "name and port are correct, and that no firewall blocks the connection.";
    const char* wrong = "The server refuses the sign-in: the name or the password is wrong.";
    const char* noDatabase =
        "The server answers, but there is no database \"Account1\", or it does not know this "
        "sign-in. The owner's sign-in, below, can change that.";
    const CodesCase cases[] = {
        {{"08S01", 20009}, false, missing},
        {{"08001", 20013}, false, missing},
        {{"HYT00", 0}, false, missing},
        {{"08S01", 20003}, false, missing},
        {{"08001", 17}, false, missing},
        {{"08S01", 20002},
         false,
         "The server at mill-sql, port 1433 closes the connection. It may require another "
         "encryption than the options specify, or may not be a SQL Server."},
        {{"42000", 18456}, false, wrong},
        {{"28000", 18456}, false, wrong},
        {{"08004", 4060}, true, noDatabase},
        {{"42000", 15151}, false, "The server refuses the connection."},
    };
    const std::string text = "[FreeTDS][SQL Server]Die Anmeldung ist fehlgeschlagen.";
    for (const CodesCase& each : cases)
        EXPECT_EQ(WhyItDoesNotOpen(SomeTarget(), FailureWith(each.codes, text), each.serverAnswers),
                  std::string(each.answer) + "\n" + text);
}

TEST(WhyItDoesNotOpen, LeavesTheAdviceOnAMissingDriverUnchanged) {
    const std::string text = "The ODBC driver \"SQL Server\" is not installed.";
    EXPECT_EQ(WhyItDoesNotOpen(SomeTarget(), FailureWith({"IM002"}, text), false), text);
}

TEST(WhyItDoesNotOpen, NamesTheDomainForTheWindowsSignIn) {
    const std::string text = "[FreeTDS][SQL Server]Adaptive Server connection failed";
    EXPECT_EQ(WhyItDoesNotOpen(SomeTarget(true), FailureWith({"08S01", 20002}, text), false),
              "The Windows sign-in does not work with mill-sql, port 1433. It needs a computer "
              "that belongs to the server's domain.\n" +
                  text);
}

TEST(TargetForSetup, UsesTheOwnersSignInIfThereIsOne) {
    EXPECT_EQ(TargetForSetup(SomeTarget(), {}).userName, "gate");
    EXPECT_TRUE(TargetForSetup(SomeTarget(true), {}).windowsSignIn);
    const SqlServerTarget target =
        TargetForSetup(SomeTarget(true), {.userName = "sa", .password = "y"});
    EXPECT_EQ(target.userName, "sa");
    EXPECT_EQ(target.password, "y");
    EXPECT_FALSE(target.windowsSignIn);
    EXPECT_EQ(target.database, "Account1");
}

} // namespace
} // namespace Quillane
