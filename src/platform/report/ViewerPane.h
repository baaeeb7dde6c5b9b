#pragma once

#include <QPrinter>
#include <QWidget>

#include <functional>

class QAction;
class QGraphicsView;
class QKeySequence;
class QLabel;
class QPrintPreviewWidget;
class QScrollBar;
class QToolBar;

namespace Quillane {

/// The widgets of the viewer: a toolbar above the pages. It gets the pages from a callback and does
/// not depend on a report.
class ViewerPane : public QWidget {
public:
    explicit ViewerPane(QWidget* parent);

    std::function<void(QPrinter&)> PaintRequested;
    std::function<void()> PrintRequested;
    std::function<void()> SaveRequested;
    std::function<void()> CloseRequested;

    QPrinter& PreviewPrinter() { return printer_; }
    QPrintPreviewWidget& Preview() { return *preview_; }
    QWidget& Pages() const;

    void ShowPage(int number);
    /// Scrolls down if the window is too low to show the first page down to this share of its
    /// height. This lasts until the user scrolls or turns to another page.
    void OpenAt(double part);
    /// Moves the focus from the pages to the first button, then to the next one, and from the last
    /// one back to the pages.
    void MoveFocus(bool forward);
    /// Presses the button that has the focus. Returns false if none has it.
    bool PressButton();
    void ZoomTo(int percent);
    void FitWidth();
    void FitPage();

private:
    QAction& AddAction(const QString& text, const QString& hint, const QKeySequence& key,
                       const QIcon& icon, const std::function<void()>& triggered);
    void AddPaging();
    void AddZooming();
    void AddPrinting();
    void AddSpace();
    void AddScrolling(const QKeySequence& key, int direction);
    void ScrollByScreen(int direction);
    QScrollBar& Scroll() const;
    void KeepOpening();
    int OpeningScroll() const;
    void ZoomByStep(int direction);
    void Refresh();

    QPrinter printer_;
    QPrintPreviewWidget* preview_;
    QToolBar* toolbar_;
    bool atOpening_ = true;  ///< the user has not scrolled yet
    double openingPart_ = 0; ///< the part to show first, as a share of the height of the first page
    QLabel* place_ = nullptr; ///< "Page 1 of 2"
    QAction* first_ = nullptr;
    QAction* previous_ = nullptr;
    QAction* next_ = nullptr;
    QAction* last_ = nullptr;
};

} // namespace Quillane
