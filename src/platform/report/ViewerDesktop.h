#pragma once

#include <optional>
#include <string>

class QPrinter;
class QWidget;

/// The functions of the desktop that the viewer uses.
namespace Quillane {

bool AnyPrinterInstalled();

/// Shows the printer dialog; false if cancelled.
bool AskForPrinter(QPrinter& printer, QWidget& parent);

/// Shows the file dialog, which asks before an existing file is replaced; none if cancelled.
std::optional<std::string> AskForPdf(const std::string& proposedPath, QWidget& parent);

/// The start folder of the file dialog: the first that exists of the folder of the last file
/// (empty: none yet), the documents folder, the home folder and the folder for temporary files.
std::string FolderToStartIn(const std::string& last);

} // namespace Quillane
