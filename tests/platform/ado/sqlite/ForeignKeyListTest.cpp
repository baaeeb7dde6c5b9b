#include "platform/ado/EmbeddedFolder.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

/// FKTABLE_NAME.FKCOLUMN_NAME > PKCOLUMN_NAME KEY_SEQ, one after the other.
std::string KeysOn(std::string_view table, std::string_view schema) {
    const EmbeddedFolder folder;
    folder.RunScript(schema);
    Connection connection;
    folder.Open(connection);
    Recordset keys =
        connection.Execute("EXEC sp_fkeys @pktable_name = N'" + std::string(table) + "'");
    std::string text;
    for (; !keys.Eof(); keys.MoveNext())
        text += keys.Fields("FKTABLE_NAME").Text() + "." + keys.Fields("FKCOLUMN_NAME").Text() +
                ">" + keys.Fields("PKTABLE_NAME").Text() + "." +
                keys.Fields("PKCOLUMN_NAME").Text() + " " + keys.Fields("KEY_SEQ").Text() + ";";
    return text;
}

constexpr auto arrivals = "CREATE TABLE Arrivals (ArrivalID INTEGER PRIMARY KEY, Note TEXT);";

TEST(ForeignKeyList, IsEmptyWithoutReferences) {
    EXPECT_EQ(KeysOn("Arrivals", arrivals), "");
    EXPECT_EQ(KeysOn("NoSuchTable", arrivals), "");
}

TEST(ForeignKeyList, IsOrderedByTheForeignTable) {
    EXPECT_EQ(
        KeysOn("Arrivals", std::string(arrivals) +
                               "CREATE TABLE salesBody (A INT REFERENCES Arrivals(ArrivalID));"
                               "CREATE TABLE PurchaseBody (B INT REFERENCES Arrivals);"),
        "PurchaseBody.B>Arrivals.ArrivalID 1;salesBody.A>Arrivals.ArrivalID 1;");
}

TEST(ForeignKeyList, SpellsNamesAsTheirTablesDo) {
    EXPECT_EQ(KeysOn("ARRIVALS", std::string(arrivals) +
                                     "CREATE TABLE Body (ArrivalNo INT, "
                                     "FOREIGN KEY (arrivalno) REFERENCES arrivals (arrivalid));"),
              "Body.ArrivalNo>Arrivals.ArrivalID 1;");
}

TEST(ForeignKeyList, GivesARowForEachColumnInKeyOrder) {
    EXPECT_EQ(
        KeysOn("Lots", "CREATE TABLE Lots (Season INT, LotNo INT, PRIMARY KEY (LotNo, Season));"
                       "CREATE TABLE Bales (L INT, S INT, FOREIGN KEY (L, S) REFERENCES Lots);"
                       "CREATE TABLE Bags (S INT, L INT, "
                       "FOREIGN KEY (S, L) REFERENCES Lots (Season, LotNo));"),
        "Bags.S>Lots.Season 1;Bags.L>Lots.LotNo 2;Bales.L>Lots.LotNo 1;Bales.S>Lots.Season 2;");
}

TEST(ForeignKeyList, CountsATableThatRefersToItself) {
    EXPECT_EQ(KeysOn("A", "CREATE TABLE A (Id INTEGER PRIMARY KEY, Parent INT REFERENCES A);"),
              "A.Parent>A.Id 1;");
}

TEST(ForeignKeyList, HasTheColumnsOfTheCatalogueProcedure) {
    const EmbeddedFolder folder;
    Connection connection;
    folder.Open(connection);
    const Recordset keys = connection.Execute("EXEC sp_fkeys @pktable_name = N'A'");
    std::string names;
    for (int field = 0; field < keys.FieldCount(); ++field)
        names += keys.FieldName(field) + " ";
    EXPECT_EQ(names, "PKTABLE_QUALIFIER PKTABLE_OWNER PKTABLE_NAME PKCOLUMN_NAME FKTABLE_QUALIFIER "
                     "FKTABLE_OWNER FKTABLE_NAME FKCOLUMN_NAME KEY_SEQ UPDATE_RULE DELETE_RULE "
                     "FK_NAME PK_NAME DEFERRABILITY ");
}

} // namespace

} // namespace Quillane
