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

/// Where the file dialog starts: the folder of the last file (empty: none yet), the operator's for
/// documents, the home folder or the one for temporary files, whichever is the first that exists.
std::string FolderToStartIn(const std::string& last);

} // namespace Quillane
