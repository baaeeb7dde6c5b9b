#include "platform/report/Report.h"

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(Report, NumbersItsParametersFromOne) {
    Report report(7);
    report.ParameterFields(1).AddCurrentValue("first");
    report.ParameterFields(7).AddCurrentValue("last");
    EXPECT_EQ(report.ParameterFields(1).Shown(), "first");
    EXPECT_EQ(report.ParameterFields(7).Shown(), "last");
    EXPECT_EQ(report.ParameterCount(), 7);
}

TEST(Report, RefusesAMissingParameter) {
    for (const int position : {-1, 0, 8}) {
        Report report(7);
        try {
            report.ParameterFields(position);
            ADD_FAILURE() << position;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::SubscriptOutOfRange);
        }
    }
}

TEST(Report, ShowsANumberParameterInTheGeneralForm) {
    const std::pair<double, const char*> cases[] = {
        {0, "0"}, {12540, "12540"}, {205.5, "205.5"}, {-40, "-40"}};
    for (const auto& [number, shown] : cases) {
        ParameterField field;
        field.AddCurrentValue(number);
        EXPECT_EQ(field.Shown(), shown);
        EXPECT_EQ(std::get<double>(field.Value()), number);
    }
    EXPECT_EQ(ParameterField().Shown(), "");
}

TEST(Report, SharesItsRecordset) {
    Report report(0);
    auto rows = std::make_shared<Recordset>();
    report.Database.SetDataSource(rows, 3, 1);
    EXPECT_EQ(report.Database.Data(), rows);
    EXPECT_EQ(report.Database.DataTag(), 3);
    EXPECT_THROW(report.Database.SetDataSource(rows, 3, 2), Failure);
}

TEST(Report, DoesNotChangeTheTextsOfThePrinter) {
    Report report(0);
    report.SelectPrinter("Dummy Driver", "Ding Dong", "LPT1");
    EXPECT_EQ(report.SelectedPrinter().Driver, "Dummy Driver");
    EXPECT_EQ(report.SelectedPrinter().Printer, "Ding Dong");
    EXPECT_EQ(report.SelectedPrinter().Port, "LPT1");
}

} // namespace
} // namespace Quillane
