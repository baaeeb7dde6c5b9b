#pragma once

#include "platform/forms/core/Control.h"
#include "platform/forms/core/KeyCodes.h"

#include <QDialog>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QEventLoop;
class QInputMethodEvent;
class QKeyEvent;

namespace Quillane {

/// A screen: a window with controls. Each screen is one class. Its event procedures are named after
/// what they handle (`BtnSave_Click`, `TxtGrossWeight_Change`); its constructor sets them as the
/// handlers of the controls.
///
/// Loading. `Load` runs `Form_Load` once, before the window is shown and before a modal event loop
/// starts, so that a failure there reaches the caller. `Unload` runs `Form_Unload`,
/// which may cancel. The window's close box and the system's close request are `Unload`. After an
/// unload the next `Load` starts over.
///
/// Focus. The screen keeps its active control itself and never asks Qt for it. Before it is shown
/// no control is active. See VisualControl for the events.
///
/// Keys. Every key reaches `Form_KeyDown` before the control that has the focus, then that
/// control's own `KeyDown`, then, for characters and Backspace without Ctrl or Alt (and for what an
/// input method commits), `Form_KeyPress`. Each swallows the key by setting it to 0. Tab and
/// Backtab move the focus after that and are used up by the move. A screen that has closed itself
/// on a key gets no more of that key.
class Screen : public QDialog {
public:
    Screen(std::string name, std::string_view caption);
    ~Screen() override;

    const std::string& Name() const { return name_; }
    const std::vector<Control*>& Controls() const { return controls_; }

    void Load();
    bool IsLoaded() const { return loaded_; }
    /// Shows the screen, not modally, and returns.
    void Show();
    /// Shows the screen modally above `owner` and returns when it has been unloaded.
    void ShowModal(Screen* owner = nullptr);
    /// False if `Form_Unload` cancelled.
    bool Unload();

    /// With a maximise button, and shown maximised. By default a screen has neither a maximise nor
    /// a minimise button and opens centred on the display.
    void SetOpensMaximized();

    /// None before the screen is first shown, while the screen itself has the focus, and after
    /// unloading.
    VisualControl* ActiveControl() const { return active_; }
    /// The active control's name, or the empty text.
    std::string ActiveControlName() const;

    /// Presses Tab as the operator would: delivered when the handling of the key that asked for it
    /// ends and before the next key; the screen sees it as a key. Outside of any key's handling it
    /// is delivered at once.
    void SendTab();
    /// The action of Enter on a screen. A control whose name begins with "Btn", in any case, keeps
    /// the key and is pressed; from any other control the focus moves on as by Tab, and the key is
    /// used up.
    void EnterAsTab(int& key);
    /// True if the active control's name begins with "Btn", in any case.
    bool ActiveControlIsButton() const;

    /// Lets pending events run. Throws `ScreenGone` if they unloaded this screen.
    void DoEvents();

    /// The next control in tab order that can take the focus, wrapping around: by TabIndex, then by
    /// the order of declaration. From none, the first (the last, if backwards). None if no control
    /// can take it.
    VisualControl* NextInTabOrder(const VisualControl* from, bool forward = true) const;

    /// The screen that sees the keys of a widget: its window, or the screen that a popup (drop-down
    /// list, calendar, completer) belongs to. None for the widgets of a box or a menu.
    static Screen* Of(QWidget* widget);
    /// The control that contains a widget, or is the widget; popups included.
    VisualControl* ControlOf(const QWidget* widget) const;

    /// Called for every event of the focus, in order, with "Validate Name", "LostFocus Name",
    /// "GotFocus Name" or "Form_GotFocus". For tests of the order.
    std::function<void(const std::string&)> FocusObserver;

protected:
    virtual void Form_Load() {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    /// The form itself takes the focus, because no control can.
    virtual void Form_GotFocus() {}
    virtual void Form_KeyDown(int& /*key*/, int /*shift*/) {}
    virtual void Form_KeyPress(int& /*character*/) {}
    virtual void Form_Resize() {}

    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void reject() override;

private:
    friend class Application;
    friend class Control;
    friend class VisualControl;
    friend class Interruption;

    /// The reason why the focus moves. `Unable`: the active control was disabled or hidden.
    enum class Move { Operator, Code, Unable };
    /// The action of a mouse press after it has moved the focus: none if its control did not get
    /// the focus, because the action may depend on that.
    enum class Press { Nothing, UsedUp, HandedOn };

    void Appear(QWidget* owner);
    void Leave();
    void Centre();
    bool Lives(std::uint64_t life) const { return loaded_ && life == life_; }

    void TakeFirstFocus();
    void MoveFocus(VisualControl* target, Move cause);
    bool RunLeaving(VisualControl& leaving, VisualControl*& target, Move cause);
    VisualControl* Reachable(VisualControl* target, VisualControl* leaving) const;
    void Arrive(VisualControl* target);
    void MoveOnIfUnable();
    void GiveQtFocus();
    void QtFocusMoved();
    void Reconcile();
    Press PressedOn(const QWidget& widget);
    void Observe(std::string_view event, const VisualControl* control) const;

    bool PreviewKey(const QKeyEvent& event);
    bool PreviewKeyOf(VisualControl& control, int& key, int shift);
    bool PreviewCharacter(char32_t character);
    bool PreviewText(const QKeyEvent& event);
    bool PressShortcut(const QKeyEvent& event);
    VisualControl* ShortcutControl(const QKeyEvent& event) const;
    bool PreviewCommitted(const QString& text);
    void DeliverTab();

    std::string name_;
    std::vector<Control*> controls_;
    VisualControl* active_ = nullptr;
    VisualControl* wish_ = nullptr; ///< target of a SetFocus while a control was being left
    bool leaving_ = false;
    bool loaded_ = false;
    bool shown_ = false;
    bool unloading_ = false;
    bool reconciling_ = false;
    bool opensMaximized_ = false;
    std::uint64_t life_ =
        0; ///< counts loads and unloads, which distinguishes one showing from the next
    QEventLoop* loop_ = nullptr;
};

} // namespace Quillane
