#include "platform/ado/odbc/OdbcOnPostgres.h"

#include "platform/runtime/Numbers.h"

namespace Quillane {

namespace {

class OdbcWritesOnPostgres : public OdbcOnPostgres {
protected:
    void SetUp() override {
        OdbcOnPostgres::SetUp();
        if (!IsSkipped())
            Run("Create Table Loads (LoadId int Primary Key, Exact numeric(30,9), Weight float8, "
                "Driver varchar(200), Remark text, WeighedAt timestamp, Day date)");
    }

    /// Writes one field of a new load and reads it back.
    Value Stored(std::string_view field, const Value& value) {
        Run("Delete From Loads");
        Recordset rows = Writing("Select * From Loads");
        rows.AddNew();
        rows.Collect("LoadId", 1);
        rows.Collect(field, value);
        rows.Update();
        return OneValue("Select " + std::string(field) + " From Loads");
    }
};

TEST_F(OdbcWritesOnPostgres, KeepDecimalsToTheLastDigit) {
    for (const auto* digits :
         {"0", "-0.000000001", "30.000", "123456789012345678901.123456789", "100"})
        EXPECT_EQ(Stored("Exact", Value::Decimal{digits}).Text(),
                  Value(Value::Decimal{digits}).Text());
}

TEST_F(OdbcWritesOnPostgres, KeepFloatingNumbersToTheLastBit) {
    for (const double number : {0.0, 0.1 + 0.2, 1.0 / 3, -4100.5, 1e300, 5e-324})
        EXPECT_EQ(Stored("Weight", number).Number(), number);
}

TEST_F(OdbcWritesOnPostgres, KeepTextsWholeAndInEveryScript) {
    const std::string scripts = "Müller علی 日本語 😀 O'Brien; -- {d '2026'} ?";
    for (const auto* field : {"Driver", "Remark"}) {
        EXPECT_EQ(Stored(field, scripts).Text(), scripts);
        EXPECT_EQ(Stored(field, "").Text(), "");
        EXPECT_TRUE(Stored(field, Value()).IsNull());
    }
    for (const std::size_t length : {3999U, 4000U, 4001U, 8001U, 300'000U}) {
        const std::string longText = std::string(length - 1, 'x') + "é";
        EXPECT_EQ(Stored("Remark", longText).Text(), longText) << length;
    }
}

TEST_F(OdbcWritesOnPostgres, KeepDaysAndMoments) {
    for (const auto* field : {"WeighedAt", "Day"})
        EXPECT_EQ(Stored(field, ParseDate("2026-11-20")).AsDate(), ParseDate("2026-11-20"));
    EXPECT_EQ(Stored("WeighedAt", "2026-11-20T13:45:01.25").Text(), "2026-11-20T13:45:01.25");
    EXPECT_TRUE(Stored("Day", Value()).IsNull());
}

TEST_F(OdbcWritesOnPostgres, AcceptNumbersSentAsText) {
    EXPECT_EQ(Stored("Weight", "12.5").Number(), 12.5);
    EXPECT_EQ(Stored("Exact", "30.000").Text(), "30");
    EXPECT_NE(DatabaseFailureOf([&] { Stored("Weight", "kg"); }), "");
}

TEST_F(OdbcWritesOnPostgres, QuoteTheNamesThatHaveToBe) {
    Run("Create Table Odd (\"Order\" int Primary Key, \"two words\" varchar(20), \"a\"\"b\" int, "
        "plain int)");
    Recordset rows = Writing("Select * From Odd");
    std::vector<std::string> sent;
    connection.StatementObserver = [&](std::string_view text) { sent.emplace_back(text); };
    rows.AddNew();
    rows.Collect("Order", 1);
    rows.Collect("two words", "x");
    rows.Collect("a\"b", 2);
    rows.Collect("plain", 3);
    rows.Update();
    EXPECT_EQ(sent.at(0), "INSERT INTO Odd (\"Order\", \"two words\", \"a\"\"b\", plain) "
                          "VALUES (?, ?, ?, ?)");
    rows.Collect("plain", 4);
    rows.Update();
    EXPECT_EQ(sent.at(1), "UPDATE Odd SET plain = ? WHERE \"Order\" = ?");
    EXPECT_EQ(OneText("Select plain From Odd"), "4");
}

TEST_F(OdbcWritesOnPostgres, FindTheKeyOfATableForEachFormOfItsName) {
    Run("Create Schema mill");
    Run("Create Table mill.Loads (Season int, LoadId int, Note varchar(20), "
        "Primary Key (LoadId, Season))");
    Run("Create Table mill.\"Bag Lines\" (Id int Primary Key, Note varchar(20))");
    std::string sent;
    connection.StatementObserver = [&](std::string_view text) { sent = text; };
    for (const auto* table : {"mill.Loads", "MILL.LOADS", "mill.\"Bag Lines\""}) {
        const bool isLines = std::string_view(table).find('"') != std::string_view::npos;
        Run("Delete From " + std::string(table));
        Run("Insert Into " + std::string(table) + (isLines ? " Values (1)" : " Values (2026, 1)"));
        Recordset rows = Writing("Select * From " + std::string(table));
        rows.Collect("Note", "x");
        rows.Update();
        EXPECT_TRUE(sent.ends_with(isLines ? "WHERE id = ?" : "WHERE loadid = ? AND season = ?"))
            << sent;
    }
}

TEST_F(OdbcWritesOnPostgres, MatchATableWithoutAKeyOnEveryKindOfColumn) {
    Run("Create Table Lines (Whole int, Exact numeric(9,3), Weight float8, Driver varchar(20), "
        "Remark text, WeighedAt timestamp, Day date, Padded char(8))");
    for (int i = 0; i < 2; ++i)
        Run("Insert Into Lines Values (1, 30.000, 0.1::float8 + 0.2::float8, 'Ali ', "
            "repeat('x', 9000), '2026-11-20 13:45:01.25', '2026-11-20', 'ab')");
    Recordset rows = Writing("Select * From Lines");
    ASSERT_EQ(rows.RecordCount(), 2);
    rows.Collect("Whole", 2);
    rows.Update();
    EXPECT_EQ(OneText("Select Count(*) From Lines Where Whole = 2"), "1");
    rows.MoveNext();
    rows.Delete();
    EXPECT_EQ(OneText("Select Whole From Lines"), "2");
}

} // namespace

} // namespace Quillane
