#include "slip/SlipDesign.h"

#include "slip/SlipParts.h"

namespace Quillane {

namespace SlipParts {

namespace {

using namespace SlipObjects;

double NumberOf(const Report& report, int position) {
    const auto* number = std::get_if<double>(&report.ParameterFields(position).Value());
    return number ? *number : 0;
}

Figures ComputeFigures(const ReportContext& context) {
    Figures figures;
    if (context.rows)
        figures.lines = LinesOf(*context.rows);
    figures.weights =
        WeightsOf(figures.lines, NumberOf(context.report, SlipParameter::InitialGrossWeight),
                  NumberOf(context.report, SlipParameter::NetWeight));
    return figures;
}

ReportSection Heading() {
    ReportSection section{"ReportHeaderSection1", 0, {}, ReportSectionKind::ReportHeader};
    const int top = AddParticulars(section.Objects);
    section.Height = AddWeights(section.Objects, top);
    return section;
}

std::string ArrivalOf(const Recordset& rows) {
    return "Arrival No. " + rows.Fields("ArrivalId").TextOrEmpty();
}

std::string PrintingOf(const ReportContext& context) {
    const std::string time = context.time.toString("dd/MM/yyyy HH:mm").toStdString();
    const std::string& user = context.report.UserName;
    return "Printed " + time + (user.empty() ? "" : " by " + user);
}

/// On every page, so that the pages of a long load can be identified.
ReportSection Foot() {
    constexpr int outerWidth = 2600;
    constexpr int innerWidth = PageWidth - 2 * outerWidth;
    const auto area = [](int left, int width) { return Area{left, 120, width, 240}; };
    const auto look = [](const ReportObject& object) {
        return Coloured(Sized(object, 8), CaptionGrey);
    };
    ReportObject pages = At(ReportObjectKind::Field, area(outerWidth + innerWidth, outerWidth));
    pages.field.source = ReportField::Source::PageNofM;
    return {"PageFooterSection1",
            360,
            {Line({0, 100, PageWidth, 0}),
             look(RowFormula(area(0, outerWidth), "Arrival", ArrivalOf)),
             look(Aligned(Formula(area(outerWidth, innerWidth), "Printing", PrintingOf),
                          ReportAlignment::Centre)),
             look(Aligned(pages, ReportAlignment::Right))},
            ReportSectionKind::PageFooter};
}

} // namespace

const Figures& FiguresOf(const ReportContext& context) {
    if (!context.kept.has_value())
        context.kept = ComputeFigures(context);
    return std::any_cast<const Figures&>(context.kept);
}

} // namespace SlipParts

std::vector<ReportSection> SlipSections() {
    return {SlipParts::Heading(), SlipParts::TableHead(), SlipParts::TableRow(),
            SlipParts::TableEnd(), SlipParts::Foot()};
}

std::string SlipFileName(const Report& slip) {
    const auto& rows = slip.Database.Data();
    if (!rows || rows->State() != adStateOpen || rows->RecordCount() == 0)
        return "Slip";
    Recordset view = rows->Clone();
    view.MoveFirst();
    return "Slip " + view.Fields("ArrivalId").TextOrEmpty();
}

} // namespace Quillane
