#include "station/SampleDatabase.h"

#include "data/EmbeddedFunctions.h"
#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace Quillane {
namespace {

TEST(EmbeddedFunctions, ReturnDisplayNames) {
    struct Case {
        const char* expression;
        const char* name; ///< null: Null
    };
    constexpr Case cases[] = {
        {"dbo.FunGetPartyName('6010004')", "Noor Brothers-Lahore"},
        {"dbo.fungetpartyname('6010019')", "Noor Brothers-Sahiwal"},
        {"dbo.FunGetPartyName(6010004)", "Noor Brothers-Lahore"},
        {"dbo.FunGetPartyName('6010028')", "Tariq Mehmood Arhti"}, // a party without a city
        {"dbo.FunGetPartyName('1010001')", "Cash in Hand"},        // an account that is not a party
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

TEST(EmbeddedFunctions, ChangedNameIsReturned) {
    SampleDatabase database;
    EXPECT_EQ(database.Ask("Select dbo.FunGetCommodity(1)").Text(), "Wheat");
    database.connection.Execute("Update Commodities Set CommodityName = 'Corn' Where "
                                "CommodityId = 1");
    EXPECT_EQ(database.Ask("Select dbo.FunGetCommodity(1)").Text(), "Corn");
}

/// A second station on the same file.
class OtherStation {
public:
    explicit OtherStation(const SampleDatabase& database) {
        connection_.SetEmbeddedSupport(
            {.folder = database.folder.path, .registerFunctions = RegisterEmbeddedFunctions});
        connection_.Open("Driver=SQL Server;Server=(embedded);Database=Account1");
    }
    void Run(std::string_view statement) { connection_.Execute(statement); }

private:
    Connection connection_;
};

/// The two sellers of the sample rows that share a name, each read by a separate statement.
constexpr const char* NameOf4 =
    "Select dbo.FunGetPartyName(PartyId) From Parties Where PartyId = '6010004'";
constexpr const char* NameOf19 =
    "Select dbo.FunGetPartyName(PartyId) From Parties Where PartyId = '6010019'";

TEST(EmbeddedFunctions, NameChangedByAnotherStationIsReturned) {
    SampleDatabase database;
    OtherStation other(database);
    ASSERT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers-Lahore");
    struct Case {
        const char* change;
        const char* name;
    };
    constexpr Case cases[] = {
        {"Update ChartOfAccounts Set AccountName = 'Noor & Co' Where AccountNo = '6010004'",
         "Noor & Co-Lahore"},
        {"Update Cities Set CityName = 'Kasur' Where CityId = 1", "Noor & Co-Kasur"},
        {"Update Parties Set CityId = 4 Where PartyId = '6010004'", "Noor & Co-Sahiwal"},
        {"Update Parties Set CityId = Null Where PartyId = '6010004'", "Noor & Co"},
    };
    for (const Case& each : cases) {
        other.Run(each.change);
        EXPECT_EQ(database.Ask(NameOf4).Text(), each.name) << each.change;
        EXPECT_EQ(database.Ask(NameOf4).Text(), each.name) << "again, after " << each.change;
    }
}

TEST(EmbeddedFunctions, PartyAddedAndRemovedByAnotherStationIsSeen) {
    SampleDatabase database;
    OtherStation other(database);
    constexpr const char* ask =
        "Select dbo.FunGetPartyName('6099999') From Commodities Where CommodityId = 1";
    EXPECT_TRUE(database.Ask(ask).IsNull());
    other.Run("Insert Into ChartOfAccounts (AccountNo, AccountName) Values ('6099999', 'New')");
    EXPECT_EQ(database.Ask(ask).Text(), "New");
    other.Run("Delete From ChartOfAccounts Where AccountNo = '6099999'");
    EXPECT_TRUE(database.Ask(ask).IsNull());
}

TEST(EmbeddedFunctions, TableAlteredByAnotherStationIsSeen) {
    SampleDatabase database;
    OtherStation other(database);
    ASSERT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers-Lahore");
    other.Run("Alter Table Cities Rename Column CityName To Former");
    EXPECT_EQ(FailureOf([&] { database.Ask(NameOf4); }).Description(),
              "no such column: Cities.CityName");
    other.Run("Alter Table Cities Add Column CityName Text");
    EXPECT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers");
    other.Run("Update Cities Set CityName = 'Kasur'");
    EXPECT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers-Kasur");
}

TEST(EmbeddedFunctions, OpenTransactionAndItsRollbackAreSeen) {
    SampleDatabase database;
    constexpr const char* rename =
        "Update ChartOfAccounts Set AccountName = 'Noor & Co' Where AccountNo = '6010004'";
    ASSERT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers-Lahore");
    database.connection.BeginTrans();
    EXPECT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers-Lahore");
    database.connection.Execute(rename);
    EXPECT_EQ(database.Ask(NameOf4).Text(), "Noor & Co-Lahore");
    database.connection.RollbackTrans();
    EXPECT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers-Lahore");
    database.connection.BeginTrans();
    database.connection.Execute(rename);
    database.connection.CommitTrans();
    EXPECT_EQ(database.Ask(NameOf4).Text(), "Noor & Co-Lahore");
}

TEST(EmbeddedFunctions, RefusedStatementLeavesNoStaleName) {
    SampleDatabase database;
    ASSERT_EQ(database.Ask(NameOf19).Text(), "Noor Brothers-Sahiwal");
    // The rows are in the order of their numbers: the first is renamed, the second refused.
    EXPECT_THROW(database.connection.Execute(
                     "Update ChartOfAccounts Set AccountName = Case AccountNo When '6010004' Then "
                     "'Noor & Co' Else IIf(dbo.FunGetPartyName('6010004') = 'Noor & Co-Lahore', "
                     "Null, AccountName) End Where AccountNo In ('6010004', '6010019')"),
                 Failure);
    EXPECT_EQ(database.Ask(NameOf4).Text(), "Noor Brothers-Lahore");
    EXPECT_EQ(database.Ask(NameOf19).Text(), "Noor Brothers-Sahiwal");
}

/// A plain SQLite session.
class BareSession {
public:
    explicit BareSession(const SampleDatabase& database) {
        EXPECT_EQ(sqlite3_open(database.folder.File("Account1.db").c_str(), &session_), SQLITE_OK);
        RegisterEmbeddedFunctions(session_);
    }
    ~BareSession() { EXPECT_EQ(sqlite3_close(session_), SQLITE_OK); }
    BareSession(const BareSession&) = delete;
    BareSession& operator=(const BareSession&) = delete;

    void Run(const char* statements) {
        EXPECT_EQ(sqlite3_exec(session_, statements, nullptr, nullptr, nullptr), SQLITE_OK)
            << statements << ": " << sqlite3_errmsg(session_);
    }
    /// The first cell of a query's only row.
    std::string Ask(const char* query) {
        std::string cell;
        const auto keep = [](void* kept, int, char** cells, char**) {
            *static_cast<std::string*>(kept) = cells[0];
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(session_, query, keep, &cell, nullptr), SQLITE_OK);
        return cell;
    }
    sqlite3* Handle() { return session_; }

private:
    sqlite3* session_ = nullptr;
};

constexpr const char* Name4 =
    "SELECT FunGetPartyName(PartyId) FROM Parties WHERE PartyId = '6010004'";
constexpr const char* Rename = "UPDATE ChartOfAccounts SET AccountName = 'Noor & Co'";

// Names are cached while the transaction only reads; uncommitted changes are not.
TEST(EmbeddedFunctions, RollbackOfATransactionThatBeganAsAReadIsSeen) {
    SampleDatabase database;
    BareSession session(database);
    session.Run("BEGIN");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Lahore");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Lahore");
    session.Run(Rename);
    EXPECT_EQ(session.Ask(Name4), "Noor & Co-Lahore");
    session.Run("ROLLBACK");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Lahore");
}

TEST(EmbeddedFunctions, RollbackToASavepointIsSeen) {
    SampleDatabase database;
    BareSession session(database);
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Lahore");
    session.Run("BEGIN; UPDATE Cities SET CityName = 'Kasur' WHERE CityId = 1; SAVEPOINT Inner");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Kasur");
    session.Run(Rename);
    EXPECT_EQ(session.Ask(Name4), "Noor & Co-Kasur");
    session.Run("ROLLBACK TO Inner");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Kasur");
    session.Run("COMMIT");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Kasur");
}

// A read transaction sees one state of the database, however often others commit.
TEST(EmbeddedFunctions, ReadTransactionSeesOneState) {
    SampleDatabase database;
    OtherStation other(database);
    BareSession session(database);
    session.Run("BEGIN");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Lahore");
    other.Run("Update ChartOfAccounts Set AccountName = 'Noor & Co'");
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Lahore");
    EXPECT_EQ(session.Ask("SELECT FunGetPartyName(PartyId) FROM Parties WHERE PartyId = "
                          "'6010019'"),
              "Noor Brothers-Sahiwal")
        << "not looked up before";
    session.Run("COMMIT");
    EXPECT_EQ(session.Ask(Name4), "Noor & Co-Lahore");
}

/// Steps a statement of the plain session once and returns its first cell.
std::string StepFor(sqlite3_stmt* statement) {
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
    return reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
}

TEST(EmbeddedFunctions, OpenStatementSeesOneState) {
    SampleDatabase database;
    OtherStation other(database);
    BareSession session(database);
    sqlite3_stmt* names = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(session.Handle(),
                                 "SELECT FunGetPartyName(PartyId) FROM Parties WHERE PartyId IN "
                                 "('6010004', '6010019') ORDER BY PartyId",
                                 -1, &names, nullptr),
              SQLITE_OK);
    EXPECT_EQ(StepFor(names), "Noor Brothers-Lahore");
    other.Run("Update ChartOfAccounts Set AccountName = 'Noor & Co'");
    EXPECT_EQ(StepFor(names), "Noor Brothers-Sahiwal");
    sqlite3_reset(names);
    EXPECT_EQ(StepFor(names), "Noor & Co-Lahore");
    EXPECT_EQ(StepFor(names), "Noor & Co-Sahiwal");
    sqlite3_finalize(names);
}

// A session sees its own change immediately, also in a statement that is being read.
TEST(EmbeddedFunctions, ChangeByTheSameSessionIsSeenWhileAStatementIsOpen) {
    SampleDatabase database;
    BareSession session(database);
    EXPECT_EQ(session.Ask(Name4), "Noor Brothers-Lahore");
    sqlite3_stmt* names = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(session.Handle(),
                                 "SELECT FunGetPartyName('6010004') FROM Parties WHERE PartyId IN "
                                 "('6010004', '6010019')",
                                 -1, &names, nullptr),
              SQLITE_OK);
    EXPECT_EQ(StepFor(names), "Noor Brothers-Lahore");
    session.Run(Rename);
    EXPECT_EQ(StepFor(names), "Noor & Co-Lahore");
    sqlite3_finalize(names);
    EXPECT_EQ(session.Ask(Name4), "Noor & Co-Lahore");
}

TEST(EmbeddedFunctions, SessionCloses) {
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

TEST(EmbeddedFunctions, MissingTableIsNamed) {
    sqlite3* session = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &session), SQLITE_OK);
    RegisterEmbeddedFunctions(session);
    EXPECT_EQ(sqlite3_exec(session, "SELECT FunGetCommodity(1)", nullptr, nullptr, nullptr),
              SQLITE_ERROR);
    EXPECT_STREQ(sqlite3_errmsg(session), "no such table: main.Commodities");
    EXPECT_EQ(sqlite3_close(session), SQLITE_OK);
}

} // namespace
} // namespace Quillane
