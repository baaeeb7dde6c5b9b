#include "platform/forms/core/Text.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(Text, IsUnchangedByConversionToQtAndBack) {
    for (const std::string_view text :
         {"", "Ali", "زبیر", "\xEF\xBB\xBF", "\xEF\xBB\xBFJute New", "\xEF\xBB\xBF\xEF\xBB\xBF 7",
          "Jute \xEF\xBB\xBFNew", "a\r\nb"})
        EXPECT_EQ(FromQt(ToQt(text)), text);
}

TEST(Text, KeepsAMillionByteOrderMarks) {
    std::string marks;
    for (int mark = 0; mark < 1'000'000; ++mark)
        marks += "\xEF\xBB\xBF";
    EXPECT_EQ(FromQt(ToQt(marks)), marks);
}

} // namespace
} // namespace Quillane
