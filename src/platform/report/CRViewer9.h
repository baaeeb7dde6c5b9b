#pragma once

#include "platform/report/Report.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

class QPrinter;

namespace Quillane {

/// The report viewer: pages on the screen, a toolbar with paging, zoom, printing and saving as PDF.
///
/// Keys: Page Up and Page Down by a screenful; Ctrl with them by a page; Ctrl+Home
/// and Ctrl+End to the first and last page; Ctrl+Plus and Ctrl+Minus zoom; Ctrl+1 page width,
/// Ctrl+2 whole page; Ctrl+P prints, Ctrl+S saves as PDF. Tab and Shift+Tab move between the pages
/// and the buttons; Enter and Space press a button.
class CRViewer9 : public VisualControl {
public:
    CRViewer9(Screen& screen, std::string name);
    ~CRViewer9() override;

    /// Requires: the report outlives this object or the next call.
    void SetReportSource(Report& report);
    void ClearReportSource();
    /// Draws the pages. Errors: those of the report.
    void ViewReport();
    /// 1: page width, 2: whole page, 25 to 400: percent. Errors: 5 for any other level.
    void Zoom(int level);

    int PageCount() const;
    int CurrentPage() const; ///< from 1
    void ShowPage(int number);

    /// Position and size on the screen, in pixels.
    int Top() const;
    int Left() const;
    int Width() const;
    int Height() const;
    void SetTop(int top);
    void SetLeft(int left);
    void SetWidth(int width);
    void SetHeight(int height);

    /// Raised when the operator prints or saves as PDF, before the pages are painted again, so that
    /// changes to the report appear on paper.
    std::function<void()> PrintButtonClicked;
    std::function<void()> CloseButtonClicked;

    /// The print button: shows the printer dialog and prints. If no printer is installed, it offers
    /// the PDF. Failures are shown in a box.
    void PrintReport();
    /// The button "Save as PDF": shows the file dialog and saves.
    void SaveReport();
    /// Saves as PDF and replaces an existing file. Returns false after a failure, which is shown in
    /// a box; the existing file is then not changed.
    bool SavePdf(const std::string& path);

    /// Functions of the desktop that tests replace: whether a printer is installed; the printer
    /// dialog (false: cancelled); the file dialog with a proposed path (none: cancelled), which
    /// asks before an existing file is replaced.
    std::function<bool()> PrinterInstalled;
    std::function<bool(QPrinter&)> ChoosePrinter;
    std::function<std::optional<std::string>(const std::string&)> ChoosePdfFile;

    QWidget& Widget() override;
    QWidget& FocusWidget() override;
    bool HandleKey(int key, int shift) override;

private:
    class Pane;
    std::unique_ptr<Pane> pane_;
    Report* report_ = nullptr;
    std::string folder_; ///< the folder of the last PDF
};

} // namespace Quillane
