#pragma once

#include "platform/forms/controls/DropDownEdit.h"
#include "platform/forms/controls/DropDownList.h"
#include "platform/forms/controls/TDBCombo.h"

#include <QWidget>

namespace Quillane {

/// The visible part of a pick list: the line, the arrow button and the border.
class TDBCombo::Box : public QWidget {
public:
    Box(TDBCombo& list, QWidget& parent);

    DropDownEdit& Edit() { return edit_; }
    DropDownList& List() { return list_; }
    /// The rectangle below which the list opens, in global coordinates.
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
