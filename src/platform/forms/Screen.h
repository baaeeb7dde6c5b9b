#pragma once

#include "platform/forms/Control.h"
#include "platform/forms/KeyCodes.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QEvent;
class QEventLoop;
class QKeyEvent;

namespace Quillane {

/// A screen: a window with controls, one class for each. Its event procedures are named after what
/// they handle (`BtnSave_Click`, `TxtGrossWeight_Change`) and are set as the controls' handlers in
/// its constructor.
///
/// Life. `Load` runs `Form_Load` once, before the window is shown and before a modal event loop
/// starts, so that a failure there reaches whoever showed the screen. `Unload` runs `Form_Unload`,
/// which may cancel. The window's close box and the system's close request are `Unload`. After an
/// unload the next `Load` starts over.
///
/// Focus. The screen keeps its active control itself; its logic never asks Qt. Before it is shown
/// no control is active. See VisualControl for the events.
///
/// Keys. Every key reaches `Form_KeyDown` before the control that has the focus, then, for
/// characters and Backspace without Ctrl or Alt (and for what an input method commits),
/// `Form_KeyPress`. Either swallows the key by setting it to 0. Tab and Backtab move the focus
/// after that and are used up by the move. A screen that has closed itself on a key gets no more of
/// that key.
class Screen : public QDialog {
public:
    Screen(std::string name, std::string_view caption);
    ~Screen() override;

    const std::string& Name() const { return name_; }
    const std::vector<Control*>& Controls() const { return controls_; }

    void Load();
    bool IsLoaded() const { return loaded_; }
    /// Shows the screen beside the others and returns.
    void Show();
    /// Shows the screen above `owner` and returns when it has been unloaded.
    void ShowModal(Screen* owner = nullptr);
    /// False if `Form_Unload` cancelled.
    bool Unload();

    /// None before the first showing, while the screen itself has the focus, and after unloading.
    VisualControl* ActiveControl() const { return active_; }
    /// The active control's name, or the empty text.
    std::string ActiveControlName() const;

    /// Presses Tab as the operator would: delivered when the handling of the key that asked for it
    /// ends and before the next key; the screen sees it as a key. Outside of any key's handling it
    /// is delivered at once.
    void SendTab();

    /// Lets pending events run. Throws ScreenGone if they unloaded this screen.
    void DoEvents();

    /// Every event of the focus, in order, as "Validate Name", "LostFocus Name", "GotFocus Name",
    /// "Form_GotFocus": for tests that hold the order.
    std::function<void(const std::string&)> FocusObserver;

protected:
    virtual void Form_Load() {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    /// The form itself takes the focus: no control can.
    virtual void Form_GotFocus() {}
    virtual void Form_KeyDown(int& /*key*/, int /*shift*/) {}
    virtual void Form_KeyPress(int& /*character*/) {}
    virtual void Form_Resize() {}

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void reject() override;

private:
    friend class Application;
    friend class Control;
    friend class VisualControl;

    std::string name_;
    std::vector<Control*> controls_;
    VisualControl* active_ = nullptr;
    bool loaded_ = false;
};

} // namespace Quillane
