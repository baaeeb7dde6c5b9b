#include "platform/report/ViewerDesktop.h"

#include "platform/forms/core/Text.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

namespace Quillane {

/// QPrinter cannot be used to find out: without an installed printer it silently changes to PDF.
bool AnyPrinterInstalled() {
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool AskForPrinter(QPrinter& printer, QWidget& parent) {
    QPrintDialog dialog(&printer, &parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted;
}

std::optional<std::string> AskForPdf(const std::string& proposedPath, QWidget& parent) {
    QFileDialog dialog(&parent, QObject::tr("Save as PDF"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QObject::tr("PDF documents (*.pdf)"));
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(ToQt(proposedPath));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return FromQt(dialog.selectedFiles().first());
}

std::string FolderToStartIn(const std::string& last) {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& folder : {ToQt(last), documents, QDir::homePath()}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return FromQt(folder);
    }
    return FromQt(QDir::tempPath());
}

} // namespace Quillane
