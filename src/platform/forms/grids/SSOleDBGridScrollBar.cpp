#include "platform/forms/grids/SSOleDBGridScrollBar.h"

#include <QStyle>
#include <QStyleOptionSlider>

namespace Quillane {

SSOleDBGridScrollBar::Look SSOleDBGridScrollBar::CurrentLook() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect slider =
        style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    return {slider, value() == minimum(), value() == maximum()};
}

// The base class paints itself at each change.
void SSOleDBGridScrollBar::sliderChange(SliderChange change) {
    if (CurrentLook() != painted_)
        QScrollBar::sliderChange(change);
}

void SSOleDBGridScrollBar::paintEvent(QPaintEvent* event) {
    painted_ = CurrentLook();
    QScrollBar::paintEvent(event);
}

} // namespace Quillane
