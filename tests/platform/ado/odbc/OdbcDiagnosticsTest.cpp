#include "platform/ado/odbc/OdbcDiagnostics.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

TEST(DescriptionOf, TellsEveryRecordTheServersFirst) {
    EXPECT_EQ(DescriptionOf({{"01000", 5701, "Changed database context."},
                             {"08001", 0, "Unable to connect to data source"},
                             {"42000", 18456, "Login failed for user 'anonymous'."}}),
              "Login failed for user 'anonymous'.\nUnable to connect to data source\n"
              "Changed database context.");
}

TEST(DescriptionOf, KeepsTheDriversOrderAmongEquals) {
    EXPECT_EQ(DescriptionOf({{"22003", 8115, "Overflow."}, {"42000", 3621, "Terminated."}}),
              "Overflow.\nTerminated.");
}

TEST(DescriptionOf, TellsTheSameWordsOnce) {
    EXPECT_EQ(DescriptionOf({{"08S01", 20009, "Server is away"}, {"08001", 0, "Server is away"}}),
              "Server is away");
}

TEST(DescriptionOf, IsEmptyForNoRecords) {
    EXPECT_EQ(DescriptionOf({}), "");
}

TEST(HasFailed, PassesOverWarningsAndWhatAServerHasOnlyToSay) {
    EXPECT_FALSE(HasFailed({}));
    for (const auto* state : {"01000", "01003", "01004", "00000"})
        EXPECT_FALSE(HasFailed({{state, 0, "x"}})) << state;
    for (const auto* state : {"22012", "40001", "HY000", "HYT00", "08S01"})
        EXPECT_TRUE(HasFailed({{"01000", 0, "x"}, {state, 0, "y"}})) << state;
}

TEST(OdbcFailure, KnowsABrokenWayFromARefusal) {
    for (const auto* state : {"08S01", "08003", "08007", "57P01"})
        EXPECT_TRUE(OdbcFailure({{"01000", 0, "x"}, {state, 0, "y"}}).TellsOfBrokenWay()) << state;
    for (const auto* state : {"08004", "08001", "42000", "HYT00", "01000"})
        EXPECT_FALSE(OdbcFailure({{state, 0, "y"}}).TellsOfBrokenWay()) << state;
}

TEST(OdbcFailure, NeverComesWithoutAWord) {
    EXPECT_EQ(OdbcFailure({}).Description(), "The database driver failed without a word.");
}

TEST(OdbcDiagnosticsOf, ReadsARecordWithItsStateAndItsWords) {
    const OdbcHandle environment = OdbcEnvironment();
    const OdbcHandle connection(SQL_HANDLE_DBC, environment);
    EXPECT_EQ(OdbcDiagnosticsOf(connection).size(), 0U);
    SQLDisconnect(connection.Get());
    const std::vector<OdbcDiagnostic> told = OdbcDiagnosticsOf(connection);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].state, "08003");
    EXPECT_NE(told[0].words.find("Connection not open"), std::string::npos) << told[0].words;
}

} // namespace

} // namespace Quillane
