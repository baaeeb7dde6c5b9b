#include "office/daybook/Export.h"
#include "office/window/DayBookPage.h"
#include "office/window/OfficeBoxes.h"
#include "office/window/WorkProgress.h"
#include "platform/forms/core/Text.h"
#include "platform/report/ReportPainter.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTabWidget>

namespace Quillane::Office {

namespace {

QString AskByDialog(QWidget* over, const QString& proposed, const QString& kind) {
    return QFileDialog::getSaveFileName(over, "Save the day book", QDir::home().filePath(proposed),
                                        kind);
}

} // namespace

/// Only a day book that has been read to its end is printed.
bool DayBookPage::HasWhole() {
    if (!book_ || IsReading() || !book_->IsComplete()) {
        Inform(window(), "The day book has not been read to its end. Wait until it has, or press "
                         "F5 to read it again.");
        return false;
    }
    return true;
}

std::unique_ptr<DayBookReport> DayBookPage::PrintedReport() const {
    const int tab = tabs_->currentIndex();
    const bool all = all_->isChecked();
    auto report =
        std::make_unique<DayBookReport>(*book_,
                                        PrintedParts{.arrivals = all || tab == ArrivalsTab,
                                                     .byDay = all || tab == DayTab,
                                                     .byParty = all || tab == PartyTab,
                                                     .byCommodity = all || tab == CommodityTab,
                                                     .picture = all || tab == PictureTab},
                                        session_.company);
    report->UserName = session_.user;
    return report;
}

QString DayBookPage::AskFor(const std::string& name, const QString& ending, const QString& kind) {
    const QString proposed = ToQt(name) + ending;
    QString path = ChooseFile ? ChooseFile(proposed, kind) : AskByDialog(this, proposed, kind);
    if (!path.isEmpty() && !path.endsWith(ending, Qt::CaseInsensitive))
        path += ending;
    return path;
}

void DayBookPage::Print() {
    if (!HasWhole())
        return;
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        return Inform(window(), "No printer is installed. Save the day book as PDF (Ctrl+D).");
    const auto report = PrintedReport();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(ToQt(report->FileName()));
    ApplyPaper(printer, *report);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const ReportPainter pages(*report);
    QPainter painter;
    const int last =
        printer.toPage() > 0 ? std::min(printer.toPage(), pages.PageCount()) : pages.PageCount();
    if (!painter.begin(&printer) ||
        !pages.PaintPages(painter, printer, std::max(printer.fromPage(), 1), last))
        Warn(window(), "The printer took no page. Check the printer, and print again.");
}

void DayBookPage::SavePdf() {
    if (!HasWhole())
        return;
    const auto report = PrintedReport();
    const QString path = AskFor(report->FileName(), ".pdf", "PDF (*.pdf)");
    if (path.isEmpty())
        return;
    WritePdf(*report, FromQt(path));
    state_->setText("Saved as " + path + ".");
}

void DayBookPage::WriteFile(const QString& path,
                            const std::function<bool(DayBook&, const GoOn&)>& write) {
    DayBook book(session_.connection, book_->Filter());
    constexpr int percent = 100;
    WorkProgress progress("Writing the day book...", percent, window());
    const bool isWhole = write(book, [&](const DayBook& read) {
        return progress(static_cast<int>(read.Progress() * (percent - 1)));
    });
    state_->setText(isWhole ? "Saved as " + path + "." : "Cancelled. No file was written.");
}

void DayBookPage::SaveCsv() {
    if (!book_)
        return;
    CancelReading();
    const int tab = tabs_->currentIndex();
    const std::string what = tab == DayTab         ? " by day"
                             : tab == PartyTab     ? " by party"
                             : tab == CommodityTab ? " by commodity"
                                                   : "";
    const QString path = AskFor(FileNameOf(book_->Filter()) + what, ".csv", "CSV UTF-8 (*.csv)");
    if (path.isEmpty())
        return;
    WriteFile(path, [&](DayBook& book, const GoOn& goOn) {
        return WriteTextFile(FromQt(path), [&](const TextSink& sink) {
            if (tab == DayTab || tab == PartyTab || tab == CommodityTab)
                return WriteSumsCsv(book, static_cast<SumsBy>(tab - DayTab), sink, goOn);
            return WriteArrivalsCsv(book, sink, goOn);
        });
    });
}

void DayBookPage::SaveWorkbook() {
    if (!book_)
        return;
    CancelReading();
    const QString path = AskFor(FileNameOf(book_->Filter()), ".xlsx", "Excel workbook (*.xlsx)");
    if (!path.isEmpty())
        WriteFile(path, [&](DayBook& book, const GoOn& goOn) {
            return WriteWorkbook(book, FromQt(path), goOn);
        });
}

} // namespace Quillane::Office
