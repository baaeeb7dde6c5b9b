#include "platform/ado/TextOrder.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

TEST(CompareText, IgnoresCaseAndTrailingBlanks) {
    const std::pair<std::string_view, std::string_view> equals[] = {
        {"", ""},       {"", "   "},      {"Ali", "ALI  "},   {"Müller", "MÜLLER"},
        {"ÿ", "Ÿ"},     {"Łódź", "łÓDŹ"}, {"ΑΒΓ", "αβγ"},     {"Жук ", "жУК"},
        {"علی", "علی"}, {"\xFF", "\xFF"}, {"a\xC3", "A\xC3"},
    };
    for (const auto& [left, right] : equals) {
        EXPECT_EQ(CompareText(left, right), 0) << left << " and " << right;
        EXPECT_EQ(CompareText(right, left), 0) << left << " and " << right;
    }
}

TEST(CompareText, OrdersTheRest) {
    const std::pair<std::string_view, std::string_view> pairs[] = {
        {"", "a"}, {"a", "B"}, {"A", "ab"}, {" a", "a"}, {"10", "9"}, {"z", "é"}, {"×", "÷"},
    };
    for (const auto& [left, right] : pairs) {
        EXPECT_LT(CompareText(left, right), 0) << left << " and " << right;
        EXPECT_GT(CompareText(right, left), 0) << left << " and " << right;
    }
}

} // namespace

} // namespace Quillane
