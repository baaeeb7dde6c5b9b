#include "platform/ado/sqlite/TSqlTranslator.h"

#include <gtest/gtest.h>

#include <vector>

namespace Quillane {

namespace {

struct Case {
    std::string_view tsql;
    std::string_view sqlite;
};

void ExpectTurned(const std::vector<Case>& cases) {
    for (const Case& item : cases)
        EXPECT_EQ(FromTSql(item.tsql), item.sqlite);
}

TEST(TSqlTranslator, CallsIfNullWhereTSqlCallsIsNull) {
    ExpectTurned({
        {"Select IsNull(Max(ArrivalID),0)+1 From Arrivals",
         "Select IfNull(Max(ArrivalID),0)+1 From Arrivals"},
        {"isnull (a, ISNULL(b, 0))", "IfNull (a, IfNull(b, 0))"},
        {"where a isnull", "where a isnull"},
        {"Select IsNullable(a)", "Select IsNullable(a)"},
    });
}

TEST(TSqlTranslator, RemovesTheOwner) {
    ExpectTurned({
        {"Select dbo.FunGetPartyName(a) From dbo.Parties",
         "Select FunGetPartyName(a) From Parties"},
        {"DBO . Arrivals", " Arrivals"},
        {"Select dbo From t", "Select dbo From t"},
        {"Select adbo.x, dbos.y", "Select adbo.x, dbos.y"},
    });
}

TEST(TSqlTranslator, PutsALimitAtTheEndOfItsOwnSelect) {
    ExpectTurned({
        {"Select TOP 1 * From ArrivalsBody Where ArrivalId=12",
         "Select  * From ArrivalsBody Where ArrivalId=12 LIMIT 1"},
        {"select distinct top (5) a from b order by a desc;",
         "select distinct  a from b order by a desc LIMIT 5;"},
        {"Select TOP 1 a From b -- the last", "Select  a From b LIMIT 1 -- the last"},
        {"Select TOP 1 a From b /* ' */ ", "Select  a From b LIMIT 1 /* ' */ "},
        {"Select a From b Where c In (Select TOP 2 d From e Where (f) = (1)) And g = 3",
         "Select a From b Where c In (Select  d From e Where (f) = (1) LIMIT 2) And g = 3"},
        {"Select TOP 3 a From (Select TOP 4 b From c) d",
         "Select  a From (Select  b From c LIMIT 4) d LIMIT 3"},
        {"Select TOP 1 a From b Union Select c From d",
         "Select  a From b LIMIT 1 Union Select c From d"},
        {"Select TOP 1 a From b EXCEPT Select c From d",
         "Select  a From b LIMIT 1 EXCEPT Select c From d"},
        {"Select TOP 1 a From b Intersect Select TOP 2 c From d",
         "Select  a From b LIMIT 1 Intersect Select  c From d LIMIT 2"},
    });
}

TEST(TSqlTranslator, RemovesTheNOfANationalString) {
    ExpectTurned({
        {"Select N'علی', n'x' From t", "Select 'علی', 'x' From t"},
        {"Select N, n 'x'", "Select N, n 'x'"},
        {"Select aN'x'", "Select aN'x'"},
    });
}

TEST(TSqlTranslator, LeavesABlankForARemovedWord) {
    ExpectTurned({
        {"Select 'a'N'b'", "Select 'a' 'b'"},
        {"Select 6/dbo.*From t", "Select 6/ *From t"},
        {"Select 6-dbo.-1", "Select 6- -1"},
        {"Select'a'dbo.'b'", "Select'a' 'b'"},
        {"Select N'a'N'b'N'c'", "Select 'a' 'b' 'c'"},
    });
}

TEST(TSqlTranslator, IgnoresAByteOrderMark) {
    ExpectTurned({
        {"\xEF\xBB\xBFSelect TOP 1 a From b", "\xEF\xBB\xBFSelect  a From b LIMIT 1"},
        {"Select \xEF\xBB\xBFIsNull(a, 0)", "Select \xEF\xBB\xBFIfNull(a, 0)"},
    });
    EXPECT_TRUE(FromTSql("\xEF\xBB\xBF"
                         "EXEC sp_fkeys @pktable_name = 'T'")
                    .starts_with("SELECT"));
}

TEST(TSqlTranslator, DoesNotChangeStringsQuotedNamesAndComments) {
    for (const std::string_view text : {
             std::string_view("Select 'IsNull(a) dbo.b TOP 1 N''x'''"),
             std::string_view("Select [dbo.x], \"IsNull(\" From [TOP 1]"),
             std::string_view("Select a -- dbo.b IsNull(c)\n From d"),
             std::string_view("Select a /* TOP 1 dbo.b */ From d"),
         })
        EXPECT_EQ(FromTSql(text), text);
}

TEST(TSqlTranslator, DoesNotChangeUnknownForms) {
    for (const std::string_view text : {
             std::string_view(""),
             std::string_view("Select TOP 5 PERCENT a From b"),
             std::string_view("Select TOP 5 WITH TIES a From b"),
             std::string_view("Select top From b"),
             std::string_view("Select TOP (@n) a From b"),
             std::string_view("Select a, TOP 1 From b"),
             std::string_view("EXEC sp_help N"),
             std::string_view("EXEC sp_fkeys @fktable_name = 'T'"),
             std::string_view("EXEC sp_fkeys @pktable_name = T"),
             std::string_view("EXEC sp_fkeys @pktable_name = 'T', @pktable_owner = 'dbo'"),
             std::string_view("Select 'never closed"),
             std::string_view("Update Arrivals Set IsPosted=0 where arrivalid=7"),
         })
        EXPECT_EQ(FromTSql(text), text);
}

TEST(TSqlTranslator, AsksTheSchemaForForeignKeys) {
    const std::string select = FromTSql("EXEC sp_fkeys @pktable_name = N'O''Brien'");
    EXPECT_TRUE(select.starts_with("SELECT ")) << select;
    EXPECT_NE(select.find("p.name = 'O''Brien' "), std::string::npos) << select;
    EXPECT_EQ(FromTSql(" execute SP_FKEYS @PKTABLE_NAME='O''Brien' ;"), select);
}

} // namespace

} // namespace Quillane
