// The schemas of the embedded database and of SQL Server are the same.

#include "database/SchemaLines.h"
#include "platform/ado/SqlTokens.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "setup/DatabaseScripts.h"
#include "setup/SchemaUpgrade.h"
#include "setup/ScriptBatches.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace Quillane {

namespace {

std::size_t CountOf(const SchemaLines& lines, std::string_view beginning) {
    return static_cast<std::size_t>(
        std::count_if(lines.begin(), lines.end(),
                      [=](const std::string& line) { return line.starts_with(beginning); }));
}

bool IsRow(const std::string& literals) {
    return literals.find(',') != literals.npos && !literals.starts_with("('%Y");
}

/// The rows of literals in a script, without blanks and without the N of a Unicode text, sorted,
/// because the two scripts may fill their tables in different orders. The arguments of a date
/// relative to today and the length of a type are not rows.
std::vector<std::string> LiteralRows(std::string_view script) {
    std::vector<std::string> rows;
    std::string row;
    SqlTokens tokens(script);
    for (SqlToken token = tokens.Next(); token.kind != SqlTokenKind::End; token = tokens.Next()) {
        const std::string text(tokens.TextOf(token));
        if (tokens.IsSymbol(token, '('))
            row = text;
        else if (tokens.IsSymbol(token, ')') && IsRow(row))
            rows.push_back(row + text), row.clear();
        else if (token.kind == SqlTokenKind::String || token.kind == SqlTokenKind::Number ||
                 tokens.IsSymbol(token, ',') || tokens.IsSymbol(token, '-'))
            row += row.empty() ? "" : text;
        else if (text != "N" && UpperCase(text) != "NULL")
            row.clear();
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::size_t Times(std::string_view text, std::string_view what) {
    std::size_t times = 0;
    for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + 1))
        ++times;
    return times;
}

} // namespace

TEST(SchemaAgreement, TablesColumnsKeysLinksAndIndexesAreTheSame) {
    const SchemaLines embedded = LinesOfEmbeddedSchema(DatabaseScripts::EmbeddedSchema);
    const SchemaLines server = LinesOfSqlServerSchema(DatabaseScripts::SqlServerSchema);
    EXPECT_EQ(OnlyIn(embedded, server), SchemaLines{}) << "only in the embedded schema";
    EXPECT_EQ(OnlyIn(server, embedded), SchemaLines{}) << "only in the schema for SQL Server";
}

TEST(SchemaAgreement, ComparesEveryKindOfObject) {
    const SchemaLines lines = LinesOfSqlServerSchema(DatabaseScripts::SqlServerSchema);
    EXPECT_EQ(CountOf(lines, "column "), 76U);
    EXPECT_EQ(CountOf(lines, "key "), 16U);
    EXPECT_EQ(CountOf(lines, "unique "), 3U);
    EXPECT_EQ(CountOf(lines, "index "), 15U);
    EXPECT_EQ(CountOf(lines, "link "), 13U);
}

TEST(SchemaAgreement, TheFirstStepCreatesTheSameTables) {
    EXPECT_EQ(LinesOfSqlServerSchema(DatabaseScripts::SqlServerUpgradeTo1),
              LinesOfEmbeddedSchema(DatabaseScripts::EmbeddedUpgradeTo1));
}

// A station deletes bag lines by numbers that it has read before.
TEST(SchemaAgreement, NeitherReusesTheNumberOfABagLine) {
    EXPECT_EQ(Times(DatabaseScripts::EmbeddedSchema,
                    "LineId         INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT,"),
              1U);
    EXPECT_EQ(Times(DatabaseScripts::SqlServerSchema, "LineId         int IDENTITY NOT NULL"), 1U);
}

TEST(SchemaAgreement, BothHaveEachStep) {
    for (const SchemaStep& step : SchemaSteps())
        for (const char* folder : {"/embedded", "/sqlserver"})
            EXPECT_TRUE(std::filesystem::exists(std::string(QUILLANE_DATABASE_FOLDER) + folder +
                                                "/upgrade/to-" + NumberText(step.version) + ".sql"))
                << folder << " " << step.version;
}

TEST(SchemaAgreement, BothStoreTheVersionOfTheProgram) {
    const std::string number = " (SchemaVersion) VALUES (" + NumberText(SchemaVersionOfProgram());
    EXPECT_EQ(Times(DatabaseScripts::EmbeddedSchema, "StationSchema" + number + ")"), 1U);
    EXPECT_EQ(Times(DatabaseScripts::SqlServerSchema, "StationSchema" + number + ")"), 1U);
}

TEST(SchemaAgreement, TheInitialSettingsAreTheSame) {
    for (const std::string& row : LiteralRows(DatabaseScripts::EmbeddedSchema)) {
        if (Times(row, "','") != 1)
            continue;
        std::string wanted = "(N" + row.substr(1);
        wanted.insert(wanted.find("','") + 2, " N");
        EXPECT_EQ(Times(DatabaseScripts::SqlServerSchema, wanted), 1U) << row;
    }
}

TEST(SchemaAgreement, TheSampleRowsAreTheSame) {
    const std::vector<std::string> rows = LiteralRows(DatabaseScripts::EmbeddedSampleRows);
    EXPECT_GT(rows.size(), 140U);
    EXPECT_EQ(LiteralRows(DatabaseScripts::SqlServerSampleRows), rows);
}

// The server can inline only such a function into the query that calls it.
TEST(SchemaAgreement, EachFunctionIsOneReturnOfOneExpression) {
    std::size_t functions = 0;
    for (const std::string& batch : ScriptBatches(DatabaseScripts::SqlServerSchema)) {
        const std::size_t begin = batch.find("CREATE FUNCTION");
        if (begin == batch.npos)
            continue;
        ++functions;
        EXPECT_EQ(Times(batch, "N'WITH SCHEMABINDING'"), 1U) << batch;
        const std::string function = batch.substr(begin);
        EXPECT_EQ(Times(function, "' + @binding + N'"), 1U) << batch;
        EXPECT_EQ(Times(function, "BEGIN\n    RETURN (SELECT "), 1U) << batch;
        EXPECT_EQ(Times(function, "RETURN "), 1U) << batch;
        EXPECT_EQ(Times(function, "DECLARE") + Times(function, "SET "), 0U) << batch;
        EXPECT_EQ(Times(function, "@"), 3U) << batch;
    }
    EXPECT_EQ(functions, 2U);
}

} // namespace Quillane
