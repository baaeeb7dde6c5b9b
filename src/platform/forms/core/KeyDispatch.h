#pragma once

class QEvent;

namespace Quillane {

class Screen;

/// The handling of one key by one screen. Dispatches nest: a modal screen that a key opens handles
/// its own keys before the dispatch of that key has ended.
class KeyDispatch {
public:
    KeyDispatch(const QEvent& event, const Screen& screen);
    ~KeyDispatch();
    KeyDispatch(const KeyDispatch&) = delete;
    KeyDispatch& operator=(const KeyDispatch&) = delete;

    /// True if this event object is being handled already: the key that opens a cell editor is
    /// passed to the editor as the same event.
    static bool Handles(const QEvent& event);
    /// The innermost dispatch, if it is this screen's.
    static KeyDispatch* Current(const Screen& screen);

    void AddTab() { ++tabs_; }
    int Tabs() const { return tabs_; }

private:
    const QEvent& event_;
    const Screen& screen_;
    KeyDispatch* outer_;
    int tabs_ = 0;
};

} // namespace Quillane
