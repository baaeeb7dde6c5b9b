#include "slip/SlipObjects.h"

namespace Quillane::SlipObjects {

namespace {

ReportObject FieldAt(Place place, ReportField::Source source) {
    ReportObject object = At(ReportObjectKind::Field, place);
    object.field.source = source;
    return object;
}

} // namespace

ReportObject At(ReportObjectKind kind, Place place) {
    ReportObject object;
    object.kind = kind;
    object.Left = place.left;
    object.Top = place.top;
    object.Width = place.width;
    object.Height = place.height;
    return object;
}

ReportObject Text(Place place, std::string text) {
    ReportObject object = At(ReportObjectKind::Text, place);
    object.text = std::move(text);
    return object;
}

ReportObject Column(Place place, std::string name) {
    ReportObject object = FieldAt(place, ReportField::Source::Column);
    object.field.name = std::move(name);
    return object;
}

ReportObject Parameter(Place place, int position) {
    ReportObject object = FieldAt(place, ReportField::Source::Parameter);
    object.field.parameter = position;
    return object;
}

ReportObject Formula(Place place, std::string name,
                     std::function<std::string(const ReportContext&)> formula) {
    ReportObject object = FieldAt(place, ReportField::Source::Formula);
    object.field.name = std::move(name);
    object.field.formula = std::move(formula);
    return object;
}

ReportObject RowFormula(Place place, std::string name,
                        std::function<std::string(const Recordset&)> formula) {
    return Formula(place, std::move(name),
                   [formula = std::move(formula)](const ReportContext& context) {
                       return context.rows ? formula(*context.rows) : std::string();
                   });
}

ReportObject Box(Place place, int fill) {
    ReportObject object = At(ReportObjectKind::Box, place);
    object.FillColor = fill;
    object.LineColor = LineGreen;
    return object;
}

ReportObject Line(Place place) {
    return Box(place, -1);
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
