#pragma once

#include "platform/forms/controls/LateLine.h"

#include <functional>

namespace Quillane {

/// A line that asks before a text of the operator goes in.
class FilteredLine : public LateLine {
public:
    using LateLine::LateLine;

    /// Asked for what is typed, pasted, dropped or committed by an input method: `text` is what
    /// comes in, `rest` what the line keeps besides. False keeps all of `text` out. Writes from
    /// code and removals do not ask. Without it everything goes in.
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
