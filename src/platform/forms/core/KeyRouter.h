#pragma once

#include <memory>

namespace Quillane {

/// Delivers each key of the display's server to the window that it is meant for, so that no key is
/// lost at any typing speed. The toolkit drops a key for a window that a modal window blocks, and a
/// key for a window that has been closed.
///
/// A key is delivered to the box or modal screen that is shown, whichever window of this program
/// received it. Without one it is delivered to its own window, or to the screen shown last if its
/// own window has been closed. While a box or modal screen is being shown or closed
/// (Interruption::IsPending), keys wait and are delivered in order afterwards. Requires: an
/// application, and no other router.
class KeyRouter {
public:
    KeyRouter();
    ~KeyRouter();
    KeyRouter(const KeyRouter&) = delete;
    KeyRouter& operator=(const KeyRouter&) = delete;

    /// Delivers the waiting keys as soon as events run.
    static void Resume();

private:
    class Handler;
    std::unique_ptr<Handler> handler_;
};

} // namespace Quillane
