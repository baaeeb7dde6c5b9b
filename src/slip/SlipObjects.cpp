#include "slip/SlipObjects.h"

namespace Quillane::SlipObjects {

namespace {

ReportObject FieldAt(Area area, ReportField::Source source) {
    ReportObject object = At(ReportObjectKind::Field, area);
    object.field.source = source;
    return object;
}

} // namespace

ReportObject At(ReportObjectKind kind, Area area) {
    ReportObject object;
    object.kind = kind;
    object.Left = area.left;
    object.Top = area.top;
    object.Width = area.width;
    object.Height = area.height;
    return object;
}

ReportObject Text(Area area, std::string text) {
    ReportObject object = At(ReportObjectKind::Text, area);
    object.text = std::move(text);
    return object;
}

ReportObject Column(Area area, std::string name) {
    ReportObject object = FieldAt(area, ReportField::Source::Column);
    object.field.name = std::move(name);
    return object;
}

ReportObject Parameter(Area area, int position) {
    ReportObject object = FieldAt(area, ReportField::Source::Parameter);
    object.field.parameter = position;
    return object;
}

ReportObject Formula(Area area, std::string name,
                     std::function<std::string(const ReportContext&)> formula) {
    ReportObject object = FieldAt(area, ReportField::Source::Formula);
    object.field.name = std::move(name);
    object.field.formula = std::move(formula);
    return object;
}

ReportObject RowFormula(Area area, std::string name,
                        std::function<std::string(const Recordset&)> formula) {
    return Formula(area, std::move(name),
                   [formula = std::move(formula)](const ReportContext& context) {
                       return context.rows ? formula(*context.rows) : std::string();
                   });
}

ReportObject FilledBox(Area area, int fill) {
    ReportObject object = At(ReportObjectKind::Box, area);
    object.FillColor = fill;
    object.LineColor = LineGreen;
    return object;
}

ReportObject Line(Area area) {
    return FilledBox(area, -1);
}

ReportObject Sized(ReportObject object, int points) {
    object.Font.points = points;
    return object;
}

ReportObject Bold(ReportObject object) {
    object.Font.bold = true;
    return object;
}

ReportObject Aligned(ReportObject object, ReportAlignment alignment) {
    object.Alignment = alignment;
    return object;
}

ReportObject Growing(ReportObject object) {
    object.CanGrow = true;
    return object;
}

ReportObject ShownAtOpening(ReportObject object) {
    object.ShowAtOpening = true;
    return object;
}

ReportObject Coloured(ReportObject object, int textColour) {
    object.TextColor = textColour;
    return object;
}

ReportObject Suppressed(ReportObject object, std::function<bool(const ReportContext&)> condition) {
    object.Suppress = std::move(condition);
    return object;
}

ReportObject Cell(ReportObject object, int fill) {
    object.HasBorder = true;
    object.Inset = 70;
    object.BorderColor = BorderGreen;
    object.BackColor = fill;
    return object;
}

} // namespace Quillane::SlipObjects
