#include "platform/ado/Value.h"

#include "support/FailureOf.h"

namespace Quillane {

namespace {

struct ShownCase {
    Value value;
    std::string_view text;
};

TEST(Value, ShowsEachKindInItsTextForm) {
    const ShownCase cases[] = {
        {0, "0"},
        {-7, "-7"},
        {std::int64_t{9'007'199'254'740'993}, "9007199254740993"},
        {30.0, "30"},
        {205.5, "205.5"},
        {0.1 + 0.2, "0.3"},
        {Value::Decimal{"30.000"}, "30"},
        {Value::Decimal{"100"}, "100"},
        {Value::Decimal{"-.50"}, "-0.5"},
        {Value::Decimal{".000"}, "0"},
        {Value::Decimal{"-.000"}, "0"},
        {Value::Decimal{"12345678901234567890.1230"}, "12345678901234567890.123"},
        {"", ""},
        {" 30.000 ", " 30.000 "},
        {ParseDate("2026-11-20"), "2026-11-20T00:00:00"},
    };
    for (const ShownCase& item : cases) {
        EXPECT_EQ(item.value.Text(), item.text);
        EXPECT_EQ(item.value.TextOrEmpty(), item.text);
    }
}

TEST(Value, NullIsEmptyOnlyInTextOrEmpty) {
    EXPECT_TRUE(Value().IsNull());
    EXPECT_FALSE(Value("").IsNull());
    EXPECT_EQ(Value().TextOrEmpty(), "");
    const auto failing = {
        FailureNumberOf([] { Value().Text(); }), FailureNumberOf([] { Value().Number(); }),
        FailureNumberOf([] { Value().Long(); }), FailureNumberOf([] { Value().AsDate(); })};
    for (const int number : failing)
        EXPECT_EQ(number, FailureNumber::InvalidUseOfNull);
}

TEST(Value, ReadsANumberStrictly) {
    EXPECT_EQ(Value(7).Number(), 7);
    EXPECT_EQ(Value(7.5).Number(), 7.5);
    EXPECT_EQ(Value(Value::Decimal{".5"}).Number(), 0.5);
    EXPECT_EQ(Value(" 7.5 ").Number(), 7.5);
    for (const auto* text : {"", "7x", "kg"})
        EXPECT_EQ(FailureNumberOf([&] { Value(text).Number(); }), FailureNumber::TypeMismatch);
    EXPECT_EQ(FailureNumberOf([] { Value(ParseDate("2026-11-20")).Number(); }),
              FailureNumber::TypeMismatch);
}

TEST(Value, ReadsAWholeNumberWithTiesToEven) {
    EXPECT_EQ(Value(2.5).Long(), 2);
    EXPECT_EQ(Value("3.5").Long(), 4);
    EXPECT_EQ(Value(std::int64_t{2'147'483'647}).Long(), 2'147'483'647);
    EXPECT_EQ(FailureNumberOf([] { Value(std::int64_t{2'147'483'648}).Long(); }),
              FailureNumber::Overflow);
}

TEST(Value, ReadsADate) {
    const Date date = ParseDate("2026-11-20");
    EXPECT_EQ(Value(date).AsDate(), date);
    EXPECT_EQ(Value("2026-11-20T13:45:00").AsDate(), date);
    for (const Value& value : {Value("20/11/2026"), Value(20261120), Value("")})
        EXPECT_EQ(FailureNumberOf([&] { value.AsDate(); }), FailureNumber::TypeMismatch);
}

} // namespace

} // namespace Quillane
