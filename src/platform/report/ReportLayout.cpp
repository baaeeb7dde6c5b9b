#include "platform/report/ReportLayout.h"

#include "platform/forms/core/Text.h"

#include <optional>

namespace Quillane {

namespace {

class PageBuilder {
public:
    explicit PageBuilder(const Report& report);
    std::vector<ReportPage> Build();

private:
    ReportContext ContextOf(ReportSectionKind kind);
    PlacedSection LayOut(ReportSectionKind kind);
    const Recordset* CurrentRow() const { return rows_ && !rows_->Eof() ? &*rows_ : nullptr; }
    bool IsLastRow() const { return rows_->Position() + 1 == rows_->RecordCount(); }
    void BeginPage();
    void EndPage();
    void PlaceAt(const PlacedSection& section, double top);
    void Append(const PlacedSection& section);
    void Flow(const PlacedSection& section, double roomWanted);
    void FlowDetails();
    void NumberPages();

    const Report& report_;
    QSizeF sheet_;
    QDateTime time_;
    std::any kept_;
    std::optional<Recordset> rows_; ///< a clone, so that the current row of the caller is kept
    std::vector<ReportPage> pages_;
    PlacedSection pageFooter_;
    PlacedSection reportFooter_;
    double heightOfFreshPage_ = 0; ///< the height below the header of this page
    double top_ = 0;
    double bottom_ = 0;
    bool fresh_ = true; ///< the page has no details yet
};

PageBuilder::PageBuilder(const Report& report)
    : report_(report), sheet_(SheetOf(report)), time_(report.Now()) {
    const auto& data = report.Database.Data();
    if (!data || data->State() != adStateOpen)
        return;
    rows_.emplace(data->Clone());
    if (rows_->RecordCount() > 0)
        rows_->MoveFirst();
}

ReportContext PageBuilder::ContextOf(ReportSectionKind kind) {
    const bool isOfPage =
        kind == ReportSectionKind::PageHeader || kind == ReportSectionKind::PageFooter;
    const int page = isOfPage ? static_cast<int>(pages_.size()) : 0;
    return {report_, CurrentRow(), page, time_, kept_};
}

PlacedSection PageBuilder::LayOut(ReportSectionKind kind) {
    const ReportContext context = ContextOf(kind);
    PlacedSection all;
    for (const ReportSection& section : report_.Sections) {
        if (section.Kind != kind)
            continue;
        PlacedSection one = LayOutSection(section, context);
        for (PlacedObject& object : one.objects) {
            object.bounds.translate(0, all.height);
            all.objects.push_back(std::move(object));
        }
        all.height += one.height;
    }
    return all;
}

void PageBuilder::PlaceAt(const PlacedSection& section, double top) {
    for (PlacedObject object : section.objects) {
        object.bounds.translate(report_.Paper.LeftMargin, top);
        pages_.back().objects.push_back(std::move(object));
    }
}

void PageBuilder::Append(const PlacedSection& section) {
    PlaceAt(section, top_);
    top_ += section.height;
}

void PageBuilder::BeginPage() {
    const bool isFirst = pages_.empty();
    pages_.emplace_back();
    top_ = report_.Paper.TopMargin;
    pageFooter_ = LayOut(ReportSectionKind::PageFooter);
    bottom_ = sheet_.height() - report_.Paper.BottomMargin - pageFooter_.height;
    fresh_ = true;
    if (isFirst) {
        const PlacedSection header = LayOut(ReportSectionKind::ReportHeader);
        fresh_ = header.objects.empty();
        Append(header);
    }
    const PlacedSection header = LayOut(ReportSectionKind::PageHeader);
    heightOfFreshPage_ = bottom_ - report_.Paper.TopMargin - header.height;
    Append(header);
}

void PageBuilder::EndPage() {
    PlaceAt(pageFooter_, bottom_);
}

void PageBuilder::Flow(const PlacedSection& section, double roomWanted) {
    if (!fresh_ && top_ + roomWanted > bottom_) {
        EndPage();
        BeginPage();
    }
    Append(section);
    fresh_ = false;
}

/// Stays at the last row for the report footer, even if the footer starts a page.
void PageBuilder::FlowDetails() {
    bool more = CurrentRow() != nullptr;
    while (more) {
        const PlacedSection row = LayOut(ReportSectionKind::Detail);
        more = !IsLastRow();
        double height = row.height;
        if (!more) {
            reportFooter_ = LayOut(ReportSectionKind::ReportFooter);
            if (height + reportFooter_.height <= heightOfFreshPage_)
                height += reportFooter_.height;
        }
        Flow(row, height);
        if (more)
            rows_->MoveNext();
    }
}

/// Fills in the number of pages.
void PageBuilder::NumberPages() {
    const QString count = QString::number(pages_.size());
    for (std::size_t page = 0; page < pages_.size(); ++page) {
        const QString text = QStringLiteral("Page %1 of %2").arg(page + 1).arg(count);
        for (PlacedObject& placed : pages_[page].objects) {
            if (placed.object->kind == ReportObjectKind::Field &&
                placed.object->field.source == ReportField::Source::PageNofM)
                placed.text = std::make_shared<const TextLines>(*placed.object, text);
        }
    }
}

std::vector<ReportPage> PageBuilder::Build() {
    BeginPage();
    if (!CurrentRow())
        reportFooter_ = LayOut(ReportSectionKind::ReportFooter);
    FlowDetails();
    if (!reportFooter_.objects.empty())
        Flow(reportFooter_, reportFooter_.height);
    EndPage();
    NumberPages();
    return std::move(pages_);
}

} // namespace

QSizeF SheetOf(const Report& report) {
    const QSizeF upright(report.Paper.Width, report.Paper.Height);
    return report.PaperOrientation == 2 ? upright.transposed() : upright;
}

std::vector<ReportPage> LayOutReport(const Report& report) {
    return PageBuilder(report).Build();
}

} // namespace Quillane
