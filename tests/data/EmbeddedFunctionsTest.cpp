#include "SampleDatabase.h"

#include "data/EmbeddedFunctions.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace Quillane {

TEST(EmbeddedFunctions, GiveDisplayNames) {
    struct Case {
        const char* expression;
        const char* name; ///< null: Null
    };
    constexpr Case cases[] = {
        {"dbo.FunGetPartyName('6010004')", "Noor Brothers-Lahore"},
        {"dbo.fungetpartyname('6010019')", "Noor Brothers-Sahiwal"},
        {"dbo.FunGetPartyName(6010004)", "Noor Brothers-Lahore"},
        {"dbo.FunGetPartyName('6010028')", "Tariq Mehmood Arhti"}, // a party without a city
        {"dbo.FunGetPartyName('1010001')", "Cash in Hand"},        // an account that is no party
        {"dbo.FunGetPartyName('6010024')", "محمد اسلم اینڈ سنز-خانیوال"},
        {"dbo.FunGetPartyName('6999999')", nullptr},
        {"dbo.FunGetPartyName(Null)", nullptr},
        {"dbo.FunGetCommodity(1)", "Wheat"},
        {"dbo.fungetcommodity('4')", "گندم دیسی"},
        {"dbo.FunGetCommodity(99)", nullptr},
        {"dbo.FunGetCommodity(Null)", nullptr},
    };
    SampleDatabase database;
    for (const Case& each : cases) {
        const Value name = database.Ask(std::string("Select ") + each.expression);
        EXPECT_EQ(name.IsNull(), each.name == nullptr) << each.expression;
        EXPECT_EQ(name.TextOrEmpty(), each.name ? each.name : "") << each.expression;
    }
}

TEST(EmbeddedFunctions, FollowAChangedName) {
    SampleDatabase database;
    EXPECT_EQ(database.Ask("Select dbo.FunGetCommodity(1)").Text(), "Wheat");
    database.connection.Execute("Update Commodities Set CommodityName = 'Corn' Where "
                                "CommodityId = 1");
    EXPECT_EQ(database.Ask("Select dbo.FunGetCommodity(1)").Text(), "Corn");
}

TEST(EmbeddedFunctions, LetTheirSessionClose) {
    SampleDatabase database;
    sqlite3* session = nullptr;
    ASSERT_EQ(sqlite3_open(database.folder.File("Account1.db").c_str(), &session), SQLITE_OK);
    RegisterEmbeddedFunctions(session);
    ASSERT_EQ(sqlite3_exec(session, "SELECT FunGetPartyName('6010004'), FunGetCommodity(1)",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    EXPECT_NE(sqlite3_next_stmt(session, nullptr), nullptr) << "the look-ups are kept";
    EXPECT_EQ(sqlite3_close(session), SQLITE_OK);
}

TEST(EmbeddedFunctions, SayWhatIsMissing) {
    sqlite3* session = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &session), SQLITE_OK);
    RegisterEmbeddedFunctions(session);
    EXPECT_EQ(sqlite3_exec(session, "SELECT FunGetCommodity(1)", nullptr, nullptr, nullptr),
              SQLITE_ERROR);
    EXPECT_STREQ(sqlite3_errmsg(session), "no such table: Commodities");
    EXPECT_EQ(sqlite3_close(session), SQLITE_OK);
}

} // namespace Quillane
