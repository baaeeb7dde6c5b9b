#include "platform/ado/ConnectionAttributes.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

struct Case {
    std::string_view text;
    std::string_view key;
    std::string_view value;
};

TEST(ConnectionAttributes, FindsTheValueOfAKey) {
    const Case cases[] = {
        {"Driver=SQL Server;Server=(embedded);Database=Account1", "Database", "Account1"},
        {"Driver=SQL Server;SERVER=(embedded);database=Account1", "Server", "(embedded)"},
        {" Server = mill\\main ; Database = Account1 \r\n", "server", "mill\\main"},
        {" Server = mill ; Database = Account1 \r\n", "Database", "Account1"},
        {"Pwd={a;b=c}}d};Server=x", "Pwd", "a;b=c}d"},
        {"Pwd={a;b=c}}d};Server=x", "Server", "x"},
        {"Pwd={never closed;Server=x", "Server", ""},
        {"Server=a;Server=b", "Server", "a"},
        {"Server=;Database=b", "Server", ""},
        {"Server=;Database=b", "Database", "b"},
        {"nonsense;Database=b;;", "Database", "b"},
        {"A=b=c", "A", "b=c"},
        {"", "Server", ""},
        {"=", "", ""},
    };
    for (const Case& item : cases)
        EXPECT_EQ(ConnectionAttributes(item.text).Get(item.key), item.value) << item.text;
}

} // namespace

} // namespace Quillane
