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

    /// The report must stay until the source is cleared or another one is given.
    void SetReportSource(Report& report);
    void ClearReportSource();
    /// Draws the pages. A failure of the report comes back to the caller.
    void ViewReport();
    /// 1: page width, 2: whole page, 25 to 400: per cent. Another level fails (5).
    void Zoom(int level);

    int PageCount() const;
    int CurrentPage() const; ///< from 1
    void ShowPage(int number);

    /// Place on the screen, in the screen's pixels.
    int Top() const;
    int Left() const;
    int Width() const;
    int Height() const;
    void SetTop(int top);
    void SetLeft(int left);
    void SetWidth(int width);
    void SetHeight(int height);

    /// Raised when the operator asks to print or to save as PDF, before the pages are asked for
    /// again: what it changes in the report is so on paper.
    std::function<void()> PrintButtonClicked;
    std::function<void()> CloseButtonClicked;

    /// The print button: asks which printer and prints. Where no printer is installed it says so
    /// and offers the PDF. Reports its own failures.
    void PrintReport();
    /// The button "Save as PDF": asks for the file and saves.
    void SaveReport();
    /// Saves as PDF, over an existing file; that file stays as it was if this fails, which is
    /// reported in a box. True when saved.
    bool SavePdf(const std::string& path);

    /// The desktop's part, which tests replace: whether a printer is installed; the printer dialog
    /// (false: cancelled); the file dialog, given a proposed path (none: cancelled), which asks
    /// before it lets a file be written over.
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
    std::string folder_; ///< where the last PDF went
};

} // namespace Quillane
