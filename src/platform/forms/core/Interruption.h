#pragma once

#include <QPointer>

namespace Quillane {

class Screen;

/// A box or a modal screen coming up over the screen that is active. As it ends, the screen below
/// has the window and the focus back, with no focus event.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    Screen* Below() const;

    /// How many there have been: tells whether one came up during a procedure.
    static unsigned Count();

private:
    QPointer<QObject> below_;
};

} // namespace Quillane
