// A row of a table without a key is found by all of its columns: by a column of each type that
// SQL Server does not compare as text or as a number.

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "servers/SqlServerDatabase.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

struct KeylessType {
    const char* name;
    const char* type;
    const char* value; ///< a literal of T-SQL
    bool isFound;

    friend void PrintTo(const KeylessType& type, std::ostream* out) { *out << type.name; }
};

class KeylessTypes : public testing::TestWithParam<KeylessType> {
protected:
    void Add(std::string_view value) {
        connection.Execute("Insert Into BagLines Values (1, " + std::string(value) + ")");
    }
    std::string Count() {
        return connection.Execute("Select Count(*) From BagLines").Fields(0).Text();
    }

    SqlServerDatabase database;
    Connection connection;
};

TEST_P(KeylessTypes, AreMatchedOrRefusedWithTheRowLeftInPlace) {
    const KeylessType& type = GetParam();
    connection.Open(database.ConnectionString());
    connection.Execute("Create Table BagLines (Bags int Null, Mark " + std::string(type.type) +
                       " Null)");
    for (const std::string_view value : {type.value, "Null"}) {
        Add(value);
        Recordset rows;
        rows.Open("Select * From BagLines", connection, adOpenStatic, adLockOptimistic);
        const bool isFound = type.isFound || value == "Null";
        if (isFound)
            rows.Delete();
        else
            EXPECT_EQ(FailureNumberOf([&] { rows.Delete(); }), FailureNumber::NotUpdatable);
        EXPECT_EQ(Count(), isFound ? "0" : "1");
        connection.Execute("Delete From BagLines");
    }
}

constexpr KeylessType types[] = {
    {"Binary", "binary(4)", "0x01AB", true},
    {"VarBinary", "varbinary(10)", "0x01AB", true},
    {"VarBinaryWithoutBytes", "varbinary(max)", "0x", true},
    {"Image", "image", "0x01AB", true},
    {"Xml", "xml", "'<bags>1</bags>'", false},
    {"VariantOfANumber", "sql_variant", "5", false},
    {"VariantOfText", "sql_variant", "N'Jute'", false},
};

INSTANTIATE_TEST_SUITE_P(Types, KeylessTypes, testing::ValuesIn(types), [](const auto& each) {
    return "SqlServer" + std::string(each.param.name);
});

} // namespace
} // namespace Quillane
