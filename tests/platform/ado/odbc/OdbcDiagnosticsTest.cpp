#include "platform/ado/odbc/OdbcDiagnostics.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

TEST(MessageOf, ShowsAllRecordsWithTheServersFirst) {
    EXPECT_EQ(MessageOf({{"01000", 5701, "Changed database context."},
                         {"08001", 0, "Unable to connect to data source"},
                         {"42000", 18456, "Login failed for user 'anonymous'."}}),
              "Login failed for user 'anonymous'.\nUnable to connect to data source\n"
              "Changed database context.");
}

TEST(MessageOf, KeepsTheDriversOrderOfEqualRecords) {
    EXPECT_EQ(MessageOf({{"22003", 8115, "Overflow."}, {"42000", 3621, "Terminated."}}),
              "Overflow.\nTerminated.");
}

TEST(MessageOf, ShowsEqualTextsOnce) {
    EXPECT_EQ(MessageOf({{"08S01", 20009, "Server does not respond"},
                         {"08001", 0, "Server does not respond"}}),
              "Server does not respond");
}

TEST(MessageOf, IsEmptyWithoutRecords) {
    EXPECT_EQ(MessageOf({}), "");
}

TEST(HasFailed, IgnoresWarningsAndInformation) {
    EXPECT_FALSE(HasFailed({}));
    for (const auto* state : {"01000", "01003", "01004", "00000"})
        EXPECT_FALSE(HasFailed({{state, 0, "x"}})) << state;
    for (const auto* state : {"22012", "40001", "HY000", "HYT00", "08S01"})
        EXPECT_TRUE(HasFailed({{"01000", 0, "x"}, {state, 0, "y"}})) << state;
}

TEST(OdbcFailure, DistinguishesALostConnectionFromARefusal) {
    for (const auto* state : {"08S01", "08003", "08007", "57P01"})
        EXPECT_TRUE(OdbcFailure({{"01000", 0, "x"}, {state, 0, "y"}}).IsLostConnection()) << state;
    for (const auto* state : {"08004", "08001", "42000", "HYT00", "01000"})
        EXPECT_FALSE(OdbcFailure({{state, 0, "y"}}).IsLostConnection()) << state;
}

TEST(OdbcFailure, HasADescriptionWithoutRecords) {
    EXPECT_EQ(OdbcFailure({}).Description(), "The database driver failed without a message.");
}

TEST(OdbcFailure, HasTheCodesOfTheServersRecord) {
    const OdbcFailure failure({{"08001", 0, "Unable to connect"},
                               {"28000", 18456, "Login failed"},
                               {"01000", 5701, "x"}});
    EXPECT_EQ(failure.Codes().state, "28000");
    EXPECT_EQ(failure.Codes().native, 18456);
    EXPECT_EQ(CodesOf(failure).native, 18456);
    EXPECT_EQ(OdbcFailure({}).Codes().state, "");
    EXPECT_EQ(CodesOf(Failure(FailureNumber::Overflow, "Overflow")).native, 0);
}

TEST(OdbcDiagnosticsOf, ReadsTheStateAndTheTextOfARecord) {
    const OdbcHandle environment = OdbcEnvironment();
    const OdbcHandle connection(SQL_HANDLE_DBC, environment);
    EXPECT_EQ(OdbcDiagnosticsOf(connection).size(), 0U);
    SQLDisconnect(connection.Get());
    const std::vector<OdbcDiagnostic> records = OdbcDiagnosticsOf(connection);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].state, "08003");
    EXPECT_NE(records[0].text.find("Connection not open"), std::string::npos) << records[0].text;
}

} // namespace

} // namespace Quillane
