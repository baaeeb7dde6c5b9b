#pragma once

#include "platform/forms/controls/LateLine.h"

#include <functional>

namespace Quillane {

/// A line that can refuse text which the operator inserts.
class FilteredLine : public LateLine {
public:
    using LateLine::LateLine;

    /// Called for text that is typed, pasted, dropped or committed by an input method: `text` is
    /// inserted, `rest` is the remaining text of the line. If it returns false, all of `text` is
    /// refused. Not called for writes from code and for removals. If empty, everything is inserted.
    std::function<bool(const QString& text, const QString& rest)> Admits;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool Refuses(const QString& text, const QString& rest) const;
    void Paste();
    QString Unselected() const;
};

} // namespace Quillane
