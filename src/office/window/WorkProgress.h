#pragma once

#include <QProgressDialog>

#include <chrono>

namespace Quillane::Office {

/// Shows the progress of work in this thread if it takes longer than a moment. Esc and the button
/// Cancel cancel the work.
class WorkProgress {
public:
    WorkProgress(const QString& what, int parts, QWidget* over);

    /// Receives the number of completed parts. Returns false if the user has cancelled the work.
    bool operator()(int done);

    /// Shorter work shows no window. Tests set 0.
    static inline std::chrono::milliseconds Moment{400};

private:
    QProgressDialog dialog_;
    int lastLook_ = -1;
};

} // namespace Quillane::Office
