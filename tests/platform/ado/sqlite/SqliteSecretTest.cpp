// A column that only one statement may read.

#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

namespace Quillane {

namespace {

constexpr const char* Reader = "Select UserName, PasswordHash From StationUsers";

class SqliteSecretTest : public testing::Test {
protected:
    void SetUp() override {
        folder.RunScript(
            "CREATE TABLE StationUsers (UserName TEXT PRIMARY KEY, PasswordHash TEXT, Level INT);"
            "INSERT INTO StationUsers VALUES ('ali', '$hash', 1);"
            "CREATE TABLE Parties (PartyId TEXT, PasswordHash TEXT);"
            "INSERT INTO Parties VALUES ('601', 'x');"
            "CREATE VIEW Everybody AS SELECT UserName, PasswordHash AS Mark FROM StationUsers");
        EmbeddedSupport support = folder.Support();
        support.secret = {"StationUsers", "PasswordHash", Reader};
        station.SetEmbeddedSupport(support);
        station.Open(EmbeddedFolder::connectionString);
    }
    std::string OneValue(std::string_view statement, int field = 0) {
        return station.Execute(statement).Fields(field).Text();
    }

    EmbeddedFolder folder;
    Connection station;
};

TEST_F(SqliteSecretTest, IsReadOnlyByItsStatement) {
    EXPECT_EQ(OneValue(Reader, 1), "$hash");
    for (int round = 0; round < 2; ++round)
        for (const char* statement : {
                 "Select UserName, PasswordHash From StationUsers ",
                 "Select UserName, PasswordHash, Level From StationUsers",
                 "Select * From StationUsers",
                 "Select StationUsers.* From StationUsers",
                 "Select [PasswordHash] From dbo.StationUsers",
                 "Select \"passwordhash\" From main.stationusers",
                 "Select PartyId From Parties Union Select PasswordHash From StationUsers",
                 "Select PartyId From Parties Union All Select UserName || PasswordHash From "
                 "StationUsers -- '%'",
                 "Select PartyId, (Select PasswordHash From StationUsers) From Parties",
                 "Select UserName From StationUsers Where PasswordHash Like '$%'",
                 "Select UserName From StationUsers Order By PasswordHash",
                 "Select Count(*) From StationUsers Group By PasswordHash",
                 "Select max(PasswordHash) From StationUsers",
                 "Select Mark From Everybody",
                 "Select Count(*) From Everybody Where Mark > 'a'",
                 "With U As (Select * From StationUsers) Select * From U",
                 "Update Parties Set PartyId = (Select PasswordHash From StationUsers)",
                 "Update StationUsers Set UserName = PasswordHash",
                 "Delete From StationUsers Where PasswordHash > 'a'",
                 "Insert Into StationUsers Values ('x', 'y', 1) Returning PasswordHash",
                 "Create Table Copies As Select * From StationUsers",
             })
            EXPECT_EQ(DatabaseFailureOf([&] { station.Execute(statement); }),
                      "access to StationUsers.PasswordHash is prohibited")
                << statement;
    EXPECT_EQ(OneValue(Reader, 1), "$hash");
    EXPECT_EQ(OneValue("Select Count(*) From StationUsers"), "1");
}

// The engine does not ask before it reads the columns of these joins.
TEST_F(SqliteSecretTest, IsNotReadThroughAJoinThatMergesColumns) {
    for (const char* statement : {
             "Select PasswordHash From Parties Full Join StationUsers Using (PasswordHash)",
             "Select * From (Select 'x' As PasswordHash) B Full Join StationUsers U Using "
             "(PasswordHash)",
             "Select PasswordHash From Parties Natural Full Outer Join [stationusers]",
             "Select PasswordHash From Parties full/**/join 'StationUsers' Using (PasswordHash)",
             "Select PasswordHash From Parties FULL JOIN `StationUsers` Using (PasswordHash)",
         })
        EXPECT_EQ(DatabaseFailureOf([&] { station.Execute(statement); }),
                  "access to StationUsers.PasswordHash is prohibited")
            << statement;
    EXPECT_EQ(FailureOf([&] {
                  station.Execute("Select Mark From (Select 'x' As Mark) Full Join Everybody Using "
                                  "(Mark)");
              }).Description(),
              "access to StationUsers.PasswordHash is prohibited");
}

TEST_F(SqliteSecretTest, RestrictsNothingElse) {
    EXPECT_EQ(OneValue("Select UserName From StationUsers"), "ali");
    EXPECT_EQ(OneValue("Select Level From StationUsers Where UserName = 'ali'"), "1");
    EXPECT_EQ(OneValue("Select PasswordHash From Parties"), "x");
    EXPECT_EQ(OneValue("Select A.PartyId From Parties A Inner Join Parties B On A.PartyId = "
                       "B.PartyId"),
              "601");
    station.Execute("Insert Into StationUsers Values ('gate', 'other', 2)");
    station.Execute("Update StationUsers Set PasswordHash = 'new' Where UserName = 'gate'");
    station.Execute("Delete From StationUsers Where UserName = 'ali'");
    EXPECT_EQ(OneValue(Reader, 1), "new");
}

TEST_F(SqliteSecretTest, IsReadAgainAfterAChangeOfTheSchema) {
    EXPECT_EQ(OneValue(Reader, 1), "$hash");
    folder.RunScript("ALTER TABLE StationUsers ADD COLUMN Remarks TEXT");
    EXPECT_EQ(OneValue(Reader, 1), "$hash");
    EXPECT_EQ(OneValue("Select UserName From StationUsers"), "ali");
}

TEST_F(SqliteSecretTest, IsIncludedInACopyOfTheDatabase) {
    const std::string copy = (folder.Folder() / "copy.db").string();
    station.Execute("VACUUM INTO '" + copy + "'");
    Connection other;
    other.SetEmbeddedSupport({folder.Folder().string()});
    other.Open("Server=(embedded);Database=copy");
    EXPECT_EQ(other.Execute(Reader).Fields(1).Text(), "$hash");
}

} // namespace

} // namespace Quillane
