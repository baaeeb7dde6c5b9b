#include "platform/forms/controls/TDBComboBox.h"

#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <qdrawutil.h>

namespace Quillane {

namespace {
constexpr int ArrowWidth = 22;
constexpr int BorderWidth = 1;
constexpr double Rounding = 2;
} // namespace

TDBCombo::Box::Box(TDBCombo& list, QWidget& parent)
    : QWidget(&parent), owner_(list), edit_(this), list_(*this) {
    edit_.setFrame(false);
    edit_.installEventFilter(this);
    setFocusProxy(&edit_);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    edit_.Edited = [this](bool added) { RunEvent([this, added] { owner_.TextTyped(added); }); };
    list_.Chosen = [this](int row) {
        list_.Close();
        owner_.Take(row);
    };
}

QRect TDBCombo::Box::GlobalField() const {
    return {mapToGlobal(QPoint(0, 0)), size()};
}

QRect TDBCombo::Box::ArrowRect() const {
    return {width() - ArrowWidth, 0, ArrowWidth, height()};
}

QSize TDBCombo::Box::sizeHint() const {
    return QLineEdit().sizeHint() + QSize(ArrowWidth, 0);
}

QSize TDBCombo::Box::minimumSizeHint() const {
    return {edit_.minimumSizeHint().width() + ArrowWidth, sizeHint().height()};
}

void TDBCombo::Box::resizeEvent(QResizeEvent*) {
    edit_.setGeometry(
        rect().adjusted(BorderWidth + 1, BorderWidth, -ArrowWidth - BorderWidth, -BorderWidth));
}

void TDBCombo::Box::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), edit_.palette().color(QPalette::Base));
    QStyleOption arrow;
    arrow.initFrom(this);
    arrow.rect = ArrowRect().adjusted(5, 5, -5, -5);
    style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, this);
    PaintBorder(painter);
}

void TDBCombo::Box::PaintBorder(QPainter& painter) const {
    if (owner_.Layout.BorderStyle == 0)
        return;
    const bool entered = edit_.hasFocus();
    const QColor edge = entered ? palette().color(QPalette::Highlight)
                                : palette().color(QPalette::Window).darker(150);
    if (owner_.Layout.Appearance != 0 && !entered) {
        qDrawShadePanel(&painter, rect(), palette(), true, BorderWidth);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Rounding, Rounding);
}

void TDBCombo::Box::mousePressEvent(QMouseEvent* event) {
    const bool here = owner_.Owner().ActiveControl() == &owner_;
    if (event->button() == Qt::LeftButton && here && ArrowRect().contains(event->pos()))
        RunEvent([this] { owner_.ToggleDropDown(); });
}

bool TDBCombo::Box::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return false;
}

} // namespace Quillane
