#pragma once

#include <memory>

namespace Quillane {

/// Takes each key from the display's server to the window that it is meant for, so that none is
/// lost however fast it is typed. The toolkit drops a key for a window that a modal one blocks, and
/// one for a window that has closed meanwhile.
///
/// A key goes to the box or the modal screen that is up, in whichever window of this program it
/// arrived, and otherwise to the screen shown last where its own window has closed. While such a
/// window is coming up or going away (Interruption::IsPending) keys wait, and are handed on in
/// their order. One router at a time, for as long as there is an application.
class KeyRouter {
public:
    KeyRouter();
    ~KeyRouter();
    KeyRouter(const KeyRouter&) = delete;
    KeyRouter& operator=(const KeyRouter&) = delete;

    /// Lets the waiting keys be handed on as soon as events run.
    static void Resume();

private:
    class Handler;
    std::unique_ptr<Handler> handler_;
};

} // namespace Quillane
