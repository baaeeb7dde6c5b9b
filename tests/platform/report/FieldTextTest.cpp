#include "platform/report/FieldText.h"

#include "platform/report/ReportSamples.h"
#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

struct ColumnCase {
    const char* value; ///< as in the query
    ReportFormat format;
    const char* shown;
};

TEST(FieldText, WritesEachKindOfValue) {
    RowSource source;
    const Report report(0);
    const ColumnCase cases[] = {
        {"Null", ReportFormat::General, ""},
        {"Null", ReportFormat::DateOnly, ""},
        {"'plain'", ReportFormat::General, "plain"},
        {"30.000", ReportFormat::General, "30"},
        {"81.17", ReportFormat::General, "81.17"},
        {"12345600", ReportFormat::General, "12345600"},
        {"1.0/3", ReportFormat::General, "0.333333333333333"},
        {"'2026-11-20T00:00:00'", ReportFormat::DateOnly, "20/11/2026"},
        {"'soon'", ReportFormat::DateOnly, "soon"},
        {"'لاہور'", ReportFormat::General, "لاہور"},
    };
    for (const ColumnCase& each : cases) {
        const auto rows = source.Query(std::string("Select ") + each.value + " As Cell");
        ReportObject object = FieldObject(ReportField::Source::Column, "Cell");
        object.field.format = each.format;
        EXPECT_EQ(TextAt(object, report, rows.get()), each.shown) << each.value;
    }
}

TEST(FieldText, FindsColumnsWithoutRegardToCase) {
    RowSource source;
    const auto rows = source.Query("Select 7 As ArrivalID");
    EXPECT_EQ(TextAt(FieldObject(ReportField::Source::Column, "ArrivalId"), Report(0), rows.get()),
              "7");
}

TEST(FieldText, IsEmptyWithoutARow) {
    EXPECT_EQ(TextAt(FieldObject(ReportField::Source::Column, "Any"), Report(0), nullptr), "");
}

TEST(FieldText, OfAFormulaCanUseTheParametersWithoutARow) {
    Report report(1);
    report.ParameterFields(1).AddCurrentValue("12540");
    ReportObject formula = FieldObject(ReportField::Source::Formula);
    EXPECT_EQ(TextAt(formula, report, nullptr), "");
    formula.field.formula = [](const ReportContext& at) {
        return at.report.ParameterFields(1).Shown() + (at.rows ? " with a row" : "");
    };
    EXPECT_EQ(TextAt(formula, report, nullptr), "12540");
}

TEST(FieldText, ShowsParametersAndTheTitle) {
    Report report(2);
    report.Title = "Quillane Slip";
    report.ParameterFields(2).AddCurrentValue(0.0);
    ReportObject parameter = FieldObject(ReportField::Source::Parameter);
    parameter.field.parameter = 2;
    EXPECT_EQ(TextAt(parameter, report, nullptr), "0");
    parameter.field.parameter = 1;
    EXPECT_EQ(TextAt(parameter, report, nullptr), "");
    EXPECT_EQ(TextAt(FieldObject(ReportField::Source::ReportTitle), report, nullptr),
              "Quillane Slip");
}

TEST(FieldText, FailsOnAMissingColumn) {
    RowSource source;
    const auto rows = source.Query("Select 1 As Cell");
    EXPECT_THROW(TextAt(FieldObject(ReportField::Source::Column, "Other"), Report(0), rows.get()),
                 Failure);
}

TEST(FieldText, OfABoxIsEmpty) {
    ReportObject box = BoxObject(100, 100, 0);
    box.text = "unseen";
    EXPECT_EQ(TextAt(box, Report(0), nullptr), "");
}

} // namespace
} // namespace Quillane
