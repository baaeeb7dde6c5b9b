#include "platform/ado/odbc/OdbcDialect.h"

#include "support/FailureOf.h"

#include "platform/ado/AdoFailure.h"

namespace Quillane {

namespace {

OdbcMatchedColumn Matched(std::string name, SQLSMALLINT sqlType, Value value) {
    OdbcColumn column;
    column.sqlType = sqlType;
    return {std::move(name), column, std::move(value)};
}

TEST(OdbcDialect, IsChosenByTheServersName) {
    EXPECT_EQ(OdbcDialectOf("Microsoft SQL Server").server, OdbcDialect::Server::TSql);
    EXPECT_EQ(OdbcDialectOf("PostgreSQL").server, OdbcDialect::Server::Postgres);
    EXPECT_EQ(OdbcDialectOf("MariaDB").server, OdbcDialect::Server::Other);
}

TEST(OdbcKeylessMatch, LimitsTheStatementOnSqlServer) {
    const OdbcMatchedColumn columns[] = {Matched("ArrivalId", SQL_INTEGER, 7),
                                         Matched("Weight", SQL_DOUBLE, Value())};
    const RowMatch match = OdbcKeylessMatch(OdbcDialect::Server::TSql, "Body", columns);
    EXPECT_EQ(match.limit, "TOP (1) ");
    EXPECT_EQ(match.condition, "ArrivalId = ? AND Weight IS NULL");
    ASSERT_EQ(match.parameters.size(), 1U);
    EXPECT_EQ(match.parameters[0].Text(), "7");
}

TEST(OdbcKeylessMatch, ComparesTextsByTheirBytesOnSqlServer) {
    constexpr auto byBytes = "CAST(CAST(Name AS nvarchar(max)) AS varbinary(max)) = "
                             "CAST(CAST(? AS nvarchar(max)) AS varbinary(max))";
    for (const int type :
         {SQL_CHAR, SQL_VARCHAR, SQL_LONGVARCHAR, SQL_WCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR}) {
        const OdbcMatchedColumn column = Matched("Name", static_cast<SQLSMALLINT>(type), "Ali ");
        EXPECT_EQ(OdbcKeylessMatch(OdbcDialect::Server::TSql, "Body", {&column, 1}).condition,
                  byBytes);
    }
}

TEST(OdbcKeylessMatch, ComparesTimesWithTheServersOperator) {
    const OdbcMatchedColumn column =
        Matched("WeighedAt", SQL_TYPE_TIMESTAMP, "2026-11-20T13:45:01.003");
    EXPECT_EQ(OdbcKeylessMatch(OdbcDialect::Server::TSql, "Body", {&column, 1}).condition,
              "WeighedAt = ?");
}

TEST(OdbcKeylessMatch, ComparesBytesWithALiteralOnSqlServer) {
    const OdbcMatchedColumn column = Matched("Stamp", SQL_BINARY, "00000000000007D1");
    const RowMatch match = OdbcKeylessMatch(OdbcDialect::Server::TSql, "Body", {&column, 1});
    EXPECT_EQ(match.condition, "CAST(Stamp AS varbinary(max)) = 0x00000000000007D1");
    EXPECT_TRUE(match.parameters.empty());
}

TEST(OdbcKeylessMatch, NamesOneRowOnPostgres) {
    const OdbcMatchedColumn columns[] = {Matched("a", SQL_WVARCHAR, "x"),
                                         Matched("b", SQL_INTEGER, Value())};
    const RowMatch match = OdbcKeylessMatch(OdbcDialect::Server::Postgres, "body", columns);
    EXPECT_EQ(match.limit, "");
    EXPECT_EQ(match.condition, "ctid = (SELECT ctid FROM body WHERE a = ? AND b IS NULL LIMIT 1)");
}

TEST(OdbcKeylessMatch, FailsOnAnUnknownServer) {
    const OdbcMatchedColumn column = Matched("a", SQL_INTEGER, 1);
    EXPECT_EQ(FailureNumberOf([&] {
                  OdbcKeylessMatch(OdbcDialect::Server::Other, "Body", {&column, 1});
              }),
              FailureNumber::NotUpdatable);
}

} // namespace

} // namespace Quillane
