#include "platform/ado/odbc/OdbcOnPostgres.h"

#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcConnect.h"
#include "platform/ado/odbc/OdbcRows.h"
#include "platform/ado/odbc/OdbcText.h"
#include "platform/runtime/Numbers.h"

namespace Quillane {

namespace {

struct ReadCase {
    std::string_view expression;
    std::size_t kind; ///< index among the kinds of Value
    std::string_view text;
};

enum Kind : std::size_t { Null, Whole, Real, Decimal, Text, Day };

TEST_F(OdbcOnPostgres, ReadsEachTypeAsItsKind) {
    const ReadCase cases[] = {
        {"Null::int", Null, ""},
        {"Null::varchar(10)", Null, ""},
        {"Null::text", Null, ""},
        {"7::smallint", Whole, "7"},
        {"-2147483648", Whole, "-2147483648"},
        {"9007199254740993", Whole, "9007199254740993"},
        {"4100.5::float8", Real, "4100.5"},
        {"2.5::real", Real, "2.5"},
        {"30.000::numeric(9,3)", Decimal, "30"},
        {"-0.001::numeric(9,3)", Decimal, "-0.001"},
        {"12345678901234567890123456789.012345678::numeric(38,9)", Decimal,
         "12345678901234567890123456789.012345678"},
        {"'LES-1'::varchar(60)", Text, "LES-1"},
        {"''::varchar(60)", Text, ""},
        {"'Ali'::char(6)", Text, "Ali   "},
        {"'long'::text", Text, "long"},
        {"''::text", Text, ""},
        {"'2026-11-20'::date", Day, "2026-11-20T00:00:00"},
        {"'2026-11-20'::timestamp", Day, "2026-11-20T00:00:00"},
        {"'1753-01-01'::timestamp", Day, "1753-01-01T00:00:00"},
        {"'2026-11-20 13:45:01'::timestamp", Text, "2026-11-20T13:45:01"},
        {"'2026-11-20 00:00:00.25'::timestamp", Text, "2026-11-20T00:00:00.25"},
        {"'13:45:01'::time", Text, "13:45:01"},
    };
    for (const ReadCase& item : cases) {
        const Value value = OneValue("Select " + std::string(item.expression));
        EXPECT_EQ(value.Raw().index(), item.kind) << item.expression;
        EXPECT_EQ(value.TextOrEmpty(), item.text) << item.expression;
    }
}

TEST_F(OdbcOnPostgres, ReadsEveryCharacterWhateverTheLanguageSetting) {
    constexpr auto letters = "Müller علی 日本語 😀 O'Brien";
    for (const auto* type : {"varchar(60)", "text"}) {
        Run(std::string("Create Table Names_") + (type[0] == 't' ? "Long" : "Short") + " (Name " +
            type + ")");
    }
    for (const auto* table : {"Names_Short", "Names_Long"}) {
        Run(std::string("Insert Into ") + table + " Values ('Müller علی 日本語 😀 O''Brien')");
        EXPECT_EQ(OneText(std::string("Select Name From ") + table), letters);
    }
    EXPECT_EQ(OneText("Select repeat('😀', 60)::varchar(60)").size(), 240U);
}

TEST_F(OdbcOnPostgres, ReadsBlocksToTheLastRow) {
    for (const int count : {0, 1, 255, 256, 257, 512, 1000}) {
        Recordset rows = connection.Execute(
            "Select n, 'Driver ' || n As Name, n * 0.25 As Weight, Null::int As Nothing "
            "From generate_series(1, " +
            std::to_string(count) + ") n Order By n");
        ASSERT_EQ(rows.RecordCount(), count);
        for (int row = 0; row < count; ++row) {
            const std::string number = std::to_string(row + 1);
            ASSERT_EQ(rows.ValueAt(row, 0).Text(), number);
            ASSERT_EQ(rows.ValueAt(row, 1).Text(), "Driver " + number);
            ASSERT_EQ(rows.ValueAt(row, 2).Number(), (row + 1) * 0.25);
            ASSERT_TRUE(rows.ValueAt(row, 3).IsNull());
        }
    }
}

// Pieces have 16,383 characters: lengths around their ends, and characters across two pieces.
TEST_F(OdbcOnPostgres, JoinsTheirPiecesIntoLongTexts) {
    for (const int length : {1, 16'382, 16'383, 16'384, 32'766, 32'767, 100'000}) {
        const std::string text =
            OneText("Select repeat('é', " + std::to_string(length) + ")::text");
        ASSERT_EQ(text.size(), 2U * static_cast<std::size_t>(length));
        EXPECT_EQ(text.substr(text.size() - 2), "é");
    }
    const std::string pairs = OneText("Select 'a' || repeat('😀', 20000)");
    EXPECT_EQ(pairs.size(), 80'001U);
    EXPECT_EQ(pairs.find("\uFFFD"), std::string::npos);
}

TEST_F(OdbcOnPostgres, ReadsTheColumnsAroundLongTexts) {
    Recordset rows = connection.Execute(
        "Select n, repeat('x', n * 20000)::text As Remark, 'S' || n::varchar(5) As Mark, n * 0.5 "
        "As Half, Case When n = 2 Then Null Else 'y'::text End As Other, '2026-11-20'::date As Day "
        "From generate_series(1, 3) n Order By n");
    ASSERT_EQ(rows.RecordCount(), 3);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(rows.ValueAt(row, 0).Long(), row + 1);
        EXPECT_EQ(rows.ValueAt(row, 1).Text().size(), 20'000U * static_cast<unsigned>(row + 1));
        EXPECT_EQ(rows.ValueAt(row, 2).Text(), "S" + std::to_string(row + 1));
        EXPECT_EQ(rows.ValueAt(row, 3).Number(), (row + 1) * 0.5);
        EXPECT_EQ(rows.ValueAt(row, 4).TextOrEmpty(), row == 1 ? "" : "y");
        EXPECT_EQ(rows.ValueAt(row, 5).AsDate(), ParseDate("2026-11-20"));
    }
}

/// The number of rows that the driver's statement fetches at a time.
SQLULEN RowsAtATime(const OdbcHandle& statement) {
    SQLULEN rows = 0;
    SQLGetStmtAttrW(statement.Get(), SQL_ATTR_ROW_ARRAY_SIZE, &rows, 0, nullptr);
    return rows;
}

// With more, the driver of Windows opens a cursor on the server for each statement.
TEST_F(OdbcOnPostgres, AsksForOneRowAtATimeWheneverAStatementIsRun) {
    const OdbcHandle environment = OdbcEnvironment();
    const OdbcHandle session =
        ConnectByOdbc(environment, ConnectionAttributes(database->ConnectionString()), SignIn{});
    OdbcBlock block;
    const OdbcHandle statement(SQL_HANDLE_STMT, session);
    block.Attach(statement);
    for (const auto* column : {"n", "n::text", "repeat('x', 8000)::char(8000)"}) {
        EXPECT_EQ(RowsAtATime(statement), 1U) << column;
        OdbcText text = ToOdbc(std::string("Select ") + column + " From generate_series(1, 600) n");
        statement.Check(SQLExecDirectW(statement.Get(), text.data(), SQL_NTS));
        ResultSet rows;
        ReadOdbcRows(statement, 1, block, rows);
        EXPECT_EQ(rows.RowCount(), 600) << column;
        EXPECT_TRUE(statement.Clear());
        EXPECT_EQ(RowsAtATime(statement), 1U) << column;
    }
}

TEST_F(OdbcOnPostgres, NeverTruncatesAValueSilently) {
    const std::string words =
        DatabaseFailureOf([&] { Run("Select repeat('x', 5000)::varchar As Remark"); });
    EXPECT_NE(words.find("column remark is longer than"), std::string::npos) << words;
    EXPECT_EQ(OneText("Select 1"), "1");
}

TEST_F(OdbcOnPostgres, ReadsARowOfManyColumns) {
    std::string list = "1 As c1";
    for (int column = 2; column <= 300; ++column)
        list += ", " + std::to_string(column) + " As c" + std::to_string(column);
    const Recordset rows = connection.Execute("Select " + list);
    EXPECT_EQ(rows.FieldCount(), 300);
    EXPECT_EQ(rows.Fields("C300").Long(), 300);
}

} // namespace

} // namespace Quillane
