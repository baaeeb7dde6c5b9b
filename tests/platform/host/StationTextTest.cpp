#include "platform/host/StationText.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

struct Case {
    const char* before;
    const char* after;
};

TEST(StationText, EntryIsReplacedOrAddedAndTheRestIsKept) {
    constexpr Case cases[] = {
        {"", "[CompanyNames]\n1=Mill\n"},
        {"[CompanyNames]\n1=Old\n2=Other\n", "[CompanyNames]\n1=Mill\n2=Other\n"},
        {"[companynames]\n 1 = Old\n", "[companynames]\n1=Mill\n"},
        {"[ CompanyNames ]\n1=Old\n", "[ CompanyNames ]\n1=Mill\n"},
        {"[CompanyNames]\n2=Other\n", "[CompanyNames]\n1=Mill\n2=Other\n"},
        {"[Ports]\n1=/dev/x", "[Ports]\n1=/dev/x\n\n[CompanyNames]\n1=Mill\n"},
        {"; note\n[CompanyNames]\n[Ports]\n1=/dev/x\n",
         "; note\n[CompanyNames]\n1=Mill\n[Ports]\n1=/dev/x\n"},
        {"[CompanyNames]\n1=Old", "[CompanyNames]\n1=Mill\n"},
        {"\xEF\xBB\xBF[CompanyNames]\n1=Old\n", "\xEF\xBB\xBF[CompanyNames]\n1=Mill\n"},
        {"[CompanyNames]\r\n10=x\r\n", "[CompanyNames]\r\n1=Mill\r\n10=x\r\n"},
        {"[CompanyNames]\n;1=Off\n#1=Off\n", "[CompanyNames]\n1=Mill\n;1=Off\n#1=Off\n"}};
    for (const Case& each : cases)
        EXPECT_EQ(WithStationEntry(each.before, "CompanyNames", "1", "Mill"), each.after)
            << each.before;
}

TEST(StationText, NumberedEntriesStayInOrder) {
    constexpr Case cases[] = {{"[Ports]\n1=a\n2=b\n10=c\n", "[Ports]\n1=a\n2=b\n3=new\n10=c\n"},
                              {"[Ports]\n1=a\n2=b\n\n; the end\n[Station]\n",
                               "[Ports]\n1=a\n2=b\n3=new\n\n; the end\n[Station]\n"},
                              {"[Ports]\n; none yet\n", "[Ports]\n3=new\n; none yet\n"},
                              {"[Ports]\n1=a\n; the second scale\n2=b\n",
                               "[Ports]\n1=a\n; the second scale\n2=b\n3=new\n"}};
    for (const Case& each : cases)
        EXPECT_EQ(WithStationEntry(each.before, "Ports", "3", "new"), each.after) << each.before;
}

TEST(StationText, EntryOfAnotherSectionIsKept) {
    EXPECT_EQ(WithStationEntry("[CompanyNames]\n1=Mill\n[Ports]\n1=a\n", "Ports", "1", "b"),
              "[CompanyNames]\n1=Mill\n[Ports]\n1=b\n");
}

TEST(StationText, EntryIsRemovedAndItsSectionIsKept) {
    constexpr Case cases[] = {{"[Ports]\n; scale\n1=a\n2=b\n", "[Ports]\n; scale\n2=b\n"},
                              {"[Ports]\n1=a\n", "[Ports]\n"},
                              {"[CompanyNames]\n1=Mill\n", "[CompanyNames]\n1=Mill\n"},
                              {"", ""}};
    for (const Case& each : cases)
        EXPECT_EQ(WithoutStationEntry(each.before, "Ports", "1"), each.after) << each.before;
}

TEST(StationText, ReadsTheEntryOfASection) {
    const char* text = "[Ports]\n1=/dev/ttyS0\n[Backup]\n; 1=no\n 1 = /mnt/a=b \r\n";
    EXPECT_EQ(StationEntry(text, "ports", "1"), "/dev/ttyS0");
    EXPECT_EQ(StationEntry(text, "Backup", "1"), "/mnt/a=b");
    EXPECT_EQ(StationEntry(text, "Backup", "2"), "");
    EXPECT_EQ(StationEntry("", "Backup", "1"), "");
}

} // namespace
} // namespace Quillane
