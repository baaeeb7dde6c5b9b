#include "office/daybook/ReportTables.h"

#include "office/daybook/Picture.h"
#include "slip/SlipObjects.h"

namespace Quillane::Office {

namespace {

using namespace SlipObjects;
using Condition = std::function<bool(const ReportContext&)>;

constexpr int rowHeight = 275;
constexpr int ruleGrey = 0xE4E4E4;

/// The positions of the columns: the page width is divided in proportion to the widths of the
/// headings.
class ColumnAreas {
public:
    explicit ColumnAreas(const std::vector<ColumnHeading>& headings) {
        int all = 0;
        for (const ColumnHeading& heading : headings)
            all += heading.width;
        int before = 0;
        for (const ColumnHeading& heading : headings) {
            edges_.push_back(PictureWidth * before / all);
            before += heading.width;
        }
        edges_.push_back(PictureWidth);
    }
    Area At(std::size_t column, int top, int height) const {
        return {edges_[column], top, edges_[column + 1] - edges_[column], height};
    }

private:
    std::vector<int> edges_;
};

bool IsOf(const ReportContext& context, PrintedTable table) {
    return context.rows &&
           context.rows->Fields(PrintedColumn::Table).Long() == static_cast<int>(table);
}

bool BeginsTable(const ReportContext& context) {
    return !context.rows->Fields(PrintedColumn::Title).IsNull();
}

bool IsEnd(const ReportContext& context) {
    return context.rows->Fields(PrintedColumn::IsEnd).Long() == 1;
}

Condition Unless(std::function<bool(const ReportContext&)> isShown) {
    return
        [isShown = std::move(isShown)](const ReportContext& context) { return !isShown(context); };
}

ReportObject InColumn(ReportObject object, const ColumnHeading& heading,
                      const Condition& suppressed) {
    object.Inset = 60;
    object.Alignment = heading.isNumber ? ReportAlignment::Right : ReportAlignment::Left;
    return Suppressed(std::move(object), suppressed);
}

void AddCaptions(std::vector<ReportObject>& objects, PrintedTable table, int top,
                 const Condition& suppressed) {
    const std::vector<ColumnHeading>& headings = HeadingsOf(table);
    const ColumnAreas areas(headings);
    for (std::size_t column = 0; column < headings.size(); ++column) {
        ReportObject caption =
            Bold(Sized(Text(areas.At(column, top, CaptionHeight), headings[column].WithUnit()), 8));
        caption.BackColor = HeadGreen;
        objects.push_back(InColumn(std::move(caption), headings[column], suppressed));
    }
}

void AddCells(std::vector<ReportObject>& objects, PrintedTable table, int top) {
    const Condition isNoRow =
        Unless([table](const ReportContext& c) { return IsOf(c, table) && !IsEnd(c); });
    const Condition isNoEnd =
        Unless([table](const ReportContext& c) { return IsOf(c, table) && IsEnd(c); });
    const std::vector<ColumnHeading>& headings = HeadingsOf(table);
    const ColumnAreas areas(headings);
    for (std::size_t column = 0; column < headings.size(); ++column) {
        const int field = PrintedColumn::FirstCell + static_cast<int>(column);
        const ReportObject cell =
            Sized(RowFormula(areas.At(column, top, rowHeight), "Cell",
                             [field](const Recordset& rows) { return rows.Fields(field).Text(); }),
                  9);
        objects.push_back(InColumn(cell, headings[column], isNoRow));
        ReportObject end = Bold(cell);
        end.BackColor = BandGreen;
        objects.push_back(InColumn(std::move(end), headings[column], isNoEnd));
    }
    ReportObject rule = At(ReportObjectKind::Line, {0, top + rowHeight, PictureWidth, 0});
    rule.LineColor = ruleGrey;
    rule.LineWidth = 6;
    objects.push_back(Suppressed(std::move(rule), isNoRow));
}

} // namespace

ReportSection TableSection(PrintedTable table) {
    constexpr int space = 140;
    constexpr int titleHeight = 400;
    const Condition isNoBegin =
        Unless([table](const ReportContext& c) { return IsOf(c, table) && BeginsTable(c); });
    const auto title = [](const Recordset& rows) {
        return rows.Fields(PrintedColumn::Title).TextOrEmpty();
    };
    std::vector<ReportObject> objects;
    objects.push_back(Suppressed(
        Coloured(
            Bold(Sized(RowFormula({0, 0, PictureWidth, space + titleHeight}, "Title", title), 12)),
            DarkGreen),
        isNoBegin));
    const int captionsTop = space + titleHeight;
    AddCaptions(objects, table, captionsTop, isNoBegin);
    AddCells(objects, table, captionsTop + CaptionHeight);
    return {.Name = std::string(HeadingsOf(table).front().caption),
            .Height = captionsTop + CaptionHeight + rowHeight,
            .Objects = std::move(objects),
            .Kind = ReportSectionKind::Detail};
}

std::vector<ReportObject> ContinuedCaptions(int top) {
    std::vector<ReportObject> objects;
    for (int number = 0; number < PrintedTableCount; ++number) {
        const auto table = static_cast<PrintedTable>(number);
        AddCaptions(objects, table, top, Unless([table](const ReportContext& c) {
                        return IsOf(c, table) && !BeginsTable(c);
                    }));
    }
    return objects;
}

} // namespace Quillane::Office
