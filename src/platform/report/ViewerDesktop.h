#pragma once

#include <optional>
#include <string>

class QPrinter;
class QWidget;

/// The parts of the desktop that the viewer asks.
namespace Quillane {

bool AnyPrinterInstalled();

/// The printer dialog; false if cancelled.
bool AskForPrinter(QPrinter& printer, QWidget& parent);

/// The file dialog, which asks before it lets a file be written over; none if cancelled.
std::optional<std::string> AskForPdf(const std::string& proposedPath, QWidget& parent);

/// The operator's folder for documents, with a slash behind it.
std::string DocumentsFolder();

} // namespace Quillane
