#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/report/CRViewer9.h"
#include "platform/report/ReportPainter.h"
#include "platform/report/ViewerDesktop.h"
#include "platform/runtime/Failure.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include <algorithm>

namespace Quillane {

namespace {

void ReportFailure(const std::string& what, const std::string& why) {
    MsgBox({.text = why.empty() ? what : what + "\n\n" + why,
            .title = ProgramTitle(),
            .icon = BoxIcon::Critical});
}

bool OfferPdf() {
    const BoxAnswer answer = MsgBox({.text = "No printer is installed on this computer.\n\n"
                                             "Do you want to save the pages as PDF?",
                                     .title = ProgramTitle(),
                                     .icon = BoxIcon::Question,
                                     .buttons = BoxButtons::YesNo});
    return answer == BoxAnswer::Yes;
}

/// The creator in the properties of the document.
QString Creator() {
    return (ToQt(ProgramTitle()) + " " + QCoreApplication::applicationVersion()).trimmed();
}

/// Paints on a printer or a PDF. Returns the error; empty if there was none.
template <typename Device>
std::string PaintOn(Device& device, const ReportPainter& pages, int first, int last) {
    QPainter painter;
    if (!painter.begin(&device))
        return "The device cannot be opened.";
    if (!pages.PaintPages(painter, device, first, last) || !painter.end())
        return "The device does not accept more pages.";
    return {};
}

std::string PrintPages(QPrinter& printer, const Report& report) {
    ApplyPaper(printer, report);
    const ReportPainter pages(report);
    int first = 1;
    int last = pages.PageCount();
    if (printer.printRange() == QPrinter::PageRange) {
        first = std::clamp(printer.fromPage(), 1, last);
        last = std::clamp(printer.toPage(), first, last);
    }
    const std::string reason = PaintOn(printer, pages, first, last);
    if (reason.empty() && printer.printerState() == QPrinter::Error)
        return "The printer has refused the pages.";
    return reason;
}

/// An existing file is replaced only when the new one is complete on the disk.
std::string WritePdf(const QString& path, const Report& report) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return FromQt(file.errorString());
    std::string reason;
    {
        QPdfWriter writer(&file);
        writer.setTitle(ToQt(report.Title));
        writer.setCreator(Creator());
        ApplyPaper(writer, report);
        const ReportPainter pages(report);
        reason = PaintOn(writer, pages, 1, pages.PageCount());
    }
    if (!reason.empty())
        return reason;
    return file.commit() ? std::string() : FromQt(file.errorString());
}

std::string ReasonOf(const std::function<std::string()>& work) {
    try {
        return work();
    } catch (const Failure& failure) {
        return failure.Description();
    }
}

} // namespace

void CRViewer9::PrintReport() {
    if (!report_)
        return;
    if (!PrinterInstalled()) {
        if (OfferPdf())
            SaveReport();
        return;
    }
    if (PrintButtonClicked)
        PrintButtonClicked();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(ToQt(report_->FileName()));
    printer.setCreator(Creator());
    ApplyPaper(printer, *report_);
    if (!ChoosePrinter(printer))
        return;
    const std::string reason = ReasonOf([&] { return PrintPages(printer, *report_); });
    if (!reason.empty())
        ReportFailure(
            "The pages could not be printed on \"" + FromQt(printer.printerName()) + "\".", reason);
}

void CRViewer9::SaveReport() {
    if (!report_)
        return;
    const QDir folder(ToQt(FolderToStartIn(folder_)));
    const auto path = ChoosePdfFile(FromQt(folder.filePath(ToQt(report_->FileName() + ".pdf"))));
    if (path && SavePdf(*path))
        folder_ = FromQt(QFileInfo(ToQt(*path)).absolutePath());
}

bool CRViewer9::SavePdf(const std::string& path) {
    if (!report_)
        return false;
    if (PrintButtonClicked)
        PrintButtonClicked();
    const std::string reason = ReasonOf([&] { return WritePdf(ToQt(path), *report_); });
    if (reason.empty())
        return true;
    ReportFailure("The file could not be saved:\n" + path, reason);
    return false;
}

} // namespace Quillane
