#pragma once

#include "platform/forms/controls/DropDownEdit.h"
#include "platform/forms/controls/DropDownList.h"
#include "platform/forms/controls/TDBCombo.h"

#include <QWidget>

namespace Quillane {

/// What is seen of a pick list: the line, the arrow beside it and the border around both, as the
/// list's set-up asks for.
class TDBCombo::Box : public QWidget {
public:
    Box(TDBCombo& list, QWidget& parent);

    DropDownEdit& Edit() { return edit_; }
    DropDownList& List() { return list_; }
    /// Where the drop-down hangs below.
    QRect GlobalField() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QRect ArrowRect() const;
    void PaintBorder(QPainter& painter) const;

    TDBCombo& owner_;
    DropDownEdit edit_;
    DropDownList list_;
};

} // namespace Quillane
