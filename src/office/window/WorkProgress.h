#pragma once

#include <QProgressDialog>

#include <chrono>

namespace Quillane::Office {

/// Shows the progress of work that this thread does, if it takes longer than a moment. Esc and
/// Cancel cancel it.
class WorkProgress {
public:
    WorkProgress(const QString& what, int parts, QWidget* over);

    /// Receives the number of parts done. Returns false if the user has cancelled the work.
    bool operator()(int done);

    /// Shorter work shows no window. Tests set 0.
    static inline std::chrono::milliseconds Moment{400};

private:
    QProgressDialog dialog_;
    int lastLook_ = -1;
};

} // namespace Quillane::Office
