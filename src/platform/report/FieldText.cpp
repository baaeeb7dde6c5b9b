#include "platform/report/FieldText.h"

#include "platform/runtime/Failure.h"

namespace Quillane {

namespace {

/// Text that is not a date is shown unchanged, because other programs write the data.
std::string DateText(const Value& value) {
    try {
        return ShownDate(value.AsDate());
    } catch (const Failure&) {
        return value.TextOrEmpty();
    }
}

std::string ColumnText(const Value& value, ReportFormat format) {
    if (value.IsNull())
        return {};
    if (format == ReportFormat::DateOnly || std::holds_alternative<Date>(value.Raw()))
        return DateText(value);
    return value.Text();
}

std::string FieldText(const ReportField& field, const ReportContext& context) {
    using Source = ReportField::Source;
    switch (field.source) {
    case Source::Parameter:
        return context.report.ParameterFields(field.parameter).Shown();
    case Source::ReportTitle:
        return context.report.Title;
    case Source::Column:
        return context.rows ? ColumnText(context.rows->Fields(field.name), field.format)
                            : std::string();
    case Source::Formula:
        return field.formula ? field.formula(context) : std::string();
    case Source::PageNofM:
        break;
    }
    return {};
}

} // namespace

std::string ObjectText(const ReportObject& object, const ReportContext& context) {
    if (object.kind == ReportObjectKind::Field)
        return FieldText(object.field, context);
    return object.kind == ReportObjectKind::Text ? object.text : std::string();
}

} // namespace Quillane
